#include "Fennick/datastore/NumberIdentifier.h"

#include <mutex>
#include <utility>

namespace Fennick {

using Platform::Number;

NumberIdentifier::NumberIdentifier(std::string identifier, std::string name, Category category, bool isSigned,
                                   Decimals decimals, ImageRef icon)
    : Identifier(Kind::number),
      mValue_(category, isSigned, decimals),
      identifier_(std::move(identifier)),
      name_(std::move(name)),
      icon_(std::move(icon))
{
}

NumberIdentifier::NumberIdentifier(const std::string& identifier, ImageRef icon)
    : NumberIdentifier(identifier, identifier, std::move(icon))
{
}

NumberIdentifier::NumberIdentifier(std::string identifier, std::string name, ImageRef icon)
    : NumberIdentifier(std::move(identifier), std::move(name), Category::raw, std::move(icon))
{
}

NumberIdentifier::NumberIdentifier(std::string identifier, std::string name, Category category, ImageRef icon)
    : NumberIdentifier(std::move(identifier), std::move(name), category, true, std::nullopt, std::move(icon))
{
}

Platform::ImageRef NumberIdentifier::icon() const
{
    const std::lock_guard lock(historyLock_);
    return icon_;
}

void NumberIdentifier::setIcon(ImageRef icon)
{
    const std::lock_guard lock(historyLock_);
    icon_.swap(icon);
}

void NumberIdentifier::setHistorySize(std::int64_t size)
{
    const std::lock_guard lock(historyLock_);
    historySize_ = size;
    history_.fillWithZeros(size);
}

std::vector<Number> NumberIdentifier::history() const
{
    const std::lock_guard lock(historyLock_);
    return history_.numbers();
}

void NumberIdentifier::setHistory(const std::vector<Number>& numbers)
{
    const std::lock_guard lock(historyLock_);
    history_.assign(numbers);
}

void NumberIdentifier::replaceNumber(Number number)
{
    const double reading = number.doubleValue();
    const std::lock_guard lock(historyLock_);
    mValue_.replaceNumberAlone(number);
    history_.push(reading);
    updateExtremes(reading);
}

void NumberIdentifier::clearNumber()
{
    const std::lock_guard lock(historyLock_);
    mValue_.clearNumberAlone();
    history_.dropOldest();
}

void NumberIdentifier::updateExtremes(double number)
{
    if (!hasExtremes_ || lowest_ > number) min_.storeAlone(lowest_ = number);
    if (!hasExtremes_ || highest_ < number) max_.storeAlone(highest_ = number);
    hasExtremes_ = true;
}

}  // namespace Fennick
