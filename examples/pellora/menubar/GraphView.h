#pragma once

#include <span>
#include <vector>

#include "Fennick/Point.h"
#include "platform/runtime/Number.h"
#include "platform/ui/views/View.h"

namespace Pellora {

// The last percentages of a reading as a filled line in the menu bar's colour.
// Thread: main.
class GraphView final : public Platform::View {
public:
    explicit GraphView(Platform::Size size) : View({{}, size}), size_(size) {}

    Platform::Size intrinsicContentSize() const override { return size_; }
    // Draws anew only where the line looks different.
    void setHistory(std::span<const Platform::Number> history);
    void draw(const Platform::Rect& dirtyRect) override;

private:
    Platform::Rect area() const { return Platform::Rect{{}, size_}.insetBy(2, 4); }

    const Platform::Size size_;  // whatever the layout makes of it meanwhile
    std::vector<Fennick::Point> points_;
};

}  // namespace Pellora
