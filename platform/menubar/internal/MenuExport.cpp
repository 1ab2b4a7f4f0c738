#include "platform/menubar/internal/MenuExport.h"

#include "platform/menubar/internal/MenuItemProperties.h"
#include "platform/runtime/RunLoop.h"

namespace Platform {

namespace {

constexpr const char* interface = "com.canonical.dbusmenu";
constexpr const char* layoutType = "ia{sv}av";

}  // namespace

std::shared_ptr<MenuExport> MenuExport::create(std::shared_ptr<BusConnection> connection, std::function<bool()> isShown)
{
    const std::shared_ptr<MenuExport> self(new MenuExport(std::move(connection), std::move(isShown)));
    self->exported_ = self->connection_->exportObject(path, [weak = std::weak_ptr(self)](const BusMessage& call) {
        const auto present = weak.lock();
        return present ? present->object_.answer(call) : BusMessage();
    });
    return self;
}

MenuExport::MenuExport(std::shared_ptr<BusConnection> connection, std::function<bool()> isShown)
    : connection_(std::move(connection)),
      isShown_(std::move(isShown)),
      gate_([this] { return publish(); }),
      object_(describe())
{
}

void MenuExport::setMenu(const MenuRef& menu)
{
    if (menu != menu_) hidden();
    menu_ = menu;
    menuObserver_ = menu ? menu->observe([this](MenuItem* item) { changed(item); }) : Subscription();
    changed(nullptr);
}

void MenuExport::shown()
{
    if (isMissed_) changed(nullptr);
}

void MenuExport::hidden()
{
    const auto left = std::exchange(open_, {});
    for (auto each = left.rbegin(); each != left.rend(); ++each) {
        if (const MenuRef menu = each->lock()) RunLoop::main().post([menu] { menu->closed(); });
    }
}

// Without a time of its own: this is no answer to an event of the host's.
void MenuExport::askToOpen()
{
    isOpening_ = false;
    const BusMessage signal = connection_->newSignal(path, interface, "ItemActivationRequested");
    if (signal) sd_bus_message_append(signal.get(), "iu", 0, 0U);
    connection_->send(signal);
}

void MenuExport::changed(MenuItem* item)
{
    if (isDrawing_) return;
    if (!item) {
        isLayoutChanged_ = true;
    } else if (const auto known = numbers_.find(item->weak_from_this()); known != numbers_.end()) {
        changedItems_.insert(known->second);
    }
    gate_.request();
}

bool MenuExport::publish()
{
    if (connection_->isBacklogged()) return false;
    const auto self = shared_from_this();
    const bool isLayout = std::exchange(isLayoutChanged_, false);
    if (isLayout) ++revision_;
    const bool isSomething = isLayout || !changedItems_.empty();
    if (isSomething) isMissed_ = isRead_ && !isShown_();
    if (isShown_() && isLayout) publishLayout();
    if (isShown_() && !isLayout && isSomething) publishItems();
    changedItems_.clear();
    return isSomething;
}

void MenuExport::publishLayout()
{
    const BusMessage signal = connection_->newSignal(path, interface, "LayoutUpdated");
    if (signal) sd_bus_message_append(signal.get(), "ui", revision_, 0);
    connection_->send(signal);
}

// The properties that are there, then the names of those that are not.
void MenuExport::publishItems()
{
    const BusMessage signal = connection_->newSignal(path, interface, "ItemsPropertiesUpdated");
    if (!signal) return;
    std::map<int, Names> missing;
    sd_bus_message_open_container(signal.get(), 'a', "(ia{sv})");
    for (const int number : changedItems_) {
        Names names(menuPropertyNames().begin(), menuPropertyNames().end());
        const auto present = properties(number, {});
        for (const auto& property : present) names.erase(property.name);
        missing[number] = names;
        sd_bus_message_open_container(signal.get(), 'r', "ia{sv}");
        sd_bus_message_append(signal.get(), "i", number);
        appendDictionary(signal.get(), present);
        sd_bus_message_close_container(signal.get());
    }
    sd_bus_message_close_container(signal.get());
    sd_bus_message_open_container(signal.get(), 'a', "(ias)");
    for (const auto& [number, names] : missing) {
        sd_bus_message_open_container(signal.get(), 'r', "ias");
        sd_bus_message_append(signal.get(), "i", number);
        sd_bus_message_open_container(signal.get(), 'a', "s");
        for (const auto& name : names) sd_bus_message_append_basic(signal.get(), 's', name.c_str());
        sd_bus_message_close_container(signal.get());
        sd_bus_message_close_container(signal.get());
    }
    sd_bus_message_close_container(signal.get());
    connection_->send(signal);
}

int MenuExport::numberOf(const MenuItemRef& item)
{
    const auto [place, isNew] = numbers_.emplace(item, lastNumber_ + 1);
    if (isNew) items_[++lastNumber_] = item;
    return place->second;
}

MenuItemRef MenuExport::itemOf(int number) const
{
    const auto found = items_.find(number);
    return found == items_.end() ? nullptr : found->second.lock();
}

MenuRef MenuExport::menuOf(int number) const
{
    if (number == 0) return menu_;
    const MenuItemRef item = itemOf(number);
    return item ? item->submenu() : nullptr;
}

std::vector<BusObject::Property> MenuExport::properties(int number, const Names& names)
{
    std::vector<BusObject::Property> all;
    isDrawing_ = true;
    if (const MenuItemRef item = itemOf(number)) all = propertiesOf(*item);
    isDrawing_ = false;
    if (number == 0) all.push_back(textProperty("children-display", "submenu"));
    if (!names.empty()) std::erase_if(all, [&](const auto& property) { return !names.contains(property.name); });
    return all;
}

void MenuExport::appendLayout(sd_bus_message* answer, int number, int depth, const Names& names)
{
    sd_bus_message_open_container(answer, 'r', layoutType);
    sd_bus_message_append(answer, "i", number);
    appendDictionary(answer, properties(number, names));
    sd_bus_message_open_container(answer, 'a', "v");
    const MenuRef menu = depth > 0 ? menuOf(number) : nullptr;
    for (const MenuItemRef& item : menu ? menu->items() : std::vector<MenuItemRef>()) {
        sd_bus_message_open_container(answer, 'v', "(ia{sv}av)");
        appendLayout(answer, numberOf(item), depth - 1, names);
        sd_bus_message_close_container(answer);
    }
    sd_bus_message_close_container(answer);
    sd_bus_message_close_container(answer);
}

bool MenuExport::takeEvent(int number, std::string_view kind)
{
    const MenuRef menu = menuOf(number);
    const MenuItemRef item = itemOf(number);
    if (!menu && !item) return false;
    // Later, so that who asked has its answer before our program's work begins.
    if (item && kind == "clicked") RunLoop::main().post([item] { item->performAction(); });
    if (item && kind == "hovered" && item->menu()) item->menu()->highlight(item);
    if (menu && kind == "opened") opened(menu);
    if (menu && kind == "closed") closed(menu);
    return true;
}

void MenuExport::opened(const MenuRef& menu)
{
    if (menu == menu_) isOpening_ = true;
    std::erase_if(open_, [&](const auto& each) { return each.lock() == menu; });
    open_.push_back(menu);
    RunLoop::main().post([menu] { menu->opened(); });
}

// What lies below a menu closes with it, and a second time is none.
void MenuExport::closed(const MenuRef& menu)
{
    if (menu == menu_) return hidden();
    const auto isIt = [&](const auto& each) { return each.lock() == menu; };
    if (std::erase_if(open_, isIt) > 0) RunLoop::main().post([menu] { menu->closed(); });
}

// Whether the reader's layout is old.
bool MenuExport::aboutToShow(int number)
{
    const auto self = shared_from_this();
    if (number == 0) isOpening_ = true;
    if (const MenuRef menu = menuOf(number)) menu->needsUpdate();
    const bool isOld = isLayoutChanged_ || !changedItems_.empty();
    if (isOld) publish();
    return isOld;
}

}  // namespace Platform
