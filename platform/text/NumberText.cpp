#include "platform/text/NumberText.h"

#include <list>

#include "platform/text/Locale.h"
#include "platform/text/internal/NumberFormatter.h"

namespace Platform {

namespace {

constexpr int mostFractionDigits = 999;
constexpr std::size_t mostFormatters = 32;

// The formatters of one thread for the current locale, the last used first.
class Formatters {
public:
    const NumberFormatter& formatter(const NumberStyle& style)
    {
        if (generation_ != currentLocaleGeneration()) startAfresh();
        if (!kept_.empty() && kept_.front().style() == style) return kept_.front();
        return broughtToFront(style);
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

bool isInRange(const NumberStyle& style)
{
    return style.minimumFractionDigits >= 0 && style.maximumFractionDigits >= style.minimumFractionDigits &&
           style.maximumFractionDigits <= mostFractionDigits;
}

}  // namespace

std::optional<std::string> numberText(const Number& number, const NumberStyle& style)
{
    thread_local Formatters formatters;
    if (!isInRange(style)) return std::nullopt;
    return formatters.formatter(style).text(number);
}

}  // namespace Platform
