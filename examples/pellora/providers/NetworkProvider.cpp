#include "examples/pellora/providers/NetworkProvider.h"

#include <algorithm>

#include <unistd.h>

#include "examples/pellora/Texts.h"
#include "examples/pellora/providers/Scan.h"
#include "platform/runtime/Environment.h"

namespace Pellora {

namespace {

// A counter that starts again from zero (the interface was set up anew) counts as still.
std::uint64_t grown(std::uint64_t before, std::uint64_t now)
{
    return now > before ? now - before : 0;
}

}  // namespace

NetworkProvider::NetworkProvider() : file_(Platform::SystemRoots::shared().proc() + "/net/dev")
{
    traffic();
    if (interfaces_.empty()) return;
    in_ = addSize("network.in", text("NETWORK_IN"));
    out_ = addSize("network.out", text("NETWORK_OUT"));
}

std::optional<NetworkProvider::Traffic> NetworkProvider::trafficFrom(std::string_view columns)
{
    const auto received = takeNumber<std::uint64_t>(columns);
    for (int skipped = 0; skipped < 7; ++skipped) takeWord(columns);
    const auto sent = takeNumber<std::uint64_t>(columns);
    if (!received || !sent) return std::nullopt;
    return Traffic{*received, *sent};
}

NetworkProvider::Interface& NetworkProvider::interface(std::string_view name)
{
    const auto known = interfaces_.find(name);
    if (known != interfaces_.end()) return known->second;
    const std::string device = Platform::SystemRoots::shared().sys() + "/class/net/" + std::string(name) + "/device";
    Interface added;
    added.isDevice = access(device.c_str(), F_OK) == 0;
    return interfaces_.emplace(name, added).first->second;
}

NetworkProvider::Traffic NetworkProvider::traffic()
{
    Traffic ofDevices;
    Traffic ofAll;
    for (auto& [name, each] : interfaces_) each.isSeen = false;
    for (std::string_view content = file_.read(); !content.empty();) {
        std::string_view line = takeLine(content);
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos) continue;  // the two lines of headings
        std::string_view front = line.substr(0, colon);
        const std::string_view name = takeWord(front);
        const auto now = trafficFrom(line.substr(colon + 1));
        if (!now || name == "lo") continue;
        Interface& from = interface(name);
        from.isSeen = true;
        const Traffic before = from.last.value_or(*now);
        const Traffic moved{grown(before.received, now->received), grown(before.sent, now->sent)};
        from.last = now;
        ofAll = {ofAll.received + moved.received, ofAll.sent + moved.sent};
        if (from.isDevice) ofDevices = {ofDevices.received + moved.received, ofDevices.sent + moved.sent};
    }
    forgetVanished();
    const bool hasDevices = std::ranges::any_of(interfaces_, [](const auto& each) { return each.second.isDevice; });
    return hasDevices ? ofDevices : ofAll;
}

// An interface of the same name that comes later starts anew.
void NetworkProvider::forgetVanished()
{
    std::erase_if(interfaces_, [](const auto& each) { return !each.second.isSeen; });
}

void NetworkProvider::update(double elapsed)
{
    if (!in_) return;
    const Traffic moved = traffic();
    if (!(elapsed > 0)) return;  // the system's time stepped back
    in_->set(static_cast<std::uint64_t>(static_cast<double>(moved.received) / elapsed));
    out_->set(static_cast<std::uint64_t>(static_cast<double>(moved.sent) / elapsed));
}

}  // namespace Pellora
