#include <gtest/gtest.h>

#include "Lorrel/presentation/ImageAttachment.h"
#include "Lorrel/presentation/Storyboards.h"
#include "Lorrel/presentation/TextUtilities.h"
#include "Lorrel/presentation/Views.h"
#include "platform/bundle/Bundle.h"
#include "tests/fakes/CapturingLog.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/TemporaryDirectory.h"

using namespace Platform;
using Lorrel::ImageAttachment;
using Lorrel::TextUtilities;

namespace {

TEST(ImageAttachment, IsCentredOnTheCapitals)
{
    const struct {
        double height, capHeight, y;
    } cases[] = {{20, 11, -4.5}, {12, 12.5, 0.5}, {12.5, 12, -0.5}, {10, 10, 0}, {10, 10.4, 0}, {11, 10.6, 0}};
    for (const auto& each : cases) {
        EXPECT_EQ(ImageAttachment::bounds({7, each.height}, each.capHeight), Rect::of(0, each.y, 7, each.height));
    }
    const auto image = Tests::plainImage(3, 50, 0xff000000);
    const Font font = Font::system(13);
    const ImageAttachment attachment(image, font);
    EXPECT_EQ(attachment.bounds(), ImageAttachment::bounds({3, 50}, font.capHeight()));
    EXPECT_EQ(ImageAttachment(image, std::nullopt).bounds(), Rect{});
    const ImageAttachment copy(attachment.archive());
    EXPECT_EQ(copy.bounds(), attachment.bounds());
    EXPECT_EQ(Tests::rowsOf(copy.image()), Tests::rowsOf(image));
}

TEST(TextUtilities, AttributesHaveExactlyThreeEntries)
{
    const Color color = Color::calibratedRGB(0.1, 0.2, 0.3), label = Color::labelColor();
    const Font plain = Font::system(9), bold = Font::boldSystem(9), other = Font::named("DejaVu Serif", 5);
    using enum TextAlignment;
    const std::tuple<TextAttributes, Font, Color, TextAlignment> cases[] = {
        {TextUtilities::attributes(color, right, 9), plain, color, right},
        {TextUtilities::attributes(color, 9), plain, color, center},
        {TextUtilities::attributes(left, color, true, 9), bold, color, left},
        {TextUtilities::attributes(justified, 9), plain, label, justified},
        {TextUtilities::attributes(other, color, left), other, color, left},
        {TextUtilities::attributes(other, color), other, color, center},
        {TextUtilities::attributes(true, right, 9), bold, label, right},
        {TextUtilities::attributes(9), plain, label, center}};
    int row = 0;
    for (const auto& [look, font, ink, alignment] : cases) {
        SCOPED_TRACE(row++);
        ASSERT_EQ(look.size(), 3u);
        EXPECT_EQ(std::get<Font>(look.at("NSFont")), font);
        EXPECT_EQ(std::get<Color>(look.at("NSColor")), ink);
        EXPECT_EQ(std::get<std::shared_ptr<ParagraphStyle>>(look.at("NSParagraphStyle"))->alignment, alignment);
    }
}

TEST(TextUtilities, MeasureTextsAndNothing)
{
    const Font font = Font::system(15);
    EXPECT_EQ(TextUtilities::size(std::nullopt, font, 100, 100), Size{});
    EXPECT_EQ(TextUtilities::height(std::nullopt, font), 0);
    EXPECT_LE(TextUtilities::size("many words in a row", font, 60, 0).width, 60);
}

TEST(TextUtilities, FlagMovesEveryCharacter)
{
    const std::pair<std::string, std::string> cases[] = {
        {"DE", "\U0001F1E9\U0001F1EA"}, {"de", "\U0001F209\U0001F20A"}, {"é", "\U0001F28E"},
        {"\xf4\x8f\xbf\xbf", ""},     // leads out of Unicode
        {"A\xff\xc3", "\U0001F1E6"},  // no UTF-8
        {"\xed\xa0\x80", ""},         // half a surrogate
    };
    for (const auto& [code, flag] : cases) EXPECT_EQ(TextUtilities::flag(code), flag) << code;
}

struct MainController final : ViewController {};
struct OtherController final : ViewController {};

TEST(Storyboards, MakeControllersOfTheWantedType)
{
    Tests::TemporaryDirectory folder;
    folder.write("A.app/Contents/Resources/Main.storyboard",
                 "# controllers\ninitial: main\nmain : MainController\r\nother: OtherController\nlost: Unknown\nno\n");
    const Shared<Bundle>::Override bundle(Bundle::open(folder / "A.app"));
    const Shared<ControllerClasses>::Override fresh;
    ControllerClasses::shared().add<MainController>("MainController");
    ControllerClasses::shared().add<OtherController>("OtherController");
    const Tests::ReplacedLog log;
    EXPECT_TRUE(Lorrel::instantiateInitialController<MainController>("Main"));
    EXPECT_FALSE(Lorrel::instantiateInitialController<OtherController>("Main"));
    EXPECT_TRUE(Lorrel::instantiateController<OtherController>("Main", "other"));
    for (const char* none : {"lost", "absent"}) EXPECT_FALSE(Lorrel::instantiateController("Main", none)) << none;
    EXPECT_TRUE(log->messages().empty());
    EXPECT_FALSE(Lorrel::instantiateInitialController("Missing"));
    EXPECT_EQ(log->count("Missing"), 1u);
}

TEST(Views, CenterInTheirSuperview)
{
    const auto parent = std::make_shared<View>(Rect::of(0, 0, 100, 60)), child = std::make_shared<View>();
    Lorrel::centerInSuperview(child, 20, 10);
    EXPECT_TRUE(child->constraints().empty()) << "there is none";
    parent->addSubview(child);
    Lorrel::centerInSuperview(child, 20, 10);
    parent->layoutSubtreeIfNeeded();
    EXPECT_EQ(child->frame(), Rect::of(40, 25, 20, 10));
}

}  // namespace
