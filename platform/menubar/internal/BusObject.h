#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/bus/BusMessage.h"

namespace Platform {

// Answers the calls to one exported object with one interface: its methods,
// the standard properties interface and introspection. A call that nobody
// declared, or whose arguments are not as declared, gets the standard error.
class BusObject {
public:
    struct Property {
        std::string name;
        std::string type;
        std::function<void(sd_bus_message*)> append;
    };
    struct Method {
        std::string name;
        std::vector<std::string> inTypes;
        std::vector<std::string> outTypes;
        // Reads the call's arguments and appends the answer's.
        std::function<void(sd_bus_message* call, sd_bus_message* answer)> run;
    };

    BusObject(std::string interface, std::vector<Property> properties, std::vector<Method> methods);

    // Empty only when memory is short.
    BusMessage answer(const BusMessage& call) const;

private:
    BusMessage answerGet(const BusMessage& call) const;
    BusMessage answerGetAll(const BusMessage& call) const;
    std::string introspection() const;

    std::string interface_;
    std::vector<Property> properties_;
    std::vector<Method> methods_;
};

// What the bus can carry of a text: broken UTF-8 repaired, up to the first zero byte.
std::string busText(const std::string& text);
// The property's value as a variant.
void appendVariant(sd_bus_message* message, const BusObject::Property& property);
// All of them as a dictionary of variants.
void appendDictionary(sd_bus_message* message, const std::vector<BusObject::Property>& properties);
// Properties of the basic types.
BusObject::Property textProperty(std::string name, const std::string& text);
BusObject::Property truthProperty(std::string name, bool value);
BusObject::Property numberProperty(std::string name, int value);

}  // namespace Platform
