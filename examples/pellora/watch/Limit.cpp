#include "examples/pellora/watch/Limit.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Pellora {

namespace {

// Takes the ending off the text and tells what it multiplies by.
double takeFactor(std::string_view& text)
{
    constexpr std::string_view endings = "KMGT";
    const std::size_t at = text.empty() ? std::string_view::npos : endings.find(text.back());
    if (at == std::string_view::npos) return 1;
    text.remove_suffix(1);
    return std::exp2(10 * static_cast<double>(at + 1));
}

}  // namespace

std::optional<Limit> limitFrom(std::string_view text)
{
    const std::size_t sign = text.find_first_of("<>");
    if (sign == std::string_view::npos || sign == 0) return std::nullopt;
    Limit limit{std::string(text.substr(0, sign)), text[sign] == '>' ? Limit::Side::above : Limit::Side::below};
    std::string_view number = text.substr(sign + 1);
    const double factor = takeFactor(number);
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), limit.value);
    if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(limit.value))
        return std::nullopt;
    limit.value *= factor;
    return limit;
}

std::string textOf(const Limit& limit)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), limit.value).ptr;
    return limit.key + (limit.side == Limit::Side::above ? ">" : "<") + std::string(digits.data(), end);
}

}  // namespace Pellora
