#include <cstdlib>

namespace {

// These tests press the buttons themselves; nothing of them belongs on the screen of whoever runs them.
const int isOffscreen = setenv("QT_QPA_PLATFORM", "offscreen", 1);

}  // namespace
