#pragma once

#include <concepts>

#include "platform/runtime/Number.h"

namespace Fennick {

// Families of operations that have one virtual member for each numeric type are
// chains of classes: SlotChain<Slot, Base, A, B> is Slot<Slot<Base, A>, B>, so the
// members stand in the order of the list.
template <template <typename Base, typename T> typename Slot, typename Base, typename... Types>
struct SlotChain {
    using type = Base;
};

template <template <typename Base, typename T> typename Slot, typename Base, typename First, typename... Rest>
struct SlotChain<Slot, Base, First, Rest...> {
    using type = typename SlotChain<Slot, Slot<Base, First>, Rest...>::type;
};

// Starts a chain that overrides another one for a class.
template <typename Class, typename Base>
class SlotsOf : public Base {
protected:
    using Self = Class;
};

// The types that a value or an identifier is set from.
template <template <typename, typename> typename Slot, typename Base>
using SettableChain =
    typename SlotChain<Slot, Base, long, signed char, short, int, long long, unsigned long, unsigned char,
                       unsigned short, unsigned int, unsigned long long, float, double>::type;
template <typename T>
concept Settable = Platform::OneOf<T, long, signed char, short, int, long long, unsigned long, unsigned char,
                                   unsigned short, unsigned int, unsigned long long, float, double>;

}  // namespace Fennick
