#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Fennick/datastore/Identifier.h"

namespace Fennick {

// An alias: under its own key it stands for the identifier under another one.
// A store answers for that one; to ask an alias itself for its value or its text
// is a programming error and ends the process. Thread: any.
class WrappedIdentifier : public Identifier {
public:
    WrappedIdentifier(std::string identifier, std::string name, std::string wrappedIdentifier,
                      Platform::ImageRef icon = nullptr);

    std::string identifier() const override;
    void setIdentifier(std::string identifier);
    std::string name() const override;
    void setName(std::string name);
    Platform::ImageRef icon() const override;
    void setIcon(Platform::ImageRef icon);

    // The key of the identifier that this one stands for.
    std::string wrappedIdentifier() const;
    void setWrappedIdentifier(std::string identifier);
    // The result of `block(std::string_view)` for that key, which it gets without
    // a copy; the block must not use this object.
    template <typename Block>
    auto readWrappedIdentifier(const Block& block) const
    {
        const std::lock_guard lock(mutex_);
        return block(std::string_view(wrappedIdentifier_));
    }

    [[noreturn]] std::optional<Platform::Number> value() const override;
    [[noreturn]] std::string description() const override;

private:
    mutable std::mutex mutex_;
    std::string wrappedIdentifier_;
    std::string identifier_;
    std::string name_;
    Platform::ImageRef icon_;
};

}  // namespace Fennick
