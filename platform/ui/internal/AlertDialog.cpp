#include "platform/ui/internal/AlertDialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOption>
#include <cmath>

#include "platform/ui/Image.h"
#include "platform/ui/icons/Symbols.h"
#include "platform/ui/internal/QtDrawing.h"

namespace Platform {
namespace {

constexpr double iconPoints = 38;
constexpr int textWidth = 300;
constexpr int buttonGap = 8;

QString qtText(const std::string& text)
{
    return QString::fromStdString(text);
}

// Without a ring around it: the box opens with the focus in its only field.
class PlainField final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override
    {
        QLineEdit::initStyleOption(option);
        option->state &= ~QStyle::State_HasFocus;
    }
};

// The box reads as its texts do.
Qt::LayoutDirection directionOf(const AlertRequest& request)
{
    const std::string& first = request.buttons.empty() ? request.message : request.buttons.front();
    return qtText(first).isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

QPixmap iconOf(AlertStyle style, double scale)
{
    const bool isWarning = style != AlertStyle::informational;
    const Color color = isWarning ? Color::calibratedRGB(0.86, 0.53, 0.05) : Color::controlAccentColor();
    const ImageRef icon = systemSymbol(isWarning ? "exclamationmark.triangle" : "info.circle")
                              ->withSymbolConfiguration({.pointSize = iconPoints, .hierarchicalColor = color});
    const int side = int(std::lround(icon->size().width * scale));
    const auto pixels = icon->bitmap(side, side);
    if (!pixels) return {};
    // A view of pixels that end here: the pixmap needs its own.
    QPixmap pixmap = QPixmap::fromImage(imageView(*pixels).copy());
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QLabel* label(const std::string& text, bool isBold)
{
    // Plain text: a message may hold anything that looks like markup.
    auto* label = new QLabel(qtText(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    QFont font = label->font();
    font.setBold(isBold);
    label->setFont(font);
    return label;
}

}  // namespace

AlertDialog::AlertDialog(const AlertRequest& request, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(qtText(request.message));
    setAccessibleName(qtText(request.message));
    setAccessibleDescription(qtText(request.information));
    setLayoutDirection(directionOf(request));
    auto* grid = new QGridLayout(this);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->setHorizontalSpacing(16);
    auto* icon = new QLabel;
    icon->setPixmap(iconOf(request.style, devicePixelRatioF()));
    grid->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    addTexts(request, *grid);
    if (request.textField) addTextField(*request.textField, *grid);
    addButtons(request, *grid);
}

void AlertDialog::addTexts(const AlertRequest& request, QGridLayout& grid)
{
    grid.addWidget(label(request.message, true), 0, 1);
    if (!request.information.empty()) grid.addWidget(label(request.information, false), 1, 1);
}

void AlertDialog::addTextField(const AlertRequest::TextField& field, QGridLayout& grid)
{
    textField_ = new PlainField(qtText(field.text));
    textField_->setFixedSize(int(std::lround(field.size.width)), int(std::lround(field.size.height)));
    textField_->setAccessibleName(windowTitle());
    textField_->selectAll();
    grid.addWidget(textField_, 2, 1);
}

void AlertDialog::addButtons(const AlertRequest& request, QGridLayout& grid)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(buttonGap);
    row->addStretch();
    int number = AlertAnswer::firstButton;
    for (const std::string& title : request.buttons) {
        // An ampersand is part of the title, not the mark of a shortcut.
        auto* button = new QPushButton(qtText(title).replace('&', "&&"));
        button->setAccessibleName(qtText(title));
        button->setDefault(number == AlertAnswer::firstButton);
        connect(button, &QPushButton::clicked, this, [this, number] {
            button_ = number;
            accept();
        });
        if (number == AlertAnswer::firstButton && !textField_) button->setFocus();
        row->addWidget(button);
        ++number;
    }
    grid.addLayout(row, 3, 0, 1, 2);
}

AlertAnswer AlertDialog::answer() const
{
    return {result() == Accepted ? button_ : AlertAnswer::cancelled,
            textField_ ? textField_->text().toStdString() : ""};
}

}  // namespace Platform
