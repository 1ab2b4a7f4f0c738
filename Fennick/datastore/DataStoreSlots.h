#pragma once

#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "Fennick/datastore/NumberSlots.h"
#include "platform/runtime/CGFloat.h"

// The typed members of a data store, one virtual slot (or pair) for each type.
// Callers use the templates of IDataStore in front of them.
namespace Fennick::Slots {

template <typename T>
using Tag = std::type_identity<T>;

template <typename Base, typename T>
class StoreSetSlot : public Base {
protected:
    using Base::assign;
    virtual void assign(T value, std::string_view key) = 0;
    virtual void assign(std::optional<T> value, std::string_view key) = 0;
};

template <typename Base, typename T>
class StoreIncrementSlot : public Base {
protected:
    using Base::raise;
    virtual void raise(T delta, std::string_view key) = 0;
};

template <typename Base, typename T>
class StoreHistorySlot : public Base {
protected:
    using Base::readHistory;
    virtual std::vector<T> readHistory(std::string_view key, Tag<T>) const = 0;
};

template <typename Base, typename T>
class StoreValueSlot : public Base {
protected:
    using Base::readValue;
    virtual T readValue(std::string_view key, Tag<T>) const = 0;
};

// The slots answered for a class by its own templates.
template <typename Base, typename T>
class StoreSetAnswer : public Base {
protected:
    using Base::assign;
    void assign(T value, std::string_view key) override { self().setNumber(value, key); }
    void assign(std::optional<T> value, std::string_view key) override { self().setNumber(value, key); }

private:
    typename Base::Self& self() { return static_cast<typename Base::Self&>(*this); }
};

template <typename Base, typename T>
class StoreIncrementAnswer : public Base {
protected:
    using Base::raise;
    void raise(T delta, std::string_view key) override
    {
        static_cast<typename Base::Self&>(*this).addToNumber(delta, key);
    }
};

template <typename Base, typename T>
class StoreHistoryAnswer : public Base {
protected:
    using Base::readHistory;
    std::vector<T> readHistory(std::string_view key, Tag<T>) const override
    {
        return static_cast<const typename Base::Self&>(*this).template numbersOfHistory<T>(key);
    }
};

template <typename Base, typename T>
class StoreValueAnswer : public Base {
protected:
    using Base::readValue;
    T readValue(std::string_view key, Tag<T>) const override
    {
        return static_cast<const typename Base::Self&>(*this).template numberAs<T>(key);
    }
};

template <template <typename, typename> typename Slot, typename Base>
using StoreWriteChain = typename SlotChain<Slot, Base, long, short, int, long long, unsigned long, unsigned short,
                                           unsigned int, unsigned long long, float, double>::type;
template <typename T>
concept StoreWritable = Platform::OneOf<T, long, short, int, long long, unsigned long, unsigned short, unsigned int,
                                        unsigned long long, float, double>;

template <template <typename, typename> typename Slot, typename Base>
using StoreHistoryChain =
    typename SlotChain<Slot, Base, signed char, short, int, long long, unsigned char, unsigned short, unsigned int,
                       unsigned long long, float, Platform::CGFloat, double>::type;
template <typename T>
concept StoreHistoryReadable = Platform::OneOf<T, signed char, short, int, long long, unsigned char, unsigned short,
                                               unsigned int, unsigned long long, float, Platform::CGFloat, double>;

template <template <typename, typename> typename Slot, typename Base>
using StoreValueChain =
    typename SlotChain<Slot, Base, long, unsigned long, signed char, unsigned char, short, unsigned short, int,
                       unsigned int, long long, unsigned long long, float, double>::type;
template <typename T>
concept StoreReadable = Settable<T>;

}  // namespace Fennick::Slots
