#include "platform/ui/internal/PortalAppearance.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include <systemd/sd-bus.h>

#include "platform/bus/BusConnection.h"

namespace Platform {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* group = "org.freedesktop.appearance";
constexpr const char* schemeKey = "color-scheme";
constexpr const char* accentKey = "accent-color";
constexpr std::uint32_t prefersDark = 1;
constexpr std::uint32_t prefersLight = 2;
constexpr std::chrono::seconds patience{2};

// The innermost content of variants within variants.
char enterVariants(sd_bus_message* message)
{
    char type = 0;
    const char* content = nullptr;
    while (sd_bus_message_peek_type(message, &type, &content) > 0 && type == 'v') {
        if (sd_bus_message_enter_container(message, 'v', content) <= 0) return 0;
    }
    return type;
}

}  // namespace

struct PortalAppearance::State {
    void start(const std::weak_ptr<State>& self);
    void ask(const std::weak_ptr<State>& self, const char* key);
    void changed(BusMessage message);
    void take(const std::string& key, sd_bus_message* value);
    void tell();

    std::uint32_t scheme = 0;
    std::optional<Color> accent;
    std::map<int, std::function<void()>> observers;
    int nextObserver = 0;
    std::shared_ptr<BusConnection> bus;
    std::vector<Subscription> subscriptions;
};

void PortalAppearance::State::start(const std::weak_ptr<State>& self)
{
    bus = BusConnection::session();
    if (!bus->join()) return;
    subscriptions.push_back(
        bus->matchRule("type='signal',interface='org.freedesktop.portal.Settings',"
                       "member='SettingChanged',arg0='org.freedesktop.appearance'"));
    subscriptions.push_back(bus->onSignal(interface, "SettingChanged", [self](BusMessage message) {
        if (const auto state = self.lock()) state->changed(std::move(message));
    }));
    for (const char* key : {schemeKey, accentKey}) ask(self, key);
}

void PortalAppearance::State::ask(const std::weak_ptr<State>& self, const char* key)
{
    BusMessage call = bus->newCall(service, path, interface, "Read");
    if (!call || !call.append(group) || !call.append(key)) return;
    bus->call(call, patience, [self, key](Result<BusMessage> reply) {
        const auto state = self.lock();
        if (state && reply) state->take(key, reply->get());
    });
}

void PortalAppearance::State::changed(BusMessage message)
{
    const auto changedGroup = message.readText();
    const auto key = message.readText();
    if (changedGroup == group && key) take(*key, message.get());
}

// A colour of three parts from 0 to 1; parts outside mean "none".
void PortalAppearance::State::take(const std::string& key, sd_bus_message* value)
{
    const char type = enterVariants(value);
    std::array<double, 3> parts{};
    if (key == schemeKey && type == 'u') {
        sd_bus_message_read_basic(value, 'u', &scheme);
        tell();
    } else if (key == accentKey && type == 'r') {
        const bool isRead = sd_bus_message_read(value, "(ddd)", &parts[0], &parts[1], &parts[2]) > 0;
        const bool isColor = isRead && std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; });
        accent = isColor ? std::optional(Color::calibratedRGB(parts[0], parts[1], parts[2])) : std::nullopt;
        tell();
    }
}

// An observer may end itself and others.
void PortalAppearance::State::tell()
{
    for (const auto& [number, observer] : std::map(observers)) {
        if (observers.contains(number)) observer();
    }
}

PortalAppearance::PortalAppearance() : state_(std::make_shared<State>())
{
    state_->start(state_);
}

PortalAppearance::~PortalAppearance() = default;

Appearance PortalAppearance::appearance() const
{
    const bool isPaletteDark = qobject_cast<QGuiApplication*>(QCoreApplication::instance()) &&
                               QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
    const bool isDark = state_->scheme == prefersDark || (state_->scheme != prefersLight && isPaletteDark);
    return Appearance(isDark ? Appearance::darkAqua : Appearance::aqua);
}

Color PortalAppearance::accentColor() const
{
    return state_->accent ? *state_->accent : DesktopAppearance::accentColor();
}

Subscription PortalAppearance::observe(std::function<void()> observer)
{
    const int number = state_->nextObserver++;
    state_->observers[number] = std::move(observer);
    return Subscription([weak = std::weak_ptr(state_), number] {
        if (const auto state = weak.lock()) state->observers.erase(number);
    });
}

}  // namespace Platform
