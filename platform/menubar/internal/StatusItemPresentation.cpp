#include "platform/menubar/internal/StatusItemPresentation.h"

#include <errno.h>

#include "platform/runtime/RunLoop.h"

namespace Platform {

namespace {

constexpr const char* path = "/StatusNotifierItem";
constexpr const char* interface = "org.kde.StatusNotifierItem";
constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
// A menu that the host opens is on its way by then.
constexpr double openingPatience = 0.25;
// A host may be stopped for long and accept the item when it goes on; nobody waits meanwhile.
constexpr std::chrono::hours watcherPatience(24);

const char* statusText(bool isVisible)
{
    return isVisible ? "Active" : "Passive";
}

void appendToolTip(sd_bus_message* message, const ItemSnapshot& snapshot)
{
    const std::string text = busText(snapshot.toolTip.empty() ? snapshot.title : snapshot.toolTip);
    sd_bus_message_append(message, "(sa(iiay)ss)", "", 0, text.c_str(), "");
}

}  // namespace

std::shared_ptr<StatusItemPresentation> StatusItemPresentation::create(StatusItem& item)
{
    const std::shared_ptr<StatusItemPresentation> self(new StatusItemPresentation(item));
    // The menu may outlive us inside a call of its own that ends the item.
    self->menu_ = MenuExport::create(self->connection_, [weak = std::weak_ptr(self)] {
        const auto present = weak.lock();
        return present && present->isShown_;
    });
    RunLoop::main().post([weak = std::weak_ptr(self)] {
        if (const auto present = weak.lock()) present->start();
    });
    return self;
}

StatusItemPresentation::StatusItemPresentation(StatusItem& item)
    : item_(&item),
      connection_(BusConnection::create(RunLoop::main())),
      object_(describe()),
      gate_([this] { return publish(); })
{
}

BusObject StatusItemPresentation::describe()
{
    using Message = sd_bus_message*;
    const auto text = [this](auto field) {
        return [this, field](Message message) {
            sd_bus_message_append_basic(message, 's', busText(std::string(field(snapshot()))).c_str());
        };
    };
    const auto at = [this](void (StatusItem::*operation)()) {
        return [this, operation](Message, Message) { later([operation](StatusItem& item) { (item.*operation)(); }); };
    };
    return BusObject(
        interface,
        {textProperty("Category", "ApplicationStatus"),
         textProperty("Id", program_invocation_short_name),
         {"Title", "s", text([](const auto& now) { return now.title; })},
         {"Status", "s", text([](const auto& now) { return statusText(now.isVisible); })},
         numberProperty("WindowId", 0),
         textProperty("IconName", ""),
         {"IconPixmap", "a(iiay)", [this](Message message) { appendPixmap(message, snapshot().icon); }},
         {"IconAccessibleDesc", "s", text([](const auto& now) { return now.accessibilityText; })},
         {"ToolTip", "(sa(iiay)ss)", [this](Message message) { appendToolTip(message, snapshot()); }},
         {"ItemIsMenu", "b", [this](Message message) { sd_bus_message_append(message, "b", snapshot().isMenu); }},
         {"Menu", "o", [](Message message) { sd_bus_message_append(message, "o", MenuExport::path); }}},
        {{"Activate", {"i", "i"}, {}, at(&StatusItem::click)},
         {"ContextMenu", {"i", "i"}, {}, [](Message, Message) {}},
         {"SecondaryActivate", {"i", "i"}, {}, at(&StatusItem::middleClick)},
         {"Scroll", {"i", "s"}, {}, [this](Message call, Message) {
              int delta = 0;
              const char* orientation = "";
              sd_bus_message_read(call, "is", &delta, &orientation);
              const bool isHorizontal = orientation[0] == 'h' || orientation[0] == 'H';
              later([delta, isHorizontal](StatusItem& item) { item.scroll(delta, isHorizontal); });
          }}});
}

void StatusItemPresentation::start()
{
    if (!item_) return;
    const auto guarded = [weak = weak_from_this()](auto operation) {
        return [weak, operation](auto... arguments) {
            if (const auto self = weak.lock(); self && self->item_) (self.get()->*operation)(std::move(arguments)...);
        };
    };
    menu_->setMenu(item_->menu());
    subscriptions_.push_back(connection_->exportObject(path, [weak = weak_from_this()](const BusMessage& call) {
        const auto self = weak.lock();
        return self && self->item_ ? self->object_.answer(call) : BusMessage();
    }));
    subscriptions_.push_back(connection_->onJoined(guarded(&StatusItemPresentation::announce)));
    subscriptions_.push_back(connection_->onLost(guarded(&StatusItemPresentation::lost)));
    subscriptions_.push_back(connection_->onDrained(guarded(&StatusItemPresentation::drained)));
    subscriptions_.push_back(connection_->onSignal("org.freedesktop.DBus", "NameOwnerChanged",
                                                   guarded(&StatusItemPresentation::watcherChanged)));
    subscriptions_.push_back(
        connection_->matchRuleSoon("type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
                                   "member='NameOwnerChanged',arg0='org.kde.StatusNotifierWatcher'"));
}

void StatusItemPresentation::end()
{
    item_ = nullptr;
    lost();
    if (opening_) opening_->invalidate();
    subscriptions_.clear();
    menu_ = nullptr;
    connection_ = nullptr;
}

void StatusItemPresentation::announce()
{
    BusMessage call = connection_->newCall(watcher, watcherPath, watcher, "RegisterStatusNotifierItem");
    if (!call || !call.append(path)) return;
    sd_bus_message_set_auto_start(call.get(), false);
    connection_->call(call, watcherPatience, [weak = weak_from_this()](const Result<BusMessage>& reply) {
        const auto self = weak.lock();
        if (!self || !self->item_ || !reply) return;
        self->isShown_ = true;
        self->itemChanged();  // it may have changed since the host looked
        self->menu_->shown();
    });
}

void StatusItemPresentation::watcherChanged(BusMessage message)
{
    const auto name = message.readText(), former = message.readText(), present = message.readText();
    if (name != watcher || !present) return;
    lost();
    if (!present->empty()) announce();
}

// Nobody shows the item any longer: a bus that is joined again may have no watcher.
void StatusItemPresentation::lost()
{
    isShown_ = false;
    if (menu_) menu_->hidden();
}

void StatusItemPresentation::drained()
{
    gate_.request();
    menu_->publishSoon();
}

void StatusItemPresentation::itemChanged()
{
    if (isDrawing_) return;
    isCurrent_ = false;
    if (isShown_) gate_.request();
}

void StatusItemPresentation::menuChanged()
{
    if (menu_) menu_->setMenu(item_->menu());
}

void StatusItemPresentation::openMenu(std::function<void()> otherwise)
{
    const bool isAsked = isShown_ && item_->isVisible();
    if (isAsked) menu_->askToOpen();
    if (opening_) opening_->invalidate();
    opening_ =
        Timer::scheduled(isAsked ? openingPatience : 0, false, [this, isAsked, otherwise = std::move(otherwise)] {
            const auto block = otherwise;  // it may ask again
            if (block && !(isAsked && menu_->isOpening())) block();
        });
}

const ItemSnapshot& StatusItemPresentation::snapshot()
{
    if (!snapshot_ || !isCurrent_) {
        isDrawing_ = true;
        snapshot_ = snapshotOf(*item_);
        isDrawing_ = false;
        isCurrent_ = true;
    }
    return *snapshot_;
}

bool StatusItemPresentation::publish()
{
    const bool hasBeenRead = snapshot_.has_value();  // who has not looked yet will see what is new then
    if (!item_ || !isShown_ || !hasBeenRead || isCurrent_ || connection_->isBacklogged()) return false;
    const ItemSnapshot former = *snapshot_;
    const ItemSnapshot& present = snapshot();
    if (former == present) return false;
    emitChanges(former, present);
    return true;
}

void StatusItemPresentation::emitChanges(const ItemSnapshot& former, const ItemSnapshot& present)
{
    if (former.title != present.title) emitSignal("NewTitle");
    if (!(former.icon == present.icon) || former.accessibilityText != present.accessibilityText) emitSignal("NewIcon");
    if (former.toolTip != present.toolTip || former.title != present.title) emitSignal("NewToolTip");
    if (former.isVisible != present.isVisible) emitSignal("NewStatus", statusText(present.isVisible));
    if (former.isMenu != present.isMenu) emitSignal("NewMenu");
}

void StatusItemPresentation::emitSignal(const char* member, const char* text)
{
    BusMessage signal = connection_->newSignal(path, interface, member);
    if (signal && text) signal.append(text);
    connection_->send(signal);
}

void StatusItemPresentation::later(std::function<void(StatusItem&)> work)
{
    RunLoop::main().post([weak = item_->weak_from_this(), work = std::move(work)] {
        if (const auto item = weak.lock()) work(*item);
    });
}

}  // namespace Platform
