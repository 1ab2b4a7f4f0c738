#include <gtest/gtest.h>

#include "platform/ui/text/AttributedString.h"
#include "platform/ui/text/TextAttachment.h"
#include "tests/platform/ui/Pixels.h"

using namespace Platform;

namespace {

const Font font = Font::named("DejaVu Sans", 20);

AttributedString text(const std::string& content)
{
    return AttributedString(content, {{fontAttribute, font}});
}

TEST(TextSize, LinesAddUpAndLongOnesWrap)
{
    const Size one = text("Measure").boundingSize();
    EXPECT_GT(one.width, 60);
    EXPECT_NEAR(one.height, font.ascender() + font.descender() + font.leading(), 1);
    EXPECT_EQ(text("").boundingSize(), Size{});
    const struct {
        const char* content;
        Size maximum;
        double lines;
    } cases[] = {
        {"Measure\nMeasure", {}, 2},
        {"Measure Measure", {one.width + 1, 0}, 2},
        {"Measure Measure", {500, 0}, 1},
        {"Measure", {one.width * 0.8, 0}, 2},
        {"a\nb\nc\nd", {0, 2.5 * one.height}, 2},
        {"a\nb", {0, 1}, 1},
        {"a b", {std::nan(""), std::nan("")}, 1},
    };
    for (const auto& each : cases) {
        EXPECT_NEAR(text(each.content).boundingSize(each.maximum).height, each.lines * one.height, 0.5) << each.content;
    }
}

// Neither kind may take more than time in proportion to its length.
TEST(TextSize, AMegabyteIsMeasured)
{
    std::string words;
    while (words.size() < (1u << 20)) words += "measure ";
    for (const std::string& content : {words, std::string(1u << 20, 'x')}) {
        EXPECT_GT(text(content).boundingSize({400, 0}).height, 100'000);
        EXPECT_LE(text(content).boundingSize({400, 100}).height, 100);
    }
    EXPECT_GT(text(std::string(1u << 20, '\n')).boundingSize().height, 1'000'000);
}

TEST(Attachment, TakesItsWidthMakesRoomAndIsDrawnAboveTheBaseLine)
{
    const auto attached = [](const Rect& bounds) {
        auto attachment = std::make_shared<TextAttachment>();
        attachment->setImage(Tests::plainImage(10, 10, 0xff00ff00));
        attachment->setBounds(bounds);
        return AttributedString(attachment);
    };
    const Size plain = text("ab").boundingSize();
    const auto sizeWith = [&](const Rect& bounds) {
        return text("a").append(attached(bounds)).append(text("b")).boundingSize();
    };
    EXPECT_NEAR(sizeWith(Rect::of(0, 0, 30, 5)).width, plain.width + 30, 1.5);
    EXPECT_NEAR(sizeWith(Rect::of(0, 0, 30, 5)).height, plain.height, 0.5);
    EXPECT_NEAR(sizeWith(Rect::of(0, -60, 30, 100)).height, 100, 0.5);

    const auto image = std::make_shared<Image>(Size{60, 60});
    {
        ImageFocus focus(image);
        attached(Rect::of(0, 10, 20, 30)).draw(Point{5, 0});
    }
    // Line: 40 above the base line; the image from 10 to 40 above it.
    EXPECT_EQ(image->bitmap()->pixel(10, 15), 0xff00ff00u);
    EXPECT_EQ(image->bitmap()->pixel(10, 35), 0u);
    EXPECT_EQ(image->bitmap()->pixel(2, 15), 0u);
}

TEST(TextDrawing, UsesTheColorAndTheAlignment)
{
    const auto style = std::make_shared<ParagraphStyle>(ParagraphStyle{TextAlignment::right});
    const AttributedString red("I", {{fontAttribute, font},
                                     {foregroundColorAttribute, Color::calibratedRGB(1, 0, 0)},
                                     {paragraphStyleAttribute, style}});
    const auto image = std::make_shared<Image>(Size{100, 30});
    {
        ImageFocus focus(image);
        red.draw(Rect::of(0, 0, 100, 30));
    }
    int reds = 0, others = 0;
    for (const auto& row : Tests::rowsOf(image)) {
        for (std::size_t x = 0; x < row.size(); ++x) {
            if (row[x] >> 24 != 0) ++(x > 85 && (row[x] & 0xffff) == 0 ? reds : others);
        }
    }
    EXPECT_GT(reds, 10);
    EXPECT_EQ(others, 0);
}

}  // namespace
