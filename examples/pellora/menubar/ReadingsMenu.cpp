#include "examples/pellora/menubar/ReadingsMenu.h"

#include "examples/pellora/Texts.h"
#include "examples/pellora/table/Sparkline.h"
#include "platform/runtime/Application.h"

namespace Pellora {

namespace {

constexpr std::size_t graphWidth = 12;

std::string lineOf(const Fennick::IDataStore& readings, const std::string& key, const std::string& name)
{
    const std::string graph = graphOf(readings, key, graphWidth);  // in front, where all begin at one place
    return graph + (graph.empty() ? "" : "  ") + name + ": " + readings.stringFor(key);
}

}  // namespace

ReadingsMenu::ReadingsMenu(const Monitor& monitor, Lorrel::IAutoStartController& autoStart)
    : monitor_(monitor), autoStart_(autoStart)
{
}

std::shared_ptr<ReadingsMenu> ReadingsMenu::create(const Monitor& monitor, Lorrel::IAutoStartController& autoStart)
{
    std::shared_ptr<ReadingsMenu> created(new ReadingsMenu(monitor, autoStart));
    created->fill();
    return created;
}

void ReadingsMenu::fill()
{
    startAtLogin_ = Platform::MenuItem::create(text("START_AT_LOGIN"), &ReadingsMenu::toggleStartAtLogin);
    const auto quitItem = Platform::MenuItem::create(text("QUIT"), &ReadingsMenu::quit, "q");
    menu_->addItem(Platform::MenuItem::separator());
    for (const auto& item : {startAtLogin_, quitItem}) {
        item->setTarget(shared_from_this());
        menu_->addItem(item);
    }
    menu_->setDelegate(shared_from_this());
    update();
}

// A reading that comes later gets its line in its place.
void ReadingsMenu::update()
{
    std::size_t place = 0;
    for (const auto& key : monitor_.keys()) {
        const auto identifier = monitor_.readings()->identifierFor(key);
        if (!identifier) continue;
        auto& line = lines_[key];
        if (!line) {
            line = Platform::MenuItem::create("");  // nothing to choose, but menus draw what is disabled too pale
            menu_->insertItem(line, place);
        }
        line->setTitle(lineOf(*monitor_.readings(), key, identifier->name()));
        ++place;
    }
    startAtLogin_->setState(autoStart_.isEnabled() ? Platform::MenuItemState::on : Platform::MenuItemState::off);
}

void ReadingsMenu::readingsChanged()
{
    if (isOpen_ || lines_.empty()) update();
}

void ReadingsMenu::readingsReplaced()
{
    for (const auto& [key, line] : lines_) menu_->removeItem(line);
    lines_.clear();
    update();
}

void ReadingsMenu::menuNeedsUpdate(Platform::Menu& /*menu*/)
{
    update();
}

void ReadingsMenu::menuWillOpen(Platform::Menu& /*menu*/)
{
    isOpen_ = true;
}

void ReadingsMenu::menuDidClose(Platform::Menu& /*menu*/)
{
    isOpen_ = false;
}

// The tick tells what became of the wish.
void ReadingsMenu::toggleStartAtLogin()
{
    autoStart_.setEnabled(!autoStart_.isEnabled());
    update();
}

void ReadingsMenu::quit()
{
    Platform::Application::shared().terminate();
}

}  // namespace Pellora
