#pragma once

#include <memory>

#include "platform/ui/BezierPath.h"
#include "platform/ui/Bitmap.h"
#include "platform/ui/Color.h"
#include "platform/ui/Geometry.h"

namespace Platform {

// How drawn pixels meet those that are there, with the platform's numbers.
enum class CompositingOperation {
    clear = 0,
    copy = 1,
    sourceOver = 2,
    sourceIn = 3,
    sourceOut = 4,
    sourceAtop = 5,
    destinationOver = 6,
    destinationIn = 7,
    destinationOut = 8,
    destinationAtop = 9,
    xor_ = 10,
};

enum class ImageInterpolation { standard = 0, none = 1, low = 2, high = 3 };

// Draws into a bitmap, in points from its top left corner.
// Needs no application object, except for texts. Thread: one at a time.
class GraphicsContext {
public:
    // `size` is what the whole bitmap measures in points.
    GraphicsContext(Bitmap bitmap, Size size);
    ~GraphicsContext();
    GraphicsContext(const GraphicsContext&) = delete;
    GraphicsContext& operator=(const GraphicsContext&) = delete;

    // The context that drawing on this thread goes to: the innermost scope's; null without one.
    static GraphicsContext* current();

    // Makes a context, or none, the current one for a scope. Scopes nest.
    class [[nodiscard]] Current {
    public:
        explicit Current(GraphicsContext* context);
        ~Current();
        Current(const Current&) = delete;
        Current& operator=(const Current&) = delete;
    };

    // Ends the drawing and hands the bitmap over.
    Bitmap finish();

    Size size() const;
    ImageInterpolation interpolation() const;
    void setInterpolation(ImageInterpolation interpolation);
    void setFillColor(const Color& color);
    void setStrokeColor(const Color& color);
    const Color& fillColor() const;

    // Clip, transform, colours and interpolation are kept and brought back.
    void saveState();
    void restoreState();
    void translate(double dx, double dy);
    void scale(double sx, double sy);
    // Everything drawn later is that much more transparent.
    void multiplyOpacity(double opacity);

    void fill(const Rect& rect, CompositingOperation operation);
    void fill(const BezierPath& path);
    void stroke(const BezierPath& path);
    void clip(const BezierPath& path);
    // The part of the bitmap, in its pixels, into the rectangle in points.
    void draw(const Bitmap& bitmap, const Rect& part, const Rect& target, CompositingOperation operation,
              double fraction);

    // How many pixels a point is, at the present transform.
    Size pixelsPerPoint() const;

private:
    friend struct ContextAccess;
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace Platform
