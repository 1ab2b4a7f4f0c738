#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "platform/runtime/Number.h"

namespace Fennick {

// An optional number that is read and replaced whole: readers never wait for a
// lock and never see half of a change. Thread: load(), store()
// and clear() any.
class AtomicNumber {
public:
    AtomicNumber() = default;
    AtomicNumber(const AtomicNumber&) = delete;
    AtomicNumber& operator=(const AtomicNumber&) = delete;

    std::optional<Platform::Number> load() const
    {
        while (true) {
            const std::uint64_t before = header_.load(std::memory_order_acquire);
            const std::uint64_t bits = bits_.load(std::memory_order_acquire);
            if (before & isChanging || header_.load(std::memory_order_relaxed) != before) continue;
            const auto tag = static_cast<std::uint8_t>(before);
            if (tag == absent) return std::nullopt;
            return Platform::Number::fromBits(static_cast<Platform::Number::Kind>(tag), bits);
        }
    }

    void store(Platform::Number number) { replace(tagOf(number), number.bits()); }
    void clear() { replace(absent, 0); }

    // For a writer that knows that it is the only one just now.
    void storeAlone(Platform::Number number) { replaceAlone(tagOf(number), number.bits()); }
    void clearAlone() { replaceAlone(absent, 0); }

private:
    // The header counts the changes, above a bit for one in progress and the number's kind.
    static constexpr std::uint64_t absent = 0xFF;
    static constexpr std::uint64_t isChanging = 0x100;
    static constexpr std::uint64_t oneChange = 0x200;

    static std::uint64_t tagOf(Platform::Number number) { return static_cast<std::uint64_t>(number.kind()); }

    void replace(std::uint64_t tag, std::uint64_t bits)
    {
        std::uint64_t before = header_.load(std::memory_order_relaxed);
        do {
            before &= ~isChanging;  // fails while another one is changing it
        } while (!header_.compare_exchange_weak(before, before | isChanging, std::memory_order_acquire));
        finish(before, tag, bits);
    }

    void replaceAlone(std::uint64_t tag, std::uint64_t bits)
    {
        const std::uint64_t before = header_.load(std::memory_order_relaxed);
        header_.store(before | isChanging, std::memory_order_relaxed);
        finish(before, tag, bits);
    }

    void finish(std::uint64_t before, std::uint64_t tag, std::uint64_t bits)
    {
        // Released after the mark, so whoever reads these bits finds the header changed.
        bits_.store(bits, std::memory_order_release);
        header_.store(((before & ~absent) + oneChange) | tag, std::memory_order_release);
    }

    std::atomic<std::uint64_t> header_{absent};
    std::atomic<std::uint64_t> bits_{0};
};

}  // namespace Fennick
