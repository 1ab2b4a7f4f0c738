#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "Fennick/RamerDouglasPeucker.h"
#include "Fennick/internal/FarthestPoint.h"
#include "tests/support/Torture.h"

using namespace Fennick;

namespace {

using Points = std::vector<Point>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

void plainSegment(const Points& points, std::size_t first, std::size_t last, double epsilon, Points& kept)
{
    if (first >= last) return;
    const auto split = internal::farthestPointPlain(points.data(), first, last, epsilon);
    if (!split) return kept.push_back(points[last]);
    plainSegment(points, first, *split, epsilon, kept);
    plainSegment(points, *split, last, epsilon, kept);
}

Points plainSimplify(const Points& points, double epsilon)
{
    Points kept{points.front()};
    plainSegment(points, 0, points.size() - 1, epsilon, kept);
    return kept;
}

// Texts, so that points that are not numbers compare too.
std::string textOf(const Points& points)
{
    std::string text;
    for (const Point& point : points) text += description(point);
    return text;
}

// Series that tie, repeat, return to their start, bulge, lie far from zero, reach the limits of the type or are no
// numbers; those with spikes split off little at a time, so that hulls are asked for.
constexpr unsigned kinds = 12;

Points series(std::mt19937& random, unsigned kind, std::size_t count)
{
    const double scale = std::pow(10.0, static_cast<int>(random() % 620) - 320);
    Points points;
    double walk = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double at = static_cast<double>(i);
        const double noise = static_cast<double>(random()) / 4e9 - 0.5;
        const double few = static_cast<double>(random() % 3);
        const double bulge = std::pow(at - static_cast<double>(count) / 2, 2);
        walk += noise;
        const double odd = random() % 9 ? walk : kind % 2 ? notANumber : infinity;
        const double spike = i % 2 ? 1e6 - at * 10 : 0;
        const double far = 1.7e9 + at * 0.1;
        const Point of[kinds] = {
            {at, walk},   {at, few},   {at, spike + noise},        {at, bulge}, {far, noise}, {at, spike + few},
            {few, spike}, {walk, few}, {at * scale, walk * scale}, {at, odd},   {odd, at},    {at, spike + odd}};
        points.push_back(of[kind]);
    }
    return points;
}

}  // namespace

TEST(RamerDouglasPeucker, KeepsWhatDepartsByMoreThanTheTolerance)
{
    const struct {
        Points points;
        double epsilon;
        Points kept;
    } cases[] = {
        {{}, 1, {}},
        {{{1, 2}, {1, 2}}, 0, {{1, 2}, {1, 2}}},
        {{{0, 0}, {1, 5}, {2, 0}}, 1, {{0, 0}, {1, 5}, {2, 0}}},
        {{{0, 0}, {1, 5}, {2, 0}}, 5, {{0, 0}, {2, 0}}},
        {{{0, 0}, {1, 5}, {2, 0}}, -1, {}},
        {{{0, 0}, {1, 5}, {2, 0}}, infinity, {{0, 0}, {2, 0}}},
        // Ends that coincide: the first point off them splits at any tolerance.
        {{{3, 4}, {3, 4}, {3.5, 4}, {9, 9}, {3, 4}}, 2, {{3, 4}, {3.5, 4}, {9, 9}, {3, 4}}},
        {{{3, 4}, {3, 4}, {3, 4}}, 0, {{3, 4}, {3, 4}}},
        {{{3, 4}, {9, 9}, {3, 4}}, infinity, {{3, 4}, {3, 4}}},
        // Of equal distances the first wins; the second is then within the tolerance of what is left.
        {{{0, 0}, {1, 2}, {2, 2}, {3, 0}}, 1.7, {{0, 0}, {1, 2}, {3, 0}}},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(RamerDouglasPeucker::simplify(given.points, given.epsilon), given.kept) << textOf(given.points);
    }
}

TEST(RamerDouglasPeucker, KeepsThePlainAlgorithmsPointsOnAnySeries)
{
    std::mt19937 random(Tests::seedOf(20'240));
    const long rounds = Tests::atLength("polylines", 4'400);
    for (unsigned round = 0; round < rounds; ++round) {
        const std::size_t count = 1 + random() % (round % 400 < kinds ? 2'500 : 60);
        const Points points = series(random, round % kinds, count);
        const double epsilon = std::array{0.0, 0.3, 1.0, 4.0}[random() % 4];
        ASSERT_EQ(textOf(RamerDouglasPeucker::simplify(points, epsilon)), textOf(plainSimplify(points, epsilon)))
            << "round " << round;
    }
}

TEST(Simplified, ThinsNumbersOfEachType)
{
    EXPECT_EQ(simplified(std::vector<long>{0, 0, 10, 0, 0}), (std::vector<long>{0, 10, 0}));
    EXPECT_EQ(simplified(std::vector<long long>{1, 2, 3, 4}), (std::vector<long long>{1, 4}));
    EXPECT_EQ(simplified(std::vector<Platform::CGFloat>{Platform::CGFloat(2)}).at(0), 2.0);
    constexpr long most = std::numeric_limits<long>::max();
    constexpr long least = std::numeric_limits<long>::min();
    EXPECT_EQ(simplified(std::vector<long>{most, least, 5}), (std::vector<long>{most, least, 5}));
}
