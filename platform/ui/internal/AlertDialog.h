#pragma once

#include <QDialog>

#include "platform/ui/dialogs/AlertPanel.h"

class QGridLayout;
class QLineEdit;

namespace Platform {

// The box of one alert, written out by itself because the toolkit's own boxes
// order their buttons as the desktop likes.
class AlertDialog final : public QDialog {
public:
    AlertDialog(const AlertRequest& request, QWidget* parent);

    // After it has ended.
    AlertAnswer answer() const;

private:
    void addTexts(const AlertRequest& request, QGridLayout& grid);
    void addTextField(const AlertRequest::TextField& field, QGridLayout& grid);
    void addButtons(const AlertRequest& request, QGridLayout& grid);

    QLineEdit* textField_ = nullptr;
    int button_ = AlertAnswer::cancelled;
};

}  // namespace Platform
