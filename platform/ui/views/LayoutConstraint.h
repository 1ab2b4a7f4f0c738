#pragma once

#include <memory>
#include <vector>

namespace Platform {

class View;

enum class LayoutAttribute { left, right, top, bottom, centerX, centerY, width, height };

// One edge, centre or side of a view that equals another one's plus a
// constant, or a constant alone. Inactive until activated; an active one is
// held by the nearest view that both views lie in. Views are held weakly.
// There is no general solver: a view's place is computed from constraints to
// its superview and to siblings before it. Thread: main.
class LayoutConstraint : public std::enable_shared_from_this<LayoutConstraint> {
public:
    LayoutConstraint(const std::shared_ptr<View>& first, LayoutAttribute firstAttribute,
                     const std::shared_ptr<View>& second, LayoutAttribute secondAttribute, double constant);

    std::shared_ptr<View> firstView() const { return first_.lock(); }
    std::shared_ptr<View> secondView() const { return second_.lock(); }
    LayoutAttribute firstAttribute() const { return firstAttribute_; }
    LayoutAttribute secondAttribute() const { return secondAttribute_; }
    bool hasSecondView() const { return hasSecond_; }

    double constant() const { return constant_; }
    // Lays the views out again where it is active.
    void setConstant(double constant);
    bool isActive() const { return !holder_.expired(); }
    // Views without a common ancestor cannot be constrained: it then stays inactive.
    void setActive(bool active);

    static void activate(const std::vector<std::shared_ptr<LayoutConstraint>>& constraints);
    static void deactivate(const std::vector<std::shared_ptr<LayoutConstraint>>& constraints);

private:
    std::weak_ptr<View> first_;
    std::weak_ptr<View> second_;
    LayoutAttribute firstAttribute_;
    LayoutAttribute secondAttribute_;
    bool hasSecond_;
    double constant_;
    std::weak_ptr<View> holder_;
};

using ConstraintRef = std::shared_ptr<LayoutConstraint>;

// One attribute of a view, from which constraints are made. Holds the view weakly.
class LayoutAnchor {
public:
    LayoutAnchor(const std::shared_ptr<View>& view, LayoutAttribute attribute) : view_(view), attribute_(attribute) {}

    ConstraintRef constraintEqualTo(const LayoutAnchor& other, double constant = 0) const;
    // For width and height.
    ConstraintRef constraintEqualToConstant(double constant) const;

private:
    std::weak_ptr<View> view_;
    LayoutAttribute attribute_;
};

}  // namespace Platform
