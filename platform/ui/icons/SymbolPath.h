#pragma once

#include <string_view>
#include <vector>

#include "platform/ui/BezierPath.h"

namespace Platform {

// One figure of a symbol, ready to draw on its grid.
struct SymbolPart {
    BezierPath path;
    bool isFilled = false;
    bool isSecondary = false;
};

// Reads the figures of a symbol table row. Steps that it does not know end the figure.
std::vector<SymbolPart> parseSymbol(std::string_view figures);

}  // namespace Platform
