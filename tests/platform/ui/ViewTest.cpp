#include <cmath>

#include <gtest/gtest.h>

#include "platform/ui/views/Button.h"
#include "platform/ui/views/View.h"
#include "tests/platform/ui/Pixels.h"
#include "tests/support/Chosen.h"

using namespace Platform;

namespace {

struct Pin {
    LayoutAttribute attribute;
    double constant;
    bool isToSuperview = true;
};

class Constraints : public testing::Test {
protected:
    Constraints()
    {
        child->setTranslatesAutoresizingMaskIntoConstraints(false);
        parent->addSubview(child);
    }

    Rect placed(const std::vector<Pin>& pins)
    {
        for (const Pin& pin : pins) {
            const LayoutAnchor own = child->anchor(pin.attribute);
            const auto constraint = pin.isToSuperview
                                        ? own.constraintEqualTo(parent->anchor(pin.attribute), pin.constant)
                                        : own.constraintEqualToConstant(pin.constant);
            constraint->setActive(true);
        }
        parent->layoutSubtreeIfNeeded();
        return child->frame();
    }

    ViewRef parent = std::make_shared<View>(Rect::of(50, 50, 100, 60));
    ViewRef child = std::make_shared<View>(Rect::of(1, 2, 30, 40));
};

TEST_F(Constraints, PlaceTheViewByWhatIsGivenAndFollowIt)
{
    using enum LayoutAttribute;
    const struct {
        std::vector<Pin> pins;
        Rect expected;
    } cases[] = {
        {{}, Rect::of(1, 2, 30, 40)},
        {{{left, 0}, {right, 0}, {top, 0}, {bottom, 0}}, Rect::of(0, 0, 100, 60)},
        {{{centerX, 0}, {centerY, 0}, {width, 20, false}, {height, 10, false}}, Rect::of(40, 25, 20, 10)},
        {{{right, -5}, {width, 20, false}}, Rect::of(75, 2, 20, 40)},
        {{{left, 10}, {centerX, 0}}, Rect::of(10, 2, 80, 40)},
        {{{bottom, -1}, {centerY, 4}}, Rect::of(1, 9, 30, 50)},
        {{{left, 80}, {right, -80}}, Rect::of(80, 2, 0, 40)},
        {{{width, std::nan(""), false}}, Rect::of(1, 2, 30, 40)},
    };
    for (const auto& each : cases) {
        LayoutConstraint::deactivate(parent->constraints());
        LayoutConstraint::deactivate(child->constraints());
        child->setFrame(Rect::of(1, 2, 30, 40));
        EXPECT_EQ(placed(each.pins), each.expected) << &each - cases;
    }

    placed({{right, 0}, {width, 20, false}});
    parent->setFrame(Rect::of(0, 0, 200, 60));
    child->constraints().back()->setConstant(50);
    parent->layoutSubtreeIfNeeded();
    EXPECT_EQ(child->frame().minX(), 150);
}

TEST_F(Constraints, EndWithTheSuperviewAndHoldNobody)
{
    const auto constraint = child->topAnchor().constraintEqualTo(parent->topAnchor());
    const auto own = child->widthAnchor().constraintEqualToConstant(9);
    LayoutConstraint::activate({constraint, own});
    child->removeFromSuperview();
    EXPECT_TRUE(own->isActive());
    EXPECT_TRUE(parent->constraints().empty());
    constraint->setActive(true);
    EXPECT_FALSE(constraint->isActive()) << "there is no view that holds both";

    parent->addSubview(child);
    constraint->setActive(true);
    EXPECT_TRUE(constraint->isActive());
    const std::weak_ptr<View> weak = parent;
    parent.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_FALSE(constraint->isActive());
    child->layoutSubtreeIfNeeded();
    constraint->setConstant(3);
    constraint->setActive(true);
    EXPECT_FALSE(constraint->isActive());
}

TEST(ViewTree, KeepsOrderAndOneSuperview)
{
    const auto root = std::make_shared<View>(), other = std::make_shared<View>();
    const auto a = std::make_shared<View>(), b = std::make_shared<View>(), c = std::make_shared<View>();
    using Views = std::vector<ViewRef>;
    root->addSubview(a);
    root->addSubview(b);
    root->addSubview(c, ViewPosition::below, nullptr);
    EXPECT_EQ(root->subviews(), (Views{c, a, b}));
    root->addSubview(c, ViewPosition::above, a);
    EXPECT_EQ(root->subviews(), (Views{a, c, b}));
    root->setSubviews({b, a, b});
    EXPECT_EQ(root->subviews(), (Views{b, a}));
    EXPECT_EQ(c->superview(), nullptr);
    other->setSubviews(root->subviews());
    EXPECT_EQ(other->subviews(), (Views{b, a}));
    EXPECT_TRUE(root->subviews().empty());
    root->addSubview(b);
    EXPECT_EQ(other->subviews(), Views{a});
    b->addSubview(root);
    EXPECT_EQ(root->superview(), nullptr) << "no view lies in itself";
    b->addSubview(b);
    EXPECT_TRUE(b->subviews().empty());
}

class Filled final : public View {
public:
    using View::View;
    void draw(const Rect& rect) override
    {
        GraphicsContext::current()->setFillColor(Color::labelColor().withAlpha(1));
        GraphicsContext::current()->fill(rect, CompositingOperation::sourceOver);
    }
};

TEST(ViewDrawing, ShowsLayersContentAndSubviewsForItsAppearance)
{
    const auto root = std::make_shared<Filled>(Rect::of(9, 9, 4, 2)),
               child = std::make_shared<Filled>(Rect::of(1, 0, 1, 9));
    const auto hidden = std::make_shared<Filled>(Rect::of(0, 0, 4, 2));
    child->setAppearance(Appearance(Appearance::highContrastDarkAqua));
    hidden->setHidden(true);
    root->setSubviews({child, hidden});
    constexpr std::uint32_t k = 0xff000000, w = 0xffffffff;
    EXPECT_EQ(Tests::rowsOf(root->rendered()), (Tests::Rows{{k, w, k, k}, {k, w, k, k}}));
    EXPECT_FALSE(child->needsDisplay());
    const auto layered = std::make_shared<View>(Rect::of(0, 0, 2, 1));
    layered->setWantsLayer(true);
    layered->layer()->setBackgroundColor(Color::calibratedRGB(1, 0, 0));
    EXPECT_EQ(Tests::rowsOf(layered->rendered()), (Tests::Rows{{0xffff0000, 0xffff0000}}));
}

TEST(Button, CallsItsTargetWhileItLivesAndIsEnabled)
{
    auto target = std::make_shared<Tests::Chosen>();
    const auto root = std::make_shared<View>(Rect::of(0, 0, 50, 50));
    const auto button = std::make_shared<Button>(Rect::of(10, 10, 20, 20));
    root->addSubview(button);
    button->setTarget(target);
    button->setAction(&Tests::Chosen::choose);
    button->setTag(7);
    for (const Point& place : {Point{15, 15}, {5, 5}, {500, 5}}) {
        if (const ViewRef view = root->hitTest(place)) view->mouseUp({});
    }
    button->setEnabled(false);
    button->performClick();
    EXPECT_EQ(target->tags, std::vector{7L});
    button->setEnabled(true);
    target.reset();
    button->performClick();
}

TEST(Button, AsksForRoomForImageAndTitleAndTintsTemplates)
{
    const auto button = std::make_shared<Button>();
    const auto image = Tests::plainImage(16, 16, 0xff0000ff);
    image->setTemplate(true);
    button->setImage(image);
    const Size picture = button->intrinsicContentSize();
    EXPECT_EQ(picture, (Size{24, 16}));
    button->setTitle("9 %");
    EXPECT_GT(button->intrinsicContentSize().width, picture.width + 10);
    button->setTitle("");
    button->setAppearance(Appearance(Appearance::darkAqua));
    button->setFrame({{}, picture});
    EXPECT_EQ(button->rendered()->bitmap()->pixel(12, 8), 0xd8d8d8d8) << "white in place of blue";
}

}  // namespace
