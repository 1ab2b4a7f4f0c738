#include "Fennick/DecimalFormatter.h"

#include <algorithm>

#include "platform/text/NumberText.h"

namespace Fennick {

namespace {

std::string plain(const Platform::Number& number, const Platform::NumberStyle& style)
{
    return Platform::numberText(number, style).value_or("");
}

}  // namespace

std::string DecimalFormatter::text(const Platform::Number& number, int maximumFractionDigits)
{
    constexpr int most = 1'000;  // refused below like all beyond it
    Platform::NumberStyle style;
    style.maximumFractionDigits = static_cast<std::int16_t>(std::clamp(maximumFractionDigits, 0, most));
    return Platform::numberText(number, style).value_or("-");
}

std::string groupedText(std::int64_t number)
{
    Platform::NumberStyle style;
    style.isGrouped = true;
    return plain(static_cast<long>(number), style);
}

// What stands between the two digits of 1.5.
std::string decimalSeparator()
{
    const std::string before = plain(1, {});
    const std::string after = plain(5, {});
    const std::string both = plain(1.5, {.minimumFractionDigits = 1, .maximumFractionDigits = 1});
    if (both.size() <= before.size() + after.size()) return ".";
    return both.substr(before.size(), both.size() - before.size() - after.size());
}

}  // namespace Fennick
