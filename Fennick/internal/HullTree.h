#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "Fennick/internal/FarthestPoint.h"

namespace Fennick::internal {

// The convex hulls of a series' stretches, of 128 points and then always of two
// together. It tells a stretch that cannot hold the farthest point from its hull
// alone, so that series whose every split cuts off little need no look at all
// their points each time.
class HullTree {
public:
    // Absent for points whose x does not rise throughout, or which are too large
    // or no numbers. Refers to the points.
    static std::optional<HullTree> over(std::span<const Point> points);

    // What looking at every point from begin up to end would find.
    Largest largestBetween(const Line& line, std::size_t begin, std::size_t end) const;

private:
    struct Chain {
        std::size_t begin = 0;
        std::size_t count = 0;
    };
    struct Node {
        Chain lower;
        Chain upper;
    };
    struct Search;

    explicit HullTree(std::span<const Point> points);
    void addLeaf(std::size_t node, std::size_t begin);
    void addParent(std::size_t node);
    Chain addChain(const std::vector<std::uint32_t>& candidates, double turn);
    double extreme(const Chain& chain, const Line& line, double side) const;
    double largestVertex(std::size_t node, const Line& line) const;
    double largestOfPoints(const Line& line, std::size_t begin, std::size_t end) const;
    void collect(Search& search, std::size_t firstLeaf, std::size_t endLeaf) const;
    void visit(Search& search, std::size_t node, double bound) const;

    std::span<const Point> points_;
    std::size_t leafCount_ = 1;
    std::vector<Node> nodes_;  // the root is 1, the children of i are 2i and 2i + 1
    std::vector<std::uint32_t> vertices_;
    double largestX_ = 0;
    double largestY_ = 0;
};

}  // namespace Fennick::internal
