#pragma once

#include <span>
#include <string_view>

namespace Platform {

// One symbol's figures on a grid of 24 by 24, parted by ";". Each begins with
// how it is drawn: "s" stroked, "f" filled, capital for the parts that a
// hierarchical colour shows paler. Then steps of a letter and its numbers:
// M x y, L x y, C x1 y1 x2 y2 x y, Z, O cx cy r (circle),
// R x y w h r (rounded rectangle), A cx cy r start sweep (arc in degrees).
struct SymbolFigure {
    std::string_view name;
    std::string_view figures;
};

// A symbol that is taken from the icon theme under a name of its own.
struct ThemeSymbol {
    std::string_view name;
    std::string_view themeName;
};

// Both in the order of their names.
std::span<const SymbolFigure> symbolFigures();
std::span<const ThemeSymbol> themeSymbols();

}  // namespace Platform
