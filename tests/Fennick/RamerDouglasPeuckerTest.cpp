#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "Fennick/RamerDouglasPeucker.h"
#include "Fennick/internal/FarthestPoint.h"
#include "Fennick/internal/HullTree.h"

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

// Series that tie, repeat, return to their start, reach the limits of the type or are no numbers.
Points randomSeries(std::mt19937& random)
{
    const std::size_t count = 1 + random() % (random() % 40 == 0 ? 2'000 : 60);
    const int kind = static_cast<int>(random() % 8);
    const double scale = std::pow(10.0, kind == 5 ? static_cast<int>(random() % 620) - 320 : 0);
    Points points;
    double walk = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double at = static_cast<double>(i);
        const double noise = static_cast<double>(random()) / 4e9 - 0.5;
        walk += noise;
        const double values[] = {walk,
                                 std::sin(at / 20) * 5 + noise,
                                 static_cast<double>(random() % 3),
                                 i % 2 ? at : 0,
                                 i % 2 ? 4.0 : 0.0,
                                 walk * scale,
                                 random() % 9 ? walk : notANumber,
                                 random() % 9 ? walk : infinity};
        const bool isLoop = kind == 2;
        points.push_back({isLoop ? static_cast<double>(random() % 3) : at * (kind == 5 ? scale : 1), values[kind]});
    }
    return points;
}

// Series in the order of time that tie a lot, bulge, lie far from zero or are all but straight.
Points longSeries(std::mt19937& random, int kind)
{
    const std::size_t count = 1'200 + random() % 3'000;
    Points points;
    double walk = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double at = static_cast<double>(i);
        const double noise = static_cast<double>(random()) / 4e9 - 0.5;
        walk += noise;
        const double middle = at - static_cast<double>(count) / 2;
        const double values[] = {
            walk,    static_cast<double>(random() % 3), i % 2 ? 1e6 - at * 10 : 0, middle * middle, 1e9 + noise * 1e-6,
            0.1 * at};
        points.push_back({kind == 4 ? 1.7e9 + at * 0.1 : at, values[kind]});
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
        {{{7, 8}}, 0, {{7, 8}}},
        {{{1, 2}, {1, 2}}, 0, {{1, 2}, {1, 2}}},
        {{{0, 0}, {1, 1}, {2, 2}}, 0, {{0, 0}, {2, 2}}},
        {{{0, 0}, {1, 5}, {2, 0}}, 1, {{0, 0}, {1, 5}, {2, 0}}},
        {{{0, 0}, {1, 5}, {2, 0}}, 5, {{0, 0}, {2, 0}}},
        {{{0, 0}, {1, 5}, {2, 0}}, -1, {}},
        {{{0, 0}, {1, 5}, {2, 0}}, notANumber, {}},
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
    std::mt19937 random(20'240);
    for (int round = 0; round < 4'000; ++round) {
        const Points points = randomSeries(random);
        const double epsilon = std::array{0.0, 0.3, 1.0, 4.0}[random() % 4];
        ASSERT_EQ(textOf(RamerDouglasPeucker::simplify(points, epsilon)), textOf(plainSimplify(points, epsilon)))
            << "round " << round;
    }
}

TEST(RamerDouglasPeucker, FindsTheSameFarthestPointByHulls)
{
    std::mt19937 random(7);
    std::size_t served = 0;
    for (int round = 0; round < 400; ++round) {
        const Points points = longSeries(random, round % 6);
        const auto hulls = internal::HullTree::over(points);
        served += hulls.has_value();
        for (int i = 0; hulls && i < 12; ++i) {
            const std::size_t first = random() % (points.size() - 1'030);
            const std::size_t last = first + 1'028 + random() % (points.size() - first - 1'028);
            ASSERT_EQ(internal::farthestPoint(points.data(), first, last, 0, &*hulls),
                      internal::farthestPointPlain(points.data(), first, last, 0))
                << "round " << round << " from " << first << " to " << last;
        }
    }
    EXPECT_EQ(served, 400u);
    EXPECT_FALSE(internal::HullTree::over(Points{{0, 0}, {1, notANumber}}));
    EXPECT_FALSE(internal::HullTree::over(Points{{0, 0}, {0, 1}}));
}

TEST(RamerDouglasPeucker, GoesAsDeepAsTheSeriesIsLong)
{
    Points spikes;
    for (int i = 0; i < 5'000; ++i) spikes.push_back({static_cast<double>(i), i % 2 ? 1e6 - i * 10.0 : 0});
    EXPECT_EQ(RamerDouglasPeucker::simplify(spikes, 1).size(), spikes.size());
    EXPECT_EQ(textOf(RamerDouglasPeucker::simplify(spikes, 500)), textOf(plainSimplify(spikes, 500)));
}

TEST(Simplified, ThinsNumbersOfEachType)
{
    EXPECT_EQ(simplified(std::vector<long>{0, 0, 10, 0, 0}), (std::vector<long>{0, 10, 0}));
    EXPECT_EQ(simplified(std::vector<long long>{1, 2, 3, 4}), (std::vector<long long>{1, 4}));
    EXPECT_EQ(simplified(std::vector<double>{0.5, 9.25, 0.5}), (std::vector<double>{0.5, 9.25, 0.5}));
    EXPECT_EQ(simplified(std::vector<Platform::CGFloat>{Platform::CGFloat(2)}).at(0), 2.0);
    EXPECT_TRUE(simplified(std::vector<long>()).empty());
    constexpr long most = std::numeric_limits<long>::max();
    constexpr long least = std::numeric_limits<long>::min();
    EXPECT_EQ(simplified(std::vector<long>{most, least, 5}), (std::vector<long>{most, least, 5}));
}

TEST(PointText, ReadsBackFromTheShortestDecimals)
{
    EXPECT_EQ(description({3, 2.5}), "(3.0, 2.5)");
    EXPECT_EQ(description({-0.0, 0.1 + 0.2}), "(-0.0, 0.30000000000000004)");
    EXPECT_EQ(description({1e16, 1e-7}), "(1e+16, 1e-07)");
    EXPECT_EQ(description({-infinity, notANumber}), "(-inf, nan)");
}
