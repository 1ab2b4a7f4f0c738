#include "platform/ui/internal/PortalAppearance.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <array>
#include <map>
#include <mutex>
#include <optional>

#include <systemd/sd-bus.h>

#include "platform/bus/BusConnection.h"

namespace Platform {
namespace {

constexpr const char* daemon = "org.freedesktop.DBus";
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
    void ask();
    void changed(BusMessage message);
    void ownerChanged(BusMessage message);
    void take(const std::string& key, sd_bus_message* value);
    template <typename Value>
    void set(Value& field, const Value& value);
    template <typename Value>
    Value get(const Value& field) const
    {
        const std::lock_guard lock(mutex);
        return field;
    }
    void tell();

    mutable std::mutex mutex;  // of the two values, which any thread may ask for
    std::uint32_t scheme = 0;
    std::optional<Color> accent;
    std::map<int, std::function<void()>> observers;
    int nextObserver = 0;
    std::weak_ptr<State> own;
    std::shared_ptr<BusConnection> bus;
    std::vector<Subscription> subscriptions;
};

void PortalAppearance::State::start(const std::weak_ptr<State>& self)
{
    own = self;
    bus = BusConnection::session();
    const auto guarded = [self](auto operation) {
        return [self, operation](auto... arguments) {
            if (const auto state = self.lock()) (state.get()->*operation)(std::move(arguments)...);
        };
    };
    subscriptions.push_back(bus->onSignal(interface, "SettingChanged", guarded(&State::changed)));
    subscriptions.push_back(bus->onSignal(daemon, "NameOwnerChanged", guarded(&State::ownerChanged)));
    subscriptions.push_back(bus->onJoined(guarded(&State::ask)));
    subscriptions.push_back(
        bus->matchRuleSoon("type='signal',interface='org.freedesktop.portal.Settings',"
                           "member='SettingChanged',arg0='org.freedesktop.appearance'"));
    subscriptions.push_back(
        bus->matchRuleSoon("type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                           "member='NameOwnerChanged',arg0='org.freedesktop.portal.Desktop'"));
    ask();  // others may have joined the bus long ago
}

void PortalAppearance::State::ask()
{
    for (const char* key : {schemeKey, accentKey}) {
        BusMessage call = bus->newCall(service, path, interface, "Read");
        if (!call || !call.append(group) || !call.append(key)) return;
        bus->call(call, patience, [self = own, key](Result<BusMessage> reply) {
            const auto state = self.lock();
            if (state && reply) state->take(key, reply->get());
        });
    }
}

// A portal that starts later, or again.
void PortalAppearance::State::ownerChanged(BusMessage message)
{
    const auto name = message.readText(), former = message.readText(), present = message.readText();
    if (name == service && present && !present->empty()) ask();
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
        std::uint32_t present = 0;
        sd_bus_message_read_basic(value, 'u', &present);
        set(scheme, present);
    } else if (key == accentKey && type == 'r') {
        const bool isRead = sd_bus_message_read(value, "(ddd)", &parts[0], &parts[1], &parts[2]) > 0;
        const bool isColor = isRead && std::ranges::all_of(parts, [](double part) { return part >= 0 && part <= 1; });
        set(accent, isColor ? std::optional(Color::calibratedRGB(parts[0], parts[1], parts[2])) : std::nullopt);
    }
}

template <typename Value>
void PortalAppearance::State::set(Value& field, const Value& value)
{
    if (get(field) == value) return;
    {
        const std::lock_guard lock(mutex);
        field = value;
    }
    tell();
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
    const std::uint32_t scheme = state_->get(state_->scheme);
    const bool isDark = scheme == prefersDark || (scheme != prefersLight && isPaletteDark);
    return Appearance(isDark ? Appearance::darkAqua : Appearance::aqua);
}

Color PortalAppearance::accentColor() const
{
    const auto accent = state_->get(state_->accent);
    return accent ? *accent : DesktopAppearance::accentColor();
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
