#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace Platform {

// An allocator that leaves what a growing vector adds uninitialised, for
// buffers that are written right after they grow.
template <typename T>
struct UninitializedAllocator : std::allocator<T> {
    template <typename U>
    struct rebind {
        using other = UninitializedAllocator<U>;
    };

    template <typename U>
    void construct(U* place)
    {
        ::new (static_cast<void*>(place)) U;
    }
    template <typename U, typename... Arguments>
    void construct(U* place, Arguments&&... arguments)
    {
        std::construct_at(place, std::forward<Arguments>(arguments)...);
    }
};

// A byte buffer that owns its bytes. resize() adds bytes of no defined value.
using Data = std::vector<std::uint8_t, UninitializedAllocator<std::uint8_t>>;

// Bytes that somebody else owns; operations take their input so.
using DataView = std::span<const std::uint8_t>;

// The bytes of a text, as long as the text lives.
inline DataView bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace Platform
