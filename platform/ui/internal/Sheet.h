#pragma once

#include <QDialog>
#include <functional>

namespace Platform {

// Shows a dialog that blocks its parent window only, and calls back once: when
// it is answered, or as rejected when its parent closes, hides or dies first.
// The dialog, made on the heap, ends with the call.
void beginSheet(QDialog* dialog, std::function<void(QDialog&)> completion);

}  // namespace Platform
