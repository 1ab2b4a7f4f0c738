#include "platform/text/internal/CurrentZone.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

#include "platform/runtime/Clock.h"
#include "platform/runtime/Environment.h"
#include "platform/text/Locale.h"

namespace Platform {

namespace {

using std::chrono::nanoseconds;

constexpr nanoseconds recheck = std::chrono::seconds(1);

// "/usr/share/zoneinfo/Europe/Berlin" is "Europe/Berlin".
std::string zoneOfPath(std::string_view path)
{
    constexpr std::string_view folder = "zoneinfo/";
    const std::size_t at = path.find(folder);
    return std::string(at == std::string_view::npos ? path : path.substr(at + folder.size()));
}

std::string systemZoneName()
{
    const std::filesystem::path etc = SystemRoots::shared().etc();
    std::error_code error;
    const auto target = std::filesystem::read_symlink(etc / "localtime", error);
    if (!error) return zoneOfPath(target.string());
    std::string name;
    std::getline(std::ifstream(etc / "timezone"), name);
    return name;
}

std::string zoneNameFrom(std::string value)
{
    if (value.starts_with(':')) value.erase(0, 1);
    return value.empty() ? "UTC" : zoneOfPath(value);
}

// A rule such as CET-1CEST,M3.5.0,M10.5.0 is no name: the library guesses its zone.
std::unique_ptr<icu::TimeZone> zoneNamed(const std::string& name)
{
    std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name)));
    if (*zone != icu::TimeZone::getUnknown()) return zone;
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::detectHostTimeZone());
}

struct Known {
    std::optional<unsigned> environment;
    bool isSystems = false;
    nanoseconds checked{};
    CurrentZone current;
};

void look(Known& known, unsigned environment)
{
    const auto variable = Environment::shared().variable("TZ");
    known.environment = environment;
    known.isSystems = !variable;
    known.checked = Clock::shared().monotonic();
    const std::string name = variable ? zoneNameFrom(*variable) : systemZoneName();
    if (known.current.zone && name == known.current.name) return;
    known.current = {zoneNamed(name), name, known.current.generation + 1};
}

}  // namespace

const CurrentZone& currentZone()
{
    thread_local Known known;
    const unsigned environment = currentLocaleGeneration();
    const bool isKnown =
        known.environment == environment && (!known.isSystems || Clock::shared().monotonic() - known.checked < recheck);
    if (!isKnown) look(known, environment);
    return known.current;
}

}  // namespace Platform
