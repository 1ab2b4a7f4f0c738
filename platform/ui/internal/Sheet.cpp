#include "platform/ui/internal/Sheet.h"

#include <QEvent>

namespace Platform {
namespace {

// Rejects the sheet when the parent leaves the screen; the toolkit would only
// hide it with the parent. One that is iconified, or on another desktop, comes back.
class ParentWatch final : public QObject {
public:
    explicit ParentWatch(QDialog& sheet) : QObject(&sheet), sheet_(sheet)
    {
        if (sheet.parentWidget()) sheet.parentWidget()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isGone = event->type() == QEvent::Close || (event->type() == QEvent::Hide && !event->spontaneous());
        if (isGone && watched == sheet_.parentWidget()) sheet_.reject();
        return false;
    }

private:
    QDialog& sheet_;
};

// Calls the first time only: a parent that ends rejects the sheet once more.
class Completion final : public QObject {
public:
    Completion(QDialog& sheet, std::function<void(QDialog&)> call)
        : QObject(&sheet), sheet_(sheet), call_(std::move(call))
    {
    }
    void complete()
    {
        if (const auto call = std::exchange(call_, nullptr)) call(sheet_);
    }

private:
    QDialog& sheet_;
    std::function<void(QDialog&)> call_;
};

}  // namespace

void beginSheet(QDialog* dialog, std::function<void(QDialog&)> completion)
{
    auto* once = new Completion(*dialog, std::move(completion));
    new ParentWatch(*dialog);
    dialog->setWindowModality(dialog->parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
    QObject::connect(dialog, &QDialog::finished, once, [dialog, once] {
        once->complete();
        dialog->deleteLater();
    });
    dialog->open();
}

}  // namespace Platform
