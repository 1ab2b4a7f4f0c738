#include "platform/menubar/internal/MenuWindow.h"

#include <QCursor>
#include <QLabel>
#include <QPointer>
#include <QWidgetAction>
#include <utility>

#include "platform/menubar/internal/MenuItemProperties.h"
#include "platform/runtime/RunLoop.h"
#include "platform/ui/Image.h"

namespace Platform {

namespace {

// An ampersand marks a key to press; two of them are one to read. What follows
// a tab stands in the column of the shortcuts.
QString textOf(const MenuItem& item)
{
    if (item.view()) return {};
    QString text = QString::fromStdString(item.title()).replace('&', "&&").replace('\t', ' ');
    const std::string key = shortcutKeyName(item.keyEquivalent());
    if (!key.empty()) text += '\t' + QString::fromStdString(shortcutPrefix(item.keyEquivalentModifierMask()) + key);
    return text;
}

QPixmap pixmapOf(const MenuItem& item)
{
    const auto picture = pictureOf(item);
    if (!picture) return {};
    const QImage pixels(reinterpret_cast<const uchar*>(picture->pixels()), picture->width(), picture->height(),
                        static_cast<qsizetype>(picture->bytesPerRow()), QImage::Format_ARGB32_Premultiplied);
    return QPixmap::fromImage(pixels.copy());
}

// Shows a view in its own size, which an icon would not have; the menu gets what the pointer does on it.
QAction* newViewLine(QWidget* window)
{
    auto* line = new QWidgetAction(window);
    auto* label = new QLabel;
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    line->setDefaultWidget(label);
    return line;
}

}  // namespace

bool MenuWindow::open(const MenuRef& menu)
{
    static QPointer<MenuWindow> present;
    if (present) present->close();
    menu->needsUpdate();
    present = new MenuWindow(menu);
    if (present->isEmpty()) {
        delete present;
        return false;
    }
    present->popup(QCursor::pos());
    return true;
}

MenuWindow::MenuWindow(MenuRef menu, QWidget* parent) : QMenu(parent), menu_(std::move(menu))
{
    fill();
    changes_ = menu_->observe([this](MenuItem* item) { item ? refresh(item) : fill(); });
    connect(this, &QMenu::aboutToShow, this, [this] { willShow(); });
    connect(this, &QMenu::aboutToHide, this, [this] { hasHidden(); });
}

MenuWindow::Key MenuWindow::keyOf(const MenuItem& item)
{
    return {&item, item.submenu().get(), item.view() != nullptr};
}

// Lines that stay keep their windows and the highlight, and are never all
// gone: the menu also tells when a list below it has changed, as many do while
// they open.
void MenuWindow::fill()
{
    std::set<Key> present;
    qsizetype place = 0;
    for (const MenuItemRef& item : menu_->items()) {
        present.insert(keyOf(*item));
        QAction*& line = lines_[keyOf(*item)];
        if (!line) line = newLine(item);
        QAction* there = actions().value(place++);
        if (there != line) insertAction(there, line);
    }
    std::erase_if(lines_, [&](const auto& entry) {
        const bool isGone = !present.contains(entry.first);
        if (isGone) delete entry.second;
        return isGone;
    });
}

QAction* MenuWindow::newLine(const MenuItemRef& item)
{
    QAction* line = item->view() ? newViewLine(this) : new QAction(this);
    line->setSeparator(item->isSeparator());
    describe(*line, *item);
    if (item->submenu()) {
        auto* below = new MenuWindow(item->submenu(), this);
        line->setMenu(below);
        connect(line, &QObject::destroyed, below, &QObject::deleteLater);  // a line does not own its menu
    }
    const std::weak_ptr<MenuItem> weak = item;
    connect(line, &QAction::hovered, this, [this, weak] { menu_->highlight(weak.lock()); });
    connect(line, &QAction::triggered, this, [weak] {
        // Later, when the window has closed.
        RunLoop::main().post([item = weak.lock()] {
            if (item) item->performAction();
        });
    });
    return line;
}

// Drawing a view is no change of it.
void MenuWindow::describe(QAction& line, const MenuItem& item)
{
    if (std::exchange(isDrawing_, true)) return;
    line.setText(textOf(item));
    if (auto* shown = qobject_cast<QWidgetAction*>(&line)) {
        qobject_cast<QLabel*>(shown->defaultWidget())->setPixmap(pixmapOf(item));
    } else {
        line.setIcon(pixmapOf(item));
    }
    line.setEnabled(item.isEnabled());
    line.setVisible(!item.isHidden());
    line.setCheckable(item.state() != MenuItemState::off);
    line.setChecked(item.state() != MenuItemState::off);
    isDrawing_ = false;
}

void MenuWindow::refresh(MenuItem* item)
{
    const auto line = lines_.find(keyOf(*item));
    if (line == lines_.end()) return fill();  // it is shown in another way now
    describe(*line->second, *item);
}

void MenuWindow::willShow()
{
    if (parentWidget()) menu_->needsUpdate();
    menu_->opened();
}

// An action that was chosen is told after its window has closed.
void MenuWindow::hasHidden()
{
    RunLoop::main().post([menu = menu_] { menu->closed(); });
    if (!parentWidget()) deleteLater();
}

}  // namespace Platform
