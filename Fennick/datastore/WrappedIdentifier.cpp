#include "Fennick/datastore/WrappedIdentifier.h"

#include <utility>

#include "platform/runtime/FatalError.h"

namespace Fennick {

namespace {

using Lock = std::lock_guard<std::mutex>;
constexpr const char* source = "Fennick/WrappedIdentifier";

}  // namespace

WrappedIdentifier::WrappedIdentifier(std::string identifier, std::string name, std::string wrappedIdentifier,
                                     Platform::ImageRef icon)
    : Identifier(Kind::wrapped),
      wrappedIdentifier_(std::move(wrappedIdentifier)),
      identifier_(std::move(identifier)),
      name_(std::move(name)),
      icon_(std::move(icon))
{
}

std::string WrappedIdentifier::identifier() const
{
    const Lock lock(mutex_);
    return identifier_;
}

void WrappedIdentifier::setIdentifier(std::string identifier)
{
    const Lock lock(mutex_);
    identifier_ = std::move(identifier);
}

std::string WrappedIdentifier::name() const
{
    const Lock lock(mutex_);
    return name_;
}

void WrappedIdentifier::setName(std::string name)
{
    const Lock lock(mutex_);
    name_ = std::move(name);
}

Platform::ImageRef WrappedIdentifier::icon() const
{
    const Lock lock(mutex_);
    return icon_;
}

void WrappedIdentifier::setIcon(Platform::ImageRef icon)
{
    const Lock lock(mutex_);
    icon_.swap(icon);
}

std::string WrappedIdentifier::wrappedIdentifier() const
{
    const Lock lock(mutex_);
    return wrappedIdentifier_;
}

void WrappedIdentifier::setWrappedIdentifier(std::string identifier)
{
    const Lock lock(mutex_);
    wrappedIdentifier_ = std::move(identifier);
}

std::optional<Platform::Number> WrappedIdentifier::value() const
{
    Platform::fatalError("Use IDataStore to get value of wrapped identifier.", source);
}

std::string WrappedIdentifier::description() const
{
    Platform::fatalError("Use IDataStore to get string of wrapped identifier.", source);
}

}  // namespace Fennick
