#pragma once

#include <QGuiApplication>
#include <memory>

namespace Platform {

// The toolkit's application object, made when the first text is measured or
// the first window shown. Without a display it draws off screen. From then on
// the main run loop waits in the toolkit's. Thread: main.
void ensureGuiApplication();

// Whether there is a screen with somebody before it.
bool hasScreen();

// How the application object is made. A program that links windows makes the
// kind that can show them, whatever it does first.
using ApplicationMaker = QGuiApplication* (*)(int& argc, char** argv);
void setApplicationMaker(ApplicationMaker maker);

}  // namespace Platform
