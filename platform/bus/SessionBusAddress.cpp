#include "platform/bus/SessionBusAddress.h"

#include "platform/runtime/Environment.h"
#include "platform/runtime/Url.h"

namespace Platform {

namespace {

// "unix:path=/x,guid=0123;..." without each ",guid=0123".
std::string withoutIdentity(std::string address)
{
    const std::string key = "guid=";
    for (auto at = address.find(key); at != std::string::npos; at = address.find(key, at)) {
        const auto end = address.find_first_of(",;", at);
        const bool leadsOthers = end != std::string::npos && address[end] == ',';
        const auto from = leadsOthers || at == 0 || address[at - 1] != ',' ? at : at - 1;
        address.erase(from, end == std::string::npos ? end : end - from + (leadsOthers ? 1 : 0));
        at = from;
    }
    return address;
}

}  // namespace

std::optional<std::string> sessionBusAddress()
{
    const Environment& environment = Environment::shared();
    const auto told = environment.variable("DBUS_SESSION_BUS_ADDRESS");
    if (told && !told->empty()) return withoutIdentity(*told);

    const auto folder = environment.variable("XDG_RUNTIME_DIR");
    if (!folder || !folder->starts_with('/')) return std::nullopt;
    return "unix:path=" + percentEncoded(*folder + "/bus", "/-_.*");  // it may be made later
}

}  // namespace Platform
