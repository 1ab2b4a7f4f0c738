#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <memory>

#include "platform/runtime/Shared.h"
#include "platform/runtime/Timer.h"
#include "platform/ui/dialogs/AlertPanel.h"

namespace Tests {

// Answers dialogs in place of a user: each that comes up is handed to the next
// of the given steps, once. Its timer runs on the main run loop, which has to
// go on inside the dialog.
class DialogDriver {
public:
    using Step = std::function<void(QDialog&)>;

    explicit DialogDriver(std::vector<Step> steps) : steps_(std::move(steps))
    {
        timer_ = Platform::Timer::scheduled(0.002, true, [this] { look(); });
    }
    ~DialogDriver() { timer_->invalidate(); }

private:
    class Present final : public Platform::DialogAudience {
        bool isPresent() const override { return true; }
    };

    void look()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible() || dialog == seen_ || steps_.empty()) return;
        seen_ = dialog;
        const Step step = std::move(steps_.front());
        steps_.erase(steps_.begin());
        step(*dialog);
    }

    Platform::Shared<Platform::DialogAudience>::Override audience_{std::make_shared<Present>()};
    std::vector<Step> steps_;
    QDialog* seen_ = nullptr;
    std::shared_ptr<Platform::Timer> timer_;
};

inline QPushButton& button(QDialog& dialog, int place)
{
    return *dialog.findChildren<QPushButton*>().at(place);
}

}  // namespace Tests
