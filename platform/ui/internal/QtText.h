#pragma once

#include <QFont>
#include <QImage>

#include "platform/ui/text/Font.h"

namespace Platform {

QFont qtFont(const Font& font);

// Where text is measured: 72 pixels an inch, so that a point is a pixel, as in every bitmap of ours.
QImage& measuringSurface();

}  // namespace Platform
