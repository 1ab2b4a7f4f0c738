#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace Platform {

// What the world refused: the failing call, its subject and the system's code.
struct Error {
    std::string call;     // "open", "sd_bus_call"
    std::string subject;  // what it was asked of: a path, a name
    int code = 0;         // errno value, or the library's own; 0 when there is none
    std::string reason;   // the system's words

    // "open /x/y: No such file or directory"
    std::string message() const;

    static Error fromErrno(std::string_view call, std::string_view subject, int code);
};

// A value or the error that took its place. No exception crosses a port.
template <typename T>
class [[nodiscard]] Result {
public:
    Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}

    bool isSuccess() const { return content_.index() == 0; }
    explicit operator bool() const { return isSuccess(); }

    T& value() & { return std::get<0>(content_); }
    const T& value() const& { return std::get<0>(content_); }
    T&& value() && { return std::get<0>(std::move(content_)); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }
    T& operator*() & { return value(); }
    const T& operator*() const& { return value(); }
    const Error& error() const { return std::get<1>(content_); }

private:
    std::variant<T, Error> content_;
};

template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Error error) : error_(std::move(error)) {}

    bool isSuccess() const { return !error_; }
    explicit operator bool() const { return isSuccess(); }
    const Error& error() const { return *error_; }

private:
    std::optional<Error> error_;
};

}  // namespace Platform
