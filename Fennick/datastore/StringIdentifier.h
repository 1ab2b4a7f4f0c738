#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Fennick/datastore/Identifier.h"
#include "Fennick/datastore/NumberHistory.h"

namespace Fennick {

// A text under a key, with an optional number behind it that has a history and
// extremes. Thread: any.
class StringIdentifier : public Identifier, public HistoryProvider, public MinValueProvider, public MaxValueProvider {
public:
    StringIdentifier(std::string identifier, std::string name, std::optional<std::string> text,
                     Platform::ImageRef icon = nullptr);
    // A number that is present is the first entry of history and extremes.
    StringIdentifier(std::string identifier, std::string name, std::optional<std::string> text,
                     std::optional<Platform::Number> number);

    // The text alone; or with its number, which is appended to the history and moves the extremes.
    void setString(std::optional<std::string> text);
    void setString(std::optional<std::string> text, const Platform::Number& number);

    std::string identifier() const override { return identifier_; }
    std::string name() const override { return name_; }
    std::optional<Platform::Number> value() const override;
    // "-" without a text.
    std::string description() const override;
    Platform::ImageRef icon() const override;
    void setIcon(Platform::ImageRef icon);

    std::int64_t historySize() const override;
    void setHistorySize(std::int64_t size) override;
    std::vector<Platform::Number> history() const override;
    void setHistory(const std::vector<Platform::Number>& numbers);

    std::optional<Platform::Number> min() const override;
    std::optional<Platform::Number> max() const override;

private:
    void takeReading(const Platform::Number& number);

    mutable std::mutex mutex_;  // of everything that changes
    std::optional<std::string> mString_;
    std::optional<Platform::Number> mRawValue_;
    const std::string identifier_;
    const std::string name_;
    std::int64_t historySize_ = defaultHistorySize;
    NumberHistory history_{defaultHistorySize};
    Platform::ImageRef icon_;
    std::optional<Platform::Number> max_;
    std::optional<Platform::Number> min_;
};

}  // namespace Fennick
