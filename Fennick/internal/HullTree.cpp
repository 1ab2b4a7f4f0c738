#include "Fennick/internal/HullTree.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Fennick::internal {

namespace {

constexpr std::size_t leafSize = 128;
constexpr double largestCoordinate = 1e150;  // products of differences stay finite
// Many times what rounding can move a numerator or a hull's corner, by the size of its terms.
constexpr double roundingMargin = 0x1p-40;

double turnOf(const Point& o, const Point& a, const Point& b)
{
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

bool isServed(std::span<const Point> points)
{
    if (points.size() >= std::size_t{1} << 31) return false;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& p = points[i];
        if (!(std::abs(p.x) < largestCoordinate && std::abs(p.y) < largestCoordinate)) return false;
        if (i > 0 && !(points[i - 1].x < p.x)) return false;
    }
    return true;
}

}  // namespace

struct HullTree::Search {
    // Nodes that make up the stretch but for its ragged ends, each with its largest corner.
    struct Piece {
        std::size_t node;
        double bound;
    };

    const Line& line;
    double margin;
    double least = 0;  // a numerator that some point has
    Largest largest;
    std::array<Piece, 64> left{};   // in order
    std::array<Piece, 64> right{};  // from the last to the first
    std::size_t leftCount = 0;
    std::size_t rightCount = 0;

    bool mayMatter(double bound) const { return !(bound + margin < least); }
};

std::optional<HullTree> HullTree::over(std::span<const Point> points)
{
    if (!isServed(points)) return std::nullopt;
    return HullTree(points);
}

HullTree::HullTree(std::span<const Point> points) : points_(points)
{
    while (leafCount_ * leafSize < points.size()) leafCount_ *= 2;
    nodes_.resize(2 * leafCount_);
    for (const Point& p : points) {
        largestX_ = std::max(largestX_, std::abs(p.x));
        largestY_ = std::max(largestY_, std::abs(p.y));
    }
    for (std::size_t leaf = 0; leaf < leafCount_; ++leaf) addLeaf(leafCount_ + leaf, leaf * leafSize);
    for (std::size_t node = leafCount_ - 1; node > 0; --node) addParent(node);
}

void HullTree::addLeaf(std::size_t node, std::size_t begin)
{
    std::vector<std::uint32_t> all;
    for (std::size_t i = begin; i < std::min(begin + leafSize, points_.size()); ++i) {
        all.push_back(static_cast<std::uint32_t>(i));
    }
    nodes_[node] = {addChain(all, 1), addChain(all, -1)};
}

void HullTree::addParent(std::size_t node)
{
    const auto cornersOf = [&](Chain Node::*chain) {
        std::vector<std::uint32_t> corners;
        for (const Node& child : {nodes_[2 * node], nodes_[2 * node + 1]}) {
            const auto* first = vertices_.data() + (child.*chain).begin;
            corners.insert(corners.end(), first, first + (child.*chain).count);
        }
        return corners;
    };
    nodes_[node] = {addChain(cornersOf(&Node::lower), 1), addChain(cornersOf(&Node::upper), -1)};
}

// The corners at which a chain turns: left (1) for a lower chain, right (-1) for an upper one.
HullTree::Chain HullTree::addChain(const std::vector<std::uint32_t>& candidates, double turn)
{
    const std::size_t begin = vertices_.size();
    for (const std::uint32_t next : candidates) {
        while (vertices_.size() >= begin + 2 &&
               turn * turnOf(points_[vertices_[vertices_.size() - 2]], points_[vertices_.back()], points_[next]) <= 0) {
            vertices_.pop_back();
        }
        vertices_.push_back(next);
    }
    return {begin, vertices_.size() - begin};
}

// The numerator at the corner that lies farthest to one side of the line's
// direction. Edges turn one way, so those that lead outward come first.
double HullTree::extreme(const Chain& chain, const Line& line, double side) const
{
    if (chain.count == 0) return 0;
    const std::uint32_t* const corners = vertices_.data() + chain.begin;
    std::size_t low = 0;
    std::size_t high = chain.count - 1;
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        const Point& from = points_[corners[middle]];
        const Point& to = points_[corners[middle + 1]];
        const bool leadsOutward = side * (line.dy * (to.x - from.x) - line.dx * (to.y - from.y)) > 0;
        leadsOutward ? low = middle + 1 : high = middle;
    }
    return line.numerator(points_[corners[low]]);
}

double HullTree::largestVertex(std::size_t node, const Line& line) const
{
    return std::max(extreme(nodes_[node].lower, line, 1), extreme(nodes_[node].upper, line, -1));
}

double HullTree::largestOfPoints(const Line& line, std::size_t begin, std::size_t end) const
{
    return largestNumerator()(line, points_.data() + begin, std::min(end, points_.size()) - begin);
}

void HullTree::collect(Search& search, std::size_t firstLeaf, std::size_t endLeaf) const
{
    const auto piece = [&](std::size_t node) {
        const double bound = largestVertex(node, search.line);
        search.least = std::max(search.least, bound);
        return Search::Piece{node, bound};
    };
    std::size_t begin = leafCount_ + firstLeaf;
    std::size_t end = leafCount_ + endLeaf;
    for (; begin < end; begin /= 2, end /= 2) {
        if (begin % 2 == 1) search.left[search.leftCount++] = piece(begin++);
        if (end % 2 == 1) search.right[search.rightCount++] = piece(--end);
    }
}

// From left to right, passing over what cannot hold or equal the largest.
void HullTree::visit(Search& search, std::size_t node, double bound) const
{
    if (!search.mayMatter(bound)) return;
    if (node < leafCount_) {
        visit(search, 2 * node, largestVertex(2 * node, search.line));
        visit(search, 2 * node + 1, largestVertex(2 * node + 1, search.line));
        return;
    }
    const std::size_t begin = (node - leafCount_) * leafSize;
    search.largest.add(largestOfPoints(search.line, begin, begin + leafSize), begin);
    search.least = std::max(search.least, search.largest.numerator);
}

Largest HullTree::largestBetween(const Line& line, std::size_t begin, std::size_t end) const
{
    const std::size_t firstLeaf = (begin + leafSize - 1) / leafSize;
    const std::size_t endLeaf = end / leafSize;
    const std::size_t head = firstLeaf * leafSize;
    const std::size_t tail = endLeaf * leafSize;
    if (head >= tail) return {largestOfPoints(line, begin, end), begin};

    const double terms = std::abs(line.dy) * largestX_ + std::abs(line.dx) * largestY_ + std::abs(line.productXY) +
                         std::abs(line.productYX);
    Search search{.line = line, .margin = terms * roundingMargin, .largest = {0, begin}};
    search.largest.add(largestOfPoints(line, begin, head), begin);
    const double tailLargest = largestOfPoints(line, tail, end);
    search.least = std::max(search.largest.numerator, tailLargest);
    collect(search, firstLeaf, endLeaf);
    for (std::size_t i = 0; i < search.leftCount; ++i) visit(search, search.left[i].node, search.left[i].bound);
    for (std::size_t i = search.rightCount; i-- > 0;) visit(search, search.right[i].node, search.right[i].bound);
    search.largest.add(tailLargest, tail);
    return search.largest;
}

}  // namespace Fennick::internal
