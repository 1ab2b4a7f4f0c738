#include "platform/ui/views/Window.h"

#include <QDialog>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <cmath>

#include "platform/ui/DesktopAppearance.h"
#include "platform/ui/Image.h"
#include "platform/ui/internal/QtDrawing.h"
#include "platform/ui/internal/QtWindow.h"

namespace Platform {
namespace {

// From the points of the outermost superview to the view's own.
Point pointIn(const View& view, Point point)
{
    const ViewRef parent = view.superview();
    if (!parent) return point;
    const Point outer = pointIn(*parent, point);
    return {outer.x - view.frame().origin.x, outer.y - view.frame().origin.y};
}

}  // namespace

// Shows the content view's picture and hands clicks to it.
struct Window::Surface final : QWidget {
    explicit Surface(Window& owner) : window(owner) {}

    void paintEvent(QPaintEvent*) override
    {
        if (!window.contentView_) return;
        const double scale = devicePixelRatioF();
        auto pixels = Bitmap::create(int(std::ceil(width() * scale)), int(std::ceil(height() * scale)));
        if (!pixels) return;
        GraphicsContext context(std::move(*pixels), {double(width()), double(height())});
        window.contentView_->render(context);
        const Bitmap content = context.finish();
        QPainter(this).drawImage(QRectF(rect()), imageView(content));
    }

    void resizeEvent(QResizeEvent*) override { fit(); }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        Point point{event->position().x(), event->position().y()};
        ViewRef view = window.contentView_ ? window.contentView_->hitTest(point) : nullptr;
        while (view && !view->mouseUp(pointIn(*view, point))) view = view->superview();
    }

    void fit()
    {
        if (window.contentView_) window.contentView_->setFrame(Rect::of(0, 0, width(), height()));
    }

    Window& window;
};

Window::Window() = default;

// Sheets are answered before the toolkit takes them down with their window.
Window::~Window()
{
    for (QDialog* sheet : surface_->findChildren<QDialog*>()) sheet->reject();
    if (contentView_) contentView_->setDisplayObserver(nullptr);
}

WindowRef Window::create(Size size, const std::string& title)
{
    ensureWidgetApplication();
    WindowRef window(new Window);
    window->surface_ = std::make_unique<Surface>(*window);
    window->surface_->setWindowTitle(QString::fromStdString(title));
    if (size.isDrawable()) window->surface_->resize(int(std::ceil(size.width)), int(std::ceil(size.height)));
    window->setContentView(std::make_shared<View>());
    window->desktopObserver_ = DesktopAppearance::shared().observe([weak = std::weak_ptr(window)] {
        if (const WindowRef self = weak.lock()) self->surface_->update();
    });
    return window;
}

void Window::show()
{
    surface_->show();
}

void Window::close()
{
    surface_->close();
}

bool Window::isVisible() const
{
    return surface_->isVisible();
}

void Window::setContentView(const ViewRef& view)
{
    if (contentView_) contentView_->setDisplayObserver(nullptr);
    contentView_ = view;
    if (!view) return;
    view->removeFromSuperview();
    view->setDisplayObserver([surface = surface_.get()] { surface->update(); });
    surface_->fit();
    view->setWindow(shared_from_this());
}

Appearance Window::effectiveAppearance() const
{
    return appearance_ ? *appearance_ : DesktopAppearance::shared().appearance();
}

void Window::setAppearance(std::optional<Appearance> appearance)
{
    appearance_ = std::move(appearance);
    if (contentView_) contentView_->setWindow(shared_from_this());
}

QWidget* WindowAccess::widget(const WindowRef& window)
{
    return window ? window->surface_.get() : nullptr;
}

}  // namespace Platform
