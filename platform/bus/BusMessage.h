#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <systemd/sd-bus.h>

namespace Platform {

// Owns one reference to a bus message. Copies share the message.
class BusMessage {
public:
    BusMessage() = default;
    // Takes over the caller's reference.
    explicit BusMessage(sd_bus_message* owned) : message_(owned) {}
    static BusMessage sharing(sd_bus_message* message) { return BusMessage(sd_bus_message_ref(message)); }

    BusMessage(const BusMessage& other) : message_(sd_bus_message_ref(other.message_)) {}
    BusMessage(BusMessage&& other) noexcept : message_(std::exchange(other.message_, nullptr)) {}
    BusMessage& operator=(BusMessage other) noexcept
    {
        std::swap(message_, other.message_);
        return *this;
    }
    ~BusMessage() { sd_bus_message_unref(message_); }

    // For the library's own append and read calls.
    sd_bus_message* get() const { return message_; }
    explicit operator bool() const { return message_ != nullptr; }

    // False when the bus cannot carry the text: broken UTF-8, or a zero byte.
    bool append(const std::string& text);
    // The next argument; absent when it is no text, or there is none.
    std::optional<std::string> readText();
    // From its first argument again.
    void rewind() { sd_bus_message_rewind(message_, true); }

    // Empty texts where the message has no such field.
    std::string path() const;
    std::string interface() const;
    std::string member() const;
    std::string sender() const;

private:
    sd_bus_message* message_ = nullptr;
};

struct BusSlotDeleter {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
// A callback that the library keeps, ended with its owner.
using BusSlot = std::unique_ptr<sd_bus_slot, BusSlotDeleter>;

}  // namespace Platform
