#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ui/views/ViewController.h"

namespace Platform {

// The controllers that storyboards may name, by class name. Thread: main.
class ControllerClasses {
public:
    using Factory = std::function<std::shared_ptr<Controller>()>;

    static ControllerClasses& shared();
    // The later of two registrations counts.
    void add(const std::string& className, Factory factory) { factories_[className] = std::move(factory); }
    template <typename T>
    void add(const std::string& className)
    {
        add(className, [] { return std::make_shared<T>(); });
    }
    // Null for a name that nobody registered.
    std::shared_ptr<Controller> make(const std::string& className) const;

private:
    std::map<std::string, Factory, std::less<>> factories_;
};

// A named list of controllers, kept in the resources of the main bundle as the
// text file NAME.storyboard: a line "identifier: ClassName" for each, and
// "initial: identifier" for the one to begin with. Lines that begin with "#",
// and those without a colon, say nothing.
class Storyboard {
public:
    // Absent, with a line in the log, when the bundle has no such file.
    static std::optional<Storyboard> named(std::string_view name);
    static Storyboard parse(std::string_view text);

    // A new one at each call; null when there is none of that identifier, or its class is not registered.
    std::shared_ptr<Controller> initialController() const;
    std::shared_ptr<Controller> controller(std::string_view identifier) const;

private:
    std::string initial_;
    std::map<std::string, std::string, std::less<>> classNames_;
};

}  // namespace Platform
