#include "Fennick/datastore/StringIdentifier.h"

#include <utility>

namespace Fennick {

using Platform::Number;
using Lock = std::lock_guard<std::mutex>;

StringIdentifier::StringIdentifier(std::string identifier, std::string name, std::optional<std::string> text,
                                   Platform::ImageRef icon)
    : Identifier(Kind::string),
      mString_(std::move(text)),
      identifier_(std::move(identifier)),
      name_(std::move(name)),
      icon_(std::move(icon))
{
}

StringIdentifier::StringIdentifier(std::string identifier, std::string name, std::optional<std::string> text,
                                   std::optional<Number> number)
    : StringIdentifier(std::move(identifier), std::move(name), std::move(text))
{
    if (number) takeReading(*number);
}

void StringIdentifier::setString(std::optional<std::string> text)
{
    const Lock lock(mutex_);
    mString_.swap(text);
}

void StringIdentifier::setString(std::optional<std::string> text, const Number& number)
{
    const Lock lock(mutex_);
    mString_.swap(text);
    takeReading(number);
}

void StringIdentifier::takeReading(const Number& number)
{
    const double reading = number.doubleValue();
    mRawValue_ = number;
    history_.push(reading);
    if (!min_ || min_->doubleValue() > reading) min_ = reading;
    if (!max_ || max_->doubleValue() < reading) max_ = reading;
}

std::optional<Number> StringIdentifier::value() const
{
    const Lock lock(mutex_);
    return mRawValue_;
}

std::string StringIdentifier::description() const
{
    const Lock lock(mutex_);
    return mString_.value_or("-");
}

Platform::ImageRef StringIdentifier::icon() const
{
    const Lock lock(mutex_);
    return icon_;
}

void StringIdentifier::setIcon(Platform::ImageRef icon)
{
    const Lock lock(mutex_);
    icon_.swap(icon);
}

std::int64_t StringIdentifier::historySize() const
{
    const Lock lock(mutex_);
    return historySize_;
}

void StringIdentifier::setHistorySize(std::int64_t size)
{
    const Lock lock(mutex_);
    historySize_ = size;
    history_.fillWithZeros(size);
}

std::vector<Number> StringIdentifier::history() const
{
    const Lock lock(mutex_);
    return history_.numbers();
}

void StringIdentifier::setHistory(const std::vector<Number>& numbers)
{
    const Lock lock(mutex_);
    history_.assign(numbers);
}

std::optional<Number> StringIdentifier::min() const
{
    const Lock lock(mutex_);
    return min_;
}

std::optional<Number> StringIdentifier::max() const
{
    const Lock lock(mutex_);
    return max_;
}

}  // namespace Fennick
