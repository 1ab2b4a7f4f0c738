#include "platform/ui/internal/GuiApplication.h"

#include <array>
#include <clocale>
#include <cstdlib>

#include "platform/runtime/Environment.h"
#include "platform/runtime/RunLoop.h"
#include "platform/ui/internal/QtRunLoopHost.h"

namespace Platform {
namespace {

constinit ApplicationMaker applicationMaker = [](int& argc, char** argv) { return new QGuiApplication(argc, argv); };

bool isSet(const char* variable)
{
    const char* value = std::getenv(variable);
    return value && *value;
}

// The toolkit ends the process where it reaches no display; a list makes it
// try the next. A platform that the user has named is left alone.
const char* platformList()
{
    if (isSet("WAYLAND_DISPLAY")) return "wayland;xcb;offscreen";
    return isSet("DISPLAY") ? "xcb;offscreen" : "offscreen";
}

void makeApplication()
{
    // The application object keeps references to both for as long as it lives.
    static std::array<char*, 4> arguments{const_cast<char*>("pellora"), nullptr, nullptr, nullptr};
    static int count = 1;
    if (!isSet("QT_QPA_PLATFORM")) {
        arguments[1] = const_cast<char*>("-platform");
        arguments[2] = const_cast<char*>(platformList());
        count = 3;
    }
    // Never destroyed: other static objects may still hold its fonts and windows.
    [[maybe_unused]] static QGuiApplication* const application = applicationMaker(count, arguments.data());
    // The toolkit takes over the user's locale; numbers in files are written in the plain one.
    std::setlocale(LC_NUMERIC, "C");
    QGuiApplication::setQuitOnLastWindowClosed(false);
    RunLoop::main().setHost(std::make_unique<QtRunLoopHost>(RunLoop::main()));
}

}  // namespace

void setApplicationMaker(ApplicationMaker maker)
{
    applicationMaker = maker;
}

void ensureGuiApplication()
{
    if (!QCoreApplication::instance()) makeApplication();
}

bool hasScreen()
{
    ensureGuiApplication();
    const QString name = QGuiApplication::platformName();
    return name != "offscreen" && name != "minimal";
}

}  // namespace Platform
