#include "Fennick/internal/FarthestPoint.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Fennick/internal/HullTree.h"

namespace Fennick::internal {

namespace {

// Points are looked at in blocks that stay in the first cache.
constexpr std::size_t blockSize = 256;

// Below it looking at every point is faster than asking hulls.
constexpr std::size_t shortestForHulls = 1'024;

// Quotients of numerators that differ by less than this part may round to the same distance.
constexpr double tieMargin = 0x1p-50;

// Below this a quotient may be subnormal, and the margin above no longer holds;
// nor does it where quotients overflow.
constexpr double smallestSafe = 0x1p-900;

bool coincide(const Point& a, const Point& b)
{
    return a.x == b.x && a.y == b.y;
}

// False also where a coordinate is not a number: such a point has no distance.
bool isOff(const Point& p, const Point& a)
{
    return std::abs(p.x - a.x) + std::abs(p.y - a.y) > 0;
}

std::optional<std::size_t> firstPointOff(const Point* points, std::size_t first, std::size_t last, double epsilon)
{
    if (epsilon == std::numeric_limits<double>::infinity()) return std::nullopt;
    for (std::size_t k = first + 1; k < last; ++k) {
        if (isOff(points[k], points[first])) return k;
    }
    return std::nullopt;
}

std::optional<std::size_t> farthestByFormula(const Line& line, const Point* points, std::size_t first, std::size_t last,
                                             double epsilon)
{
    double largest = 0;
    std::size_t index = first;
    for (std::size_t k = first + 1; k < last; ++k) {
        const double distance = line.distance(points[k]);
        if (distance > largest) {
            largest = distance;
            index = k;
        }
    }
    if (!(largest > epsilon)) return std::nullopt;
    return index;
}

Largest largestOf(const Line& line, const Point* points, std::size_t first, std::size_t last)
{
    const LargestNumerator ofBlock = largestNumerator();
    Largest largest{0, first + 1};
    for (std::size_t begin = first + 1; begin < last; begin += blockSize) {
        largest.add(ofBlock(line, points + begin, std::min(blockSize, last - begin)), begin);
    }
    return largest;
}

}  // namespace

void Largest::add(double candidate, std::size_t from)
{
    if (!(candidate > numerator)) return;
    if (candidate * (1 - tieMargin) > numerator) searchFrom = from;
    numerator = candidate;
}

Line::Line(const Point& a, const Point& b)
    : dx(b.x - a.x), dy(b.y - a.y), productXY(b.x * a.y), productYX(b.y * a.x), length(std::sqrt(dx * dx + dy * dy))
{
}

double Line::numerator(const Point& p) const
{
    return std::abs(dy * p.x - dx * p.y + productXY - productYX);
}

std::optional<std::size_t> farthestPointPlain(const Point* points, std::size_t first, std::size_t last, double epsilon)
{
    const Point& a = points[first];
    const Point& b = points[last];
    if (coincide(a, b)) return firstPointOff(points, first, last, epsilon);
    return farthestByFormula(Line(a, b), points, first, last, epsilon);
}

// Dividing by one length keeps the order, so the largest numerator gives the
// largest distance, and only its near-equals need the division to find the
// first that rounds to the same.
std::optional<std::size_t> farthestPoint(const Point* points, std::size_t first, std::size_t last, double epsilon,
                                         const HullTree* hulls)
{
    const Point& a = points[first];
    const Point& b = points[last];
    if (coincide(a, b)) return firstPointOff(points, first, last, epsilon);
    const Line line(a, b);
    if (!std::isnormal(line.length)) return farthestByFormula(line, points, first, last, epsilon);

    const bool isWorthHulls = hulls && last - first > shortestForHulls;
    const Largest largest =
        isWorthHulls ? hulls->largestBetween(line, first + 1, last) : largestOf(line, points, first, last);
    const double distance = largest.numerator / line.length;
    if (!(distance > epsilon)) return std::nullopt;
    if (distance < smallestSafe || largest.numerator < smallestSafe || std::isinf(distance)) {
        return farthestByFormula(line, points, first, last, epsilon);
    }
    const double least = largest.numerator * (1 - tieMargin);
    for (std::size_t k = largest.searchFrom;; ++k) {
        const double numerator = line.numerator(points[k]);
        if (numerator >= least && numerator / line.length == distance) return k;
    }
}

double largestNumeratorScalar(const Line& line, const Point* points, std::size_t count)
{
    double largest = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double numerator = line.numerator(points[i]);
        if (numerator > largest) largest = numerator;
    }
    return largest;
}

}  // namespace Fennick::internal
