#include "platform/menubar/internal/BusObject.h"

#include <algorithm>
#include <numeric>

#include "platform/runtime/Utf8.h"

namespace Platform {

namespace {

constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* introspectionInterface = "org.freedesktop.DBus.Introspectable";

BusMessage newAnswer(const BusMessage& call)
{
    sd_bus_message* answer = nullptr;
    sd_bus_message_new_method_return(call.get(), &answer);
    return BusMessage(answer);
}

BusMessage newError(const BusMessage& call, const char* name, const std::string& reason)
{
    sd_bus_message* answer = nullptr;
    sd_bus_message_new_method_errorf(call.get(), &answer, name, "%s", reason.c_str());
    return BusMessage(answer);
}

std::string joined(const std::vector<std::string>& types)
{
    return std::accumulate(types.begin(), types.end(), std::string());
}

std::string argumentsText(const std::vector<std::string>& types, const char* direction)
{
    std::string text;
    for (const auto& type : types) text += "<arg type='" + type + "' direction='" + direction + "'/>";
    return text;
}

}  // namespace

BusObject::BusObject(std::string interface, std::vector<Property> properties, std::vector<Method> methods)
    : interface_(std::move(interface)), properties_(std::move(properties)), methods_(std::move(methods))
{
}

BusMessage BusObject::answer(const BusMessage& call) const
{
    const std::string interface = call.interface(), member = call.member();
    if (interface == propertiesInterface && member == "Get") return answerGet(call);
    if (interface == propertiesInterface && member == "GetAll") return answerGetAll(call);
    if (interface == introspectionInterface && member == "Introspect") {
        BusMessage text = newAnswer(call);
        if (text) text.append(introspection());
        return text;
    }
    const auto method = std::ranges::find(methods_, member, &Method::name);
    if (method == methods_.end() || (!interface.empty() && interface != interface_)) {
        return newError(call, SD_BUS_ERROR_UNKNOWN_METHOD, "no such method: " + member);
    }
    if (sd_bus_message_has_signature(call.get(), joined(method->inTypes).c_str()) <= 0) {
        return newError(call, SD_BUS_ERROR_INVALID_ARGS, "arguments are not those of " + member);
    }
    BusMessage result = newAnswer(call);
    if (result) method->run(call.get(), result.get());
    return result;
}

BusMessage BusObject::answerGet(const BusMessage& call) const
{
    const char *interface = nullptr, *name = nullptr;
    if (sd_bus_message_read(call.get(), "ss", &interface, &name) < 0) {
        return newError(call, SD_BUS_ERROR_INVALID_ARGS, "an interface and a property are wanted");
    }
    const auto property = std::ranges::find(properties_, std::string_view(name), &Property::name);
    if (interface != interface_ || property == properties_.end()) {
        return newError(call, SD_BUS_ERROR_UNKNOWN_PROPERTY, std::string("no such property: ") + name);
    }
    BusMessage value = newAnswer(call);
    if (value) appendVariant(value.get(), *property);
    return value;
}

BusMessage BusObject::answerGetAll(const BusMessage& call) const
{
    BusMessage all = newAnswer(call);
    if (all) appendDictionary(all.get(), properties_);
    return all;
}

std::string BusObject::introspection() const
{
    std::string text = "<node><interface name='" + interface_ + "'>";
    for (const Property& property : properties_) {
        text += "<property name='" + property.name + "' type='" + property.type + "' access='read'/>";
    }
    for (const Method& method : methods_) {
        text += "<method name='" + method.name + "'>" + argumentsText(method.inTypes, "in") +
                argumentsText(method.outTypes, "out") + "</method>";
    }
    return text + "</interface></node>";
}

std::string busText(const std::string& text)
{
    return repairedUtf8(text.substr(0, text.find('\0')));
}

void appendVariant(sd_bus_message* message, const BusObject::Property& property)
{
    sd_bus_message_open_container(message, 'v', property.type.c_str());
    property.append(message);
    sd_bus_message_close_container(message);
}

void appendDictionary(sd_bus_message* message, const std::vector<BusObject::Property>& properties)
{
    sd_bus_message_open_container(message, 'a', "{sv}");
    for (const BusObject::Property& property : properties) {
        sd_bus_message_open_container(message, 'e', "sv");
        sd_bus_message_append_basic(message, 's', property.name.c_str());
        appendVariant(message, property);
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

BusObject::Property textProperty(std::string name, const std::string& text)
{
    return {std::move(name), "s", [text = busText(text)](sd_bus_message* message) {
                sd_bus_message_append_basic(message, 's', text.c_str());
            }};
}

BusObject::Property truthProperty(std::string name, bool value)
{
    return {std::move(name), "b", [value](sd_bus_message* message) { sd_bus_message_append(message, "b", value); }};
}

BusObject::Property numberProperty(std::string name, int value)
{
    return {std::move(name), "i", [value](sd_bus_message* message) { sd_bus_message_append(message, "i", value); }};
}

}  // namespace Platform
