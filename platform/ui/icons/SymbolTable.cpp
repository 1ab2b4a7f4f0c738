#include "platform/ui/icons/SymbolTable.h"

#include <array>

namespace Platform {
namespace {

constexpr SymbolFigure figureTable[] = {
    {"arrow.clockwise", "s A12 12 8 -50 300 ; s M17.2 2.6 L17.2 6.6 L13.2 6.6"},
    {"arrow.down", "s M12 4 L12 20 ; s M5 13 L12 20 L19 13"},
    {"arrow.left", "s M20 12 L4 12 ; s M11 5 L4 12 L11 19"},
    {"arrow.right", "s M4 12 L20 12 ; s M13 5 L20 12 L13 19"},
    {"arrow.up", "s M12 20 L12 4 ; s M5 11 L12 4 L19 11"},
    {"arrow.up.arrow.down", "s M7 20 L7 4 ; s M3 8 L7 4 L11 8 ; S M17 4 L17 20 ; S M13 16 L17 20 L21 16"},
    {"battery.100", "s R2 7 18 10 3 ; F R4.5 9.5 13 5 1 ; s M22.5 10.5 L22.5 13.5"},
    {"battery.25", "s R2 7 18 10 3 ; F R4.5 9.5 4 5 1 ; s M22.5 10.5 L22.5 13.5"},
    {"bell", "s M4 17 C6 15 6 13 6 10 C6 6 8.5 4 12 4 C15.5 4 18 6 18 10 C18 13 18 15 20 17 Z ; s A12 18.5 2.2 0 180"},
    {"bolt", "s M13 2.5 L5 13.5 L11 13.5 L10 21.5 L19 9.5 L12.5 9.5 Z"},
    {"bolt.fill", "f M13 2.5 L5 13.5 L11 13.5 L10 21.5 L19 9.5 L12.5 9.5 Z"},
    {"chart.bar", "s R3 12 4.5 9 1 ; s R9.75 7 4.5 14 1 ; s R16.5 3 4.5 18 1"},
    {"chart.bar.fill", "f R3 12 4.5 9 1 ; f R9.75 7 4.5 14 1 ; f R16.5 3 4.5 18 1"},
    {"chart.line.uptrend.xyaxis", "S M3 3 L3 21 L21 21 ; s M6 16 L10.5 11 L14 14 L20 6"},
    {"chart.pie", "s M12 12 L12 3 A12 12 9 -90 -270 L12 12 ; S M14.5 9.5 L14.5 2.5 C18.5 3 21 5.5 21.5 9.5 Z"},
    {"checkmark", "s M4 13 L10 19 L20 5"},
    {"checkmark.circle", "S O12 12 9.5 ; s M7.5 12.5 L11 16 L16.5 8.5"},
    {"chevron.down", "s M5 8.5 L12 15.5 L19 8.5"},
    {"chevron.left", "s M15.5 5 L8.5 12 L15.5 19"},
    {"chevron.right", "s M8.5 5 L15.5 12 L8.5 19"},
    {"chevron.up", "s M5 15.5 L12 8.5 L19 15.5"},
    {"circle", "s O12 12 9.5"},
    {"circle.fill", "f O12 12 10"},
    {"clock", "S O12 12 9.5 ; s M12 6 L12 12 L16 14.5"},
    {"cpu",
     "s R5 5 14 14 2.5 ; F R9 9 6 6 1 ; s M9 5 L9 2 ; s M15 5 L15 2 ; s M9 22 L9 19 ; s M15 22 L15 19 ; s M2 9 L5 9 ; "
     "s M2 15 L5 15 ; s M19 9 L22 9 ; s M19 15 L22 15"},
    {"desktopcomputer", "s R2 3 20 14 2 ; S M12 17 L12 21 ; s M7.5 21 L16.5 21"},
    {"display", "s R2 4 20 14 2 ; S M8 21 L16 21"},
    {"doc", "s M6 2.5 L14 2.5 L19 7.5 L19 21.5 L5 21.5 L5 2.5 Z ; S M13.5 3 L13.5 8 L18.5 8"},
    {"ellipsis", "f O5 12 2 ; f O12 12 2 ; f O19 12 2"},
    {"exclamationmark.triangle", "S M12 3 L22 20.5 L2 20.5 Z ; s M12 9.5 L12 14 ; f O12 17.3 1.2"},
    {"externaldrive", "s R2 7 20 11 3 ; f O18 12.5 1.3 ; S M5.5 12.5 L12 12.5"},
    {"eye", "s M2 12 C6 5.5 18 5.5 22 12 C18 18.5 6 18.5 2 12 Z ; F O12 12 3"},
    {"flag", "s M5 21.5 L5 3 ; S M5 4 C9 2 13 7 19.5 4 L19.5 13.5 C13 16 9 11.5 5 13.5"},
    {"folder", "s M2.5 19.5 L2.5 5 L9 5 L11.5 7.5 L21.5 7.5 L21.5 19.5 Z ; S M2.5 11 L21.5 11"},
    {"folder.fill", "f M2.5 19.5 L2.5 5 L9 5 L11.5 7.5 L21.5 7.5 L21.5 19.5 Z"},
    {"gauge", "S A12 14 9.5 150 240 ; s M12 14 L16 8.5 ; f O12 14 1.8"},
    {"gearshape",
     "s O12 12 6.5 ; s O12 12 2.2 ; S M12 5.5 L12 2.5 ; S M12 18.5 L12 21.5 ; S M5.5 12 L2.5 12 ; S M18.5 12 L21.5 12 "
     "; S M7.4 7.4 L5.3 5.3 ; S M16.6 7.4 L18.7 5.3 ; S M7.4 16.6 L5.3 18.7 ; S M16.6 16.6 L18.7 18.7"},
    {"globe", "s O12 12 9.5 ; S M2.5 12 L21.5 12 ; S M12 2.5 C6 8 6 16 12 21.5 C18 16 18 8 12 2.5"},
    {"heart",
     "s M12 20.5 C2 13.5 2 4.5 7.5 4.5 C10 4.5 11.5 6.5 12 8 C12.5 6.5 14 4.5 16.5 4.5 C22 4.5 22 13.5 12 20.5 Z"},
    {"house",
     "s M3 11.5 L12 3.5 L21 11.5 ; s M5.5 10 L5.5 20.5 L18.5 20.5 L18.5 10 ; S M10 20.5 L10 14.5 L14 14.5 L14 20.5"},
    {"info.circle", "S O12 12 9.5 ; f O12 7.3 1.3 ; s M10.5 11 L12 11 L12 16.5 ; s M10 16.5 L14 16.5"},
    {"internaldrive", "s R2 6 20 12 2.5 ; S M2.5 13 L21.5 13 ; f O18 15.5 1.1"},
    {"keyboard",
     "s R2 6 20 12 2.5 ; S M6 10 L6.5 10 ; S M10 10 L10.5 10 ; S M14 10 L14.5 10 ; S M17.8 10 L18.2 10 ; s M7.5 14.5 "
     "L16.5 14.5"},
    {"laptopcomputer", "s R4.5 4 15 11.5 2 ; S M2 19 L22 19"},
    {"list.bullet", "f O4 6 1.6 ; f O4 12 1.6 ; f O4 18 1.6 ; S M9 6 L21 6 ; S M9 12 L21 12 ; S M9 18 L21 18"},
    {"lock", "s R5 10.5 14 11 2.5 ; S M8 10.5 L8 7.5 A12 7.5 4 180 180 L16 10.5"},
    {"lock.open", "s R5 10.5 14 11 2.5 ; S M8 10.5 L8 6.5 A12 6.5 4 180 180"},
    {"magnifyingglass", "s O10 10 7 ; s M15.2 15.2 L21 21"},
    {"memorychip",
     "s R2 7 20 9 2 ; S M6 10 L6 13 ; S M10 10 L10 13 ; S M14 10 L14 13 ; S M18 10 L18 13 ; s M5 16 L5 19 ; s M9.7 16 "
     "L9.7 19 ; s M14.3 16 L14.3 19 ; s M19 16 L19 19"},
    {"minus", "s M4 12 L20 12"},
    {"network",
     "s R8.5 2.5 7 6 1.5 ; S M12 8.5 L12 12.5 ; S M5.5 15.5 L5.5 12.5 L18.5 12.5 L18.5 15.5 ; s R2 15.5 7 6 1.5 ; s "
     "R15 15.5 7 6 1.5"},
    {"pause.fill", "f R5 4 5 16 1 ; f R14 4 5 16 1"},
    {"pencil", "s M4 20 L5 15.5 L16.5 4 L20 7.5 L8.5 19 Z ; S M14 6.5 L17.5 10"},
    {"person", "s O12 8 4.5 ; S M3.5 21 C4.5 12.5 19.5 12.5 20.5 21 Z"},
    {"play.fill", "f M6 3.5 L20 12 L6 20.5 Z"},
    {"plus", "s M12 4 L12 20 ; s M4 12 L20 12"},
    {"plus.circle", "S O12 12 9.5 ; s M12 7.5 L12 16.5 ; s M7.5 12 L16.5 12"},
    {"power", "s A12 13 8 -50 280 ; s M12 3 L12 12"},
    {"questionmark.circle", "S O12 12 9.5 ; s A12 9.3 2.8 -180 225 L12 13.5 ; f O12 17 1.2"},
    {"square", "s R3.5 3.5 17 17 2.5"},
    {"square.dashed",
     "s M3.5 8 L3.5 3.5 L8 3.5 ; s M16 3.5 L20.5 3.5 L20.5 8 ; s M20.5 16 L20.5 20.5 L16 20.5 ; s M8 20.5 L3.5 20.5 "
     "L3.5 16"},
    {"square.fill", "f R3 3 18 18 2.5"},
    {"square.grid.2x2",
     "s R3 3 7.5 7.5 1.5 ; S R13.5 3 7.5 7.5 1.5 ; S R3 13.5 7.5 7.5 1.5 ; s R13.5 13.5 7.5 7.5 1.5"},
    {"star", "s M12 2.5 L14.8 8.9 L21.7 9.5 L16.5 14.1 L18.1 20.9 L12 17.3 L5.9 20.9 L7.5 14.1 L2.3 9.5 L9.2 8.9 Z"},
    {"star.fill",
     "f M12 2.5 L14.8 8.9 L21.7 9.5 L16.5 14.1 L18.1 20.9 L12 17.3 L5.9 20.9 L7.5 14.1 L2.3 9.5 L9.2 8.9 Z"},
    {"stop.fill", "f R4.5 4.5 15 15 2"},
    {"thermometer",
     "S M9.5 13.8 L9.5 5 A12 5 2.5 180 180 L14.5 13.8 A12 17.5 4.5 -56 292 ; f O12 17.5 2.3 ; s M12 15 L12 8.5"},
    {"trash",
     "s M3.5 6 L20.5 6 ; s M5.5 6 L6.5 21.5 L17.5 21.5 L18.5 6 ; s M9 6 L9 3 L15 3 L15 6 ; S M10 10 L10 17.5 ; S M14 "
     "10 L14 17.5"},
    {"wifi", "S A12 19 15 -135 90 ; s A12 19 9.5 -135 90 ; f O12 19 2"},
    {"xmark", "s M5 5 L19 19 ; s M19 5 L5 19"},
    {"xmark.circle", "S O12 12 9.5 ; s M8.5 8.5 L15.5 15.5 ; s M15.5 8.5 L8.5 15.5"},
};

constexpr ThemeSymbol themeTable[] = {
    {"airplane", "airplane-mode-symbolic"},
    {"calendar", "x-office-calendar-symbolic"},
    {"camera", "camera-photo-symbolic"},
    {"envelope", "mail-unread-symbolic"},
    {"headphones", "audio-headphones-symbolic"},
    {"mic", "audio-input-microphone-symbolic"},
    {"moon", "weather-clear-night-symbolic"},
    {"photo", "image-x-generic-symbolic"},
    {"printer", "printer-symbolic"},
    {"speaker.wave.2", "audio-volume-high-symbolic"},
    {"sun.max", "weather-clear-symbolic"},
    {"terminal", "utilities-terminal-symbolic"},
    {"video", "camera-video-symbolic"},
};

}  // namespace

std::span<const SymbolFigure> symbolFigures()
{
    return figureTable;
}

std::span<const ThemeSymbol> themeSymbols()
{
    return themeTable;
}

}  // namespace Platform
