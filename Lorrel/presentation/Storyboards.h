#pragma once

#include <memory>
#include <string_view>

#include "platform/ui/views/Storyboard.h"

namespace Lorrel {

// A new controller from a storyboard of the main bundle: the initial one, or
// the one with the identifier. Null when there is none, or it is of another
// type than the wanted one. Thread: main.
template <typename Wanted = Platform::ViewController>
std::shared_ptr<Wanted> instantiateInitialController(std::string_view storyboard)
{
    const auto found = Platform::Storyboard::named(storyboard);
    return found ? std::dynamic_pointer_cast<Wanted>(found->initialController()) : nullptr;
}

template <typename Wanted = Platform::ViewController>
std::shared_ptr<Wanted> instantiateController(std::string_view storyboard, std::string_view identifier)
{
    const auto found = Platform::Storyboard::named(storyboard);
    return found ? std::dynamic_pointer_cast<Wanted>(found->controller(identifier)) : nullptr;
}

}  // namespace Lorrel
