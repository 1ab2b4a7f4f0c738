// The calls of com.canonical.dbusmenu: what they read and what they answer.
#include "platform/menubar/internal/MenuExport.h"

namespace Platform {

namespace {

constexpr int deepestMenu = 16;

std::vector<int> readNumbers(sd_bus_message* message)
{
    std::vector<int> numbers;
    if (sd_bus_message_enter_container(message, 'a', "i") < 0) return numbers;
    for (int number = 0; sd_bus_message_read(message, "i", &number) > 0;) numbers.push_back(number);
    sd_bus_message_exit_container(message);
    return numbers;
}

std::set<std::string> readNames(sd_bus_message* message)
{
    std::set<std::string> names;
    if (sd_bus_message_enter_container(message, 'a', "s") < 0) return names;
    for (const char* name = nullptr; sd_bus_message_read(message, "s", &name) > 0;) names.insert(name);
    sd_bus_message_exit_container(message);
    return names;
}

void appendNumbers(sd_bus_message* message, const std::vector<int>& numbers)
{
    sd_bus_message_append_array(message, 'i', numbers.data(), numbers.size() * sizeof(int));
}

struct MenuEvent {
    int number = 0;
    const char* kind = "";
};

// Without its data and its time. False at the end.
bool readEvent(sd_bus_message* message, MenuEvent& event)
{
    return sd_bus_message_read(message, "is", &event.number, &event.kind) > 0 &&
           sd_bus_message_skip(message, "vu") >= 0;
}

}  // namespace

BusObject MenuExport::describe()
{
    const auto call = [this](void (MenuExport::*operation)(sd_bus_message*, sd_bus_message*)) {
        return [this, operation](sd_bus_message* from, sd_bus_message* to) { (this->*operation)(from, to); };
    };
    return BusObject(
        "com.canonical.dbusmenu",
        {{"Version", "u", [](sd_bus_message* message) { sd_bus_message_append(message, "u", 3); }},
         textProperty("TextDirection", "ltr"),
         textProperty("Status", "normal"),
         {"IconThemePath", "as", [](sd_bus_message* message) { sd_bus_message_append(message, "as", 0); }}},
        {{"GetLayout", {"i", "i", "as"}, {"u", "(ia{sv}av)"}, call(&MenuExport::getLayout)},
         {"GetGroupProperties", {"ai", "as"}, {"a(ia{sv})"}, call(&MenuExport::getGroupProperties)},
         {"GetProperty", {"i", "s"}, {"v"}, call(&MenuExport::getProperty)},
         {"Event", {"i", "s", "v", "u"}, {}, [this](sd_bus_message* from, sd_bus_message*) { event(from); }},
         {"EventGroup", {"a(isvu)"}, {"ai"}, call(&MenuExport::eventGroup)},
         {"AboutToShow",
          {"i"},
          {"b"},
          [this](sd_bus_message* from, sd_bus_message* to) {
              int number = 0;
              sd_bus_message_read(from, "i", &number);
              sd_bus_message_append(to, "b", aboutToShow(number));
          }},
         {"AboutToShowGroup", {"ai"}, {"ai", "ai"}, call(&MenuExport::aboutToShowGroup)}});
}

void MenuExport::getLayout(sd_bus_message* call, sd_bus_message* answer)
{
    int number = 0, depth = 0;
    sd_bus_message_read(call, "ii", &number, &depth);
    const Names names = readNames(call);
    isRead_ = true;
    std::erase_if(numbers_, [](const auto& entry) { return entry.first.expired(); });
    std::erase_if(items_, [](const auto& entry) { return entry.second.expired(); });
    const int levels = depth < 0 || depth > deepestMenu ? deepestMenu : depth;
    sd_bus_message_append(answer, "u", revision_);
    appendLayout(answer, number, levels, names);
}

// No numbers stand for all of them.
void MenuExport::getGroupProperties(sd_bus_message* call, sd_bus_message* answer)
{
    std::vector<int> numbers = readNumbers(call);
    const Names names = readNames(call);
    if (numbers.empty()) {
        for (const auto& [number, item] : items_) numbers.push_back(number);
    }
    sd_bus_message_open_container(answer, 'a', "(ia{sv})");
    for (const int number : numbers) {
        if (number != 0 && !itemOf(number)) continue;
        sd_bus_message_open_container(answer, 'r', "ia{sv}");
        sd_bus_message_append(answer, "i", number);
        appendDictionary(answer, properties(number, names));
        sd_bus_message_close_container(answer);
    }
    sd_bus_message_close_container(answer);
}

void MenuExport::getProperty(sd_bus_message* call, sd_bus_message* answer)
{
    int number = 0;
    const char* name = nullptr;
    sd_bus_message_read(call, "is", &number, &name);
    const auto found = properties(number, {name});
    appendVariant(answer, found.empty() ? textProperty(name, "") : found.front());
}

void MenuExport::event(sd_bus_message* call)
{
    MenuEvent event;
    if (readEvent(call, event)) takeEvent(event.number, event.kind);
}

// Answers the numbers that nobody has.
void MenuExport::eventGroup(sd_bus_message* call, sd_bus_message* answer)
{
    std::vector<int> unknown;
    sd_bus_message_enter_container(call, 'a', "(isvu)");
    while (sd_bus_message_enter_container(call, 'r', "isvu") > 0) {
        MenuEvent event;
        if (readEvent(call, event) && !takeEvent(event.number, event.kind)) unknown.push_back(event.number);
        sd_bus_message_exit_container(call);
    }
    appendNumbers(answer, unknown);
}

void MenuExport::aboutToShowGroup(sd_bus_message* call, sd_bus_message* answer)
{
    std::vector<int> old, unknown;
    for (const int number : readNumbers(call)) {
        if (!menuOf(number) && !itemOf(number)) {
            unknown.push_back(number);
        } else if (aboutToShow(number)) {
            old.push_back(number);
        }
    }
    appendNumbers(answer, old);
    appendNumbers(answer, unknown);
}

}  // namespace Platform
