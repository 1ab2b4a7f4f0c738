#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Fennick/datastore/IValueProvider.h"
#include "Fennick/datastore/Identifier.h"
#include "Fennick/datastore/NumberHistory.h"
#include "Fennick/datastore/Value.h"
#include "platform/runtime/Semaphore.h"

namespace Fennick {

template <typename T>
concept DecimalsArgument = (std::integral<T> && !std::same_as<T, bool>) || std::same_as<T, std::nullopt_t> ||
                           std::same_as<T, std::optional<std::int64_t>>;

// A number under a key, with its recent history and its extremes.
//
// A number set is also appended to the history, whose oldest entry it pushes
// out, and moves the extremes. Setting an absent number shortens the history by
// its oldest entry. The history starts as 60 zeros.
//
// Thread: any. A reading is not atomic as a whole: a reader may see the number
// before the history that holds it.
class NumberIdentifier : public Identifier,
                         public BoxingValueProvider<NumberIdentifier>,
                         public HistoryProvider,
                         public MinValueProvider,
                         public MaxValueProvider {
public:
    using Category = IdentifierCategory;
    using Decimals = std::optional<std::int64_t>;
    using ImageRef = Platform::ImageRef;

    // The name is the key, the category raw, signed and without decimals, where not given.
    NumberIdentifier(std::string identifier, std::string name, Category category, bool isSigned, Decimals decimals,
                     ImageRef icon = nullptr);
    explicit NumberIdentifier(const std::string& identifier, ImageRef icon = nullptr);
    NumberIdentifier(std::string identifier, std::string name, ImageRef icon = nullptr);
    NumberIdentifier(std::string identifier, std::string name, Category category, ImageRef icon = nullptr);
    template <std::same_as<bool> Signed>
    NumberIdentifier(std::string identifier, std::string name, Category category, Signed isSigned,
                     ImageRef icon = nullptr)
        : NumberIdentifier(std::move(identifier), std::move(name), category, isSigned, std::nullopt, std::move(icon))
    {
    }
    template <DecimalsArgument Count>
    NumberIdentifier(std::string identifier, std::string name, Count decimals, ImageRef icon = nullptr)
        : NumberIdentifier(std::move(identifier), std::move(name), Category::raw, true, Decimals(decimals),
                           std::move(icon))
    {
    }
    template <DecimalsArgument Count>
    NumberIdentifier(std::string identifier, std::string name, Category category, Count decimals,
                     ImageRef icon = nullptr)
        : NumberIdentifier(std::move(identifier), std::move(name), category, true, Decimals(decimals), std::move(icon))
    {
    }

    std::string identifier() const override { return identifier_; }
    std::string name() const override { return name_; }
    std::optional<Platform::Number> value() const override { return mValue_.value(); }
    std::string description() const override { return mValue_.description(); }
    ImageRef icon() const override;
    void setIcon(ImageRef icon);

    std::int64_t historySize() const override { return historySize_; }
    void setHistorySize(std::int64_t size) override;
    std::vector<Platform::Number> history() const override;
    void setHistory(const std::vector<Platform::Number>& numbers);

    std::optional<Platform::Number> min() const override { return min_.load(); }
    std::optional<Platform::Number> max() const override { return max_.load(); }

private:
    template <typename, typename>
    friend class Slots::BoxingSetSlot;
    void replaceNumber(Platform::Number number);
    void clearNumber();
    void updateExtremes(double number);

    // What setting a number touches stands together.
    mutable Platform::Semaphore historyLock_{1};  // also lets in one writer at a time, and guards icon_
    Value mValue_;
    double lowest_ = 0;  // the extremes again, for the writer
    double highest_ = 0;
    bool hasExtremes_ = false;
    AtomicNumber max_;
    AtomicNumber min_;
    NumberHistory history_{defaultHistorySize};
    std::atomic<std::int64_t> historySize_ = defaultHistorySize;
    const std::string identifier_;
    const std::string name_;
    ImageRef icon_;
};

}  // namespace Fennick
