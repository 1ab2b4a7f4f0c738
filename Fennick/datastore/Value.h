#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Fennick/datastore/AtomicNumber.h"
#include "Fennick/datastore/IValueProvider.h"
#include "Fennick/datastore/IdentifierCategory.h"

namespace Fennick {

// An optional number with what decides how it is shown. Shared by reference.
// Thread: any; a reader sees the old or the new number.
class Value final : public BoxingValueProvider<Value> {
public:
    // Without decimals the number is shown as an integer, by its signed or its
    // unsigned reading.
    Value(IdentifierCategory category, bool isSigned, std::optional<std::int64_t> decimals)
        : category_(category), isSigned_(isSigned), decimals_(decimals)
    {
    }

    std::optional<Platform::Number> value() const override { return rawValue_.load(); }
    std::optional<Platform::Number> rawValue() const { return rawValue_.load(); }
    IdentifierCategory category() const { return category_; }
    std::optional<std::int64_t> decimals() const { return decimals_; }
    bool isSigned() const { return isSigned_; }

    // "-" while there is no number. A raw number with decimals is cut to them, a
    // percentage rounded half to even to at most so many; both follow the locale.
    std::string description() const override;

    // For an owner that lets in one writer at a time.
    void replaceNumberAlone(Platform::Number number) { rawValue_.storeAlone(number); }
    void clearNumberAlone() { rawValue_.clearAlone(); }

private:
    template <typename, typename>
    friend class Slots::BoxingSetSlot;
    void replaceNumber(Platform::Number number) { rawValue_.store(number); }
    void clearNumber() { rawValue_.clear(); }

    std::string wholeText(const Platform::Number& number) const;
    std::string percentageText(const Platform::Number& number) const;

    AtomicNumber rawValue_;
    const IdentifierCategory category_;
    const bool isSigned_;
    const std::optional<std::int64_t> decimals_;
};

}  // namespace Fennick
