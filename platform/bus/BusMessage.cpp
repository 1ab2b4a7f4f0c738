#include "platform/bus/BusMessage.h"

namespace Platform {

namespace {

std::string textOrEmpty(const char* text)
{
    return text ? text : "";
}

}  // namespace

bool BusMessage::append(const std::string& text)
{
    if (text.find('\0') != std::string::npos) return false;
    return sd_bus_message_append_basic(message_, SD_BUS_TYPE_STRING, text.c_str()) >= 0;
}

std::optional<std::string> BusMessage::readText()
{
    const char* text = nullptr;
    if (sd_bus_message_read_basic(message_, SD_BUS_TYPE_STRING, &text) <= 0) return std::nullopt;
    return std::string(text);
}

std::string BusMessage::path() const
{
    return textOrEmpty(sd_bus_message_get_path(message_));
}
std::string BusMessage::interface() const
{
    return textOrEmpty(sd_bus_message_get_interface(message_));
}
std::string BusMessage::member() const
{
    return textOrEmpty(sd_bus_message_get_member(message_));
}
std::string BusMessage::sender() const
{
    return textOrEmpty(sd_bus_message_get_sender(message_));
}

}  // namespace Platform
