#include "Fennick/datastore/Value.h"

#include <algorithm>
#include <utility>

#include "Fennick/datastore/NumberTexts.h"
#include "platform/text/NumberText.h"

namespace Fennick {

std::string Value::description() const
{
    const std::optional<Platform::Number> number = rawValue_.load();
    if (!number) return "-";
    switch (category_) {
        case IdentifierCategory::raw:
            return decimals_ ? fixedDecimalsText(*decimals_, number->doubleValue()) : wholeText(*number);
        case IdentifierCategory::size:
            return byteCountText(number->uint64Value());
        case IdentifierCategory::percentage:
            return decimals_ ? percentageText(*number) : wholeText(*number) + " %";
    }
    return "-";
}

std::string Value::wholeText(const Platform::Number& number) const
{
    return isSigned_ ? std::to_string(number.int64Value()) : std::to_string(number.uint64Value());
}

std::string Value::percentageText(const Platform::Number& number) const
{
    const auto digits = static_cast<std::int16_t>(std::clamp<std::int64_t>(*decimals_, 0, 1000));
    auto text = Platform::numberText(number.doubleValue(), {.maximumFractionDigits = digits});
    return text ? std::move(*text) + " %" : "-";
}

}  // namespace Fennick
