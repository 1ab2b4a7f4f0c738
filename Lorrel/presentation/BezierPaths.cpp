#include "Lorrel/presentation/BezierPaths.h"

namespace Lorrel {

using Platform::PathElementKind;

Platform::GraphicsPath cgPath(const Platform::BezierPath& path)
{
    Platform::GraphicsPath outline;
    for (const Platform::PathElement& element : path.elements()) {
        const auto& points = element.points;
        switch (element.kind) {
            case PathElementKind::moveTo:
                outline.moveTo(points[0]);
                break;
            case PathElementKind::lineTo:
                outline.addLineTo(points[0]);
                break;
            case PathElementKind::curveTo:
                outline.addCurveTo(points[2], points[0], points[1]);
                break;
            case PathElementKind::closePath:
                outline.closeSubpath();
                break;
            default:
                break;
        }
    }
    return outline;
}

}  // namespace Lorrel
