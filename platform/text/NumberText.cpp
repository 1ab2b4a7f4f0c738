#include "platform/text/NumberText.h"

#include <list>

#include "platform/text/Locale.h"
#include "platform/text/internal/NumberFormatter.h"

namespace Platform {

namespace {

constexpr int mostFractionDigits = 999;
constexpr std::size_t mostFormatters = 32;

bool isInRange(const NumberStyle& style)
{
    return style.minimumFractionDigits >= 0 && style.maximumFractionDigits >= style.minimumFractionDigits &&
           style.maximumFractionDigits <= mostFractionDigits;
}

// The formatters of one thread for the current locale, the last used first.
class Formatters {
public:
    // Null when the style is out of range.
    const NumberFormatter* formatter(const NumberStyle& style)
    {
        if (generation_ != currentLocaleGeneration()) startAfresh();
        if (!kept_.empty() && kept_.front().style() == style) return &kept_.front();
        return isInRange(style) ? &broughtToFront(style) : nullptr;
    }

private:
    void startAfresh()
    {
        kept_.clear();
        generation_ = currentLocaleGeneration();
    }

    const NumberFormatter& broughtToFront(const NumberStyle& style)
    {
        for (auto each = kept_.begin(); each != kept_.end(); ++each) {
            if (!(each->style() == style)) continue;
            kept_.splice(kept_.begin(), kept_, each);
            return kept_.front();
        }
        if (kept_.size() == mostFormatters) kept_.pop_back();
        return kept_.emplace_front(currentLocaleName(), style);
    }

    std::optional<unsigned> generation_;
    std::list<NumberFormatter> kept_;
};

}  // namespace

std::optional<std::string> numberText(const Number& number, const NumberStyle& style)
{
    thread_local Formatters formatters;
    const NumberFormatter* const formatter = formatters.formatter(style);
    if (formatter == nullptr) return std::nullopt;
    return formatter->text(number);
}

}  // namespace Platform
