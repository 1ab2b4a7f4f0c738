#include "platform/menubar/internal/ItemSnapshot.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include <errno.h>

#include "platform/ui/GraphicsContext.h"

namespace Platform {

namespace {

constexpr double largestSide = 1024;

Bitmap drawn(View& button)
{
    // Constraints of its own, where it has some, overrule what the content asks for.
    button.setFrame({{}, button.intrinsicContentSize()});
    button.layoutSubtreeIfNeeded();
    const Size size{std::min(button.frame().size.width, largestSide),
                    std::min(button.frame().size.height, largestSide)};
    if (!size.isDrawable()) return {};
    auto bitmap = Bitmap::create(static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height)));
    if (!bitmap) return {};
    const Size whole{static_cast<double>(bitmap->width()), static_cast<double>(bitmap->height())};
    GraphicsContext context(std::move(*bitmap), whole);
    button.render(context);
    return context.finish();
}

// The colour that was multiplied by the alpha, rounded to nearest.
std::uint32_t divided(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0 || alpha == 255) return alpha == 0 ? 0 : pixel;
    std::uint32_t result = alpha << 24;
    for (const int shift : {16, 8, 0}) {
        const std::uint32_t part = pixel >> shift & 0xFF;
        result |= std::min(255U, (part * 255 + alpha / 2) / alpha) << shift;
    }
    return result;
}

std::uint32_t networkOrder(std::uint32_t value)
{
    return std::endian::native == std::endian::little ? __builtin_bswap32(value) : value;
}

}  // namespace

ItemSnapshot snapshotOf(const StatusItem& item)
{
    const std::string& title = item.button()->title();
    return {drawn(*item.button()), title.empty() ? std::string(program_invocation_short_name) : title,
            item.toolTip(),        item.accessibilityText().empty() ? title : item.accessibilityText(),
            item.isVisible(),      item.menu() != nullptr};
}

void appendPixmap(sd_bus_message* message, const Bitmap& icon)
{
    sd_bus_message_open_container(message, 'a', "(iiay)");
    if (!icon.isEmpty()) {
        sd_bus_message_open_container(message, 'r', "iiay");
        sd_bus_message_append(message, "ii", icon.width(), icon.height());
        void* space = nullptr;
        if (sd_bus_message_append_array_space(message, 'y', icon.pixelCount() * sizeof(std::uint32_t), &space) >= 0) {
            std::transform(icon.pixels(), icon.pixels() + icon.pixelCount(), static_cast<std::uint32_t*>(space),
                           [](std::uint32_t pixel) { return networkOrder(divided(pixel)); });
        }
        sd_bus_message_close_container(message);
    }
    sd_bus_message_close_container(message);
}

}  // namespace Platform
