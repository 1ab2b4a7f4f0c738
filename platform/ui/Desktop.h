#pragma once

namespace Platform {

// Puts the drawing room's services in the place of those that answer nothing:
// icons of files (IconService), the open panel (OpenPanel) and the desktop's
// look (DesktopAppearance). A program that shows anything calls it once, first
// in main(), before it starts threads; later calls do nothing. It makes no
// application object and opens no display: that waits for the first text or
// window. Thread: main.
void installDesktop();

}  // namespace Platform
