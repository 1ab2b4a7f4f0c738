#pragma once

#include <optional>
#include <string>

#include "Fennick/datastore/NumberSlots.h"
#include "platform/runtime/Number.h"

namespace Fennick {

namespace Slots {

class ValueProviderBase {
public:
    virtual ~ValueProviderBase() = default;

    // The text to show.
    virtual std::string description() const = 0;
    // The current number; absent when there is none.
    virtual std::optional<Platform::Number> value() const = 0;

protected:
    void assign() {}  // what the first slot's using-declaration finds
};

template <typename Base, typename T>
class SetSlot : public Base {
protected:
    using Base::assign;
    virtual void assign(T value) = 0;
    virtual void assign(std::optional<T> value) = 0;
};

// Answers a pair of set slots by the class's replaceNumber(Number) and clearNumber().
// The number goes in registers: one that is assembled in memory and read back at
// once as a whole would cost more than all else that setting does.
template <typename Base, typename T>
class BoxingSetSlot : public Base {
protected:
    using Base::assign;
    void assign(T value) override { self().replaceNumber(Platform::Number(value)); }
    void assign(std::optional<T> value) override
    {
        if (value) return self().replaceNumber(Platform::Number(*value));
        self().clearNumber();
    }

private:
    typename Base::Self& self() { return static_cast<typename Base::Self&>(*this); }
};

}  // namespace Slots

// Something that has a number, can be set from any numeric type, and has a text.
class IValueProvider : public SettableChain<Slots::SetSlot, Slots::ValueProviderBase> {
public:
    // Takes exactly the listed types, and calls the member of that type.
    template <Settable T>
    void set(T value)
    {
        this->assign(value);
    }
    // An absent value clears the number.
    template <Settable T>
    void set(std::optional<T> value)
    {
        this->assign(value);
    }
};

// For the classes that implement it.
template <typename Class>
using BoxingValueProvider = SettableChain<Slots::BoxingSetSlot, SlotsOf<Class, IValueProvider>>;

}  // namespace Fennick
