#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/text/NumberText.h"
#include "platform/text/internal/PlainNumberText.h"

namespace Platform {

// A formatter of one style and locale. Thread: one at a time.
class NumberFormatter {
public:
    NumberFormatter(const std::string& localeName, const NumberStyle& style);
    ~NumberFormatter();

    const NumberStyle& style() const { return style_; }

    // By plain arithmetic where that is certain, else by the library.
    std::optional<std::string> text(const Number& number) const;
    // Always by the library.
    std::optional<std::string> libraryText(const Number& number) const;

private:
    struct Library;

    std::optional<NumberSymbols> readSymbols() const;
    std::optional<ScaledNumber> arithmeticValue(const Number& number) const;

    NumberStyle style_;
    std::unique_ptr<Library> library_;
    std::optional<NumberSymbols> symbols_;  // absent: the library writes everything
};

}  // namespace Platform
