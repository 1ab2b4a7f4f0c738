#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime/Image.h"
#include "platform/runtime/Number.h"

namespace Fennick {

// One named reading under a key. Held by std::shared_ptr and compared by identity.
class Identifier {
public:
    // Which of the store's own classes an identifier is, told without a cast.
    enum class Kind : std::uint8_t { number, string, wrapped, other };

    virtual ~Identifier() = default;

    Kind kind() const { return kind_; }

    // The text to show.
    virtual std::string description() const = 0;

    // The key under which a store keeps it.
    virtual std::string identifier() const = 0;
    virtual std::string name() const = 0;
    virtual std::optional<Platform::Number> value() const = 0;
    // Null when there is none.
    virtual Platform::ImageRef icon() const = 0;

protected:
    explicit Identifier(Kind kind = Kind::other) : kind_(kind) {}

private:
    const Kind kind_;
};

// Something that remembers its recent numbers, oldest first.
class HistoryProvider {
public:
    virtual ~HistoryProvider() = default;

    virtual std::int64_t historySize() const = 0;
    // Replaces the history by so many zeros; a negative size counts as 0.
    virtual void setHistorySize(std::int64_t size) = 0;
    virtual std::vector<Platform::Number> history() const = 0;
};

// The smallest and the largest number so far; absent before the first.
class MinValueProvider {
public:
    virtual ~MinValueProvider() = default;
    virtual std::optional<Platform::Number> min() const = 0;
};

class MaxValueProvider {
public:
    virtual ~MaxValueProvider() = default;
    virtual std::optional<Platform::Number> max() const = 0;
};

// The length of a history unless somebody sets another.
constexpr std::int64_t defaultHistorySize = 60;

}  // namespace Fennick
