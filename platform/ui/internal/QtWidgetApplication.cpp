#include <QApplication>
#include <QProxyStyle>

#include "platform/ui/internal/GuiApplication.h"
#include "platform/ui/internal/QtWindow.h"

namespace Platform {
namespace {

// Set before main: a program that links windows may measure a text first, and
// the application object of texts alone could not show them later.
const bool isWidgetMakerSet = [] {
    setApplicationMaker([](int& argc, char** argv) -> QGuiApplication* { return new QApplication(argc, argv); });
    return true;
}();

}  // namespace

void ensureWidgetApplication()
{
    ensureGuiApplication();
}

}  // namespace Platform
