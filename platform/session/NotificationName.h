#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace Platform {

// What a notification is called; never made from text by accident. A value.
class NotificationName {
public:
    NotificationName() = default;
    explicit NotificationName(std::string_view text) : text_(text) {}

    const std::string& text() const { return text_; }

    friend auto operator<=>(const NotificationName&, const NotificationName&) = default;

private:
    std::string text_;
};

}  // namespace Platform
