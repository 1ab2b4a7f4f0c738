#include "platform/ui/icons/SymbolPath.h"

#include <array>
#include <charconv>
#include <span>

namespace Platform {
namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    // The next letter; 0 at the end.
    char letter()
    {
        skipSpaces();
        if (rest_.empty()) return 0;
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return letter;
    }

    double number()
    {
        skipSpaces();
        double value = 0;
        const auto read = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        rest_.remove_prefix(static_cast<std::size_t>(read.ptr - rest_.data()));
        return value;
    }

private:
    void skipSpaces()
    {
        while (!rest_.empty() && rest_.front() == ' ') rest_.remove_prefix(1);
    }

    std::string_view rest_;
};

// An arc goes on from the line before it, instead of beginning a part of its own.
void addArc(BezierPath& path, const std::array<double, 6>& n)
{
    const BezierPath arc = BezierPath::arc({n[0], n[1]}, n[2], n[3], n[4]);
    if (path.elements().empty()) return void(path.append(arc));
    for (const PathElement& element : arc.elements()) {
        const auto& p = element.points;
        if (element.kind == PathElementKind::moveTo) path.line(p[0]);
        if (element.kind == PathElementKind::curveTo) path.curve(p[2], p[0], p[1]);
    }
}

struct Step {
    char letter;
    std::size_t numbers;
    void (*add)(BezierPath&, const std::array<double, 6>&);
};

constexpr std::array steps{
    Step{'M', 2,
         [](BezierPath& path, const std::array<double, 6>& n) {
             path.move({n[0], n[1]});
         }},
    Step{'L', 2,
         [](BezierPath& path, const std::array<double, 6>& n) {
             path.line({n[0], n[1]});
         }},
    Step{'C', 6,
         [](BezierPath& path, const std::array<double, 6>& n) {
             path.curve({n[4], n[5]}, {n[0], n[1]}, {n[2], n[3]});
         }},
    Step{'Z', 0, [](BezierPath& path, const std::array<double, 6>&) { path.close(); }},
    Step{'O', 3,
         [](BezierPath& path, const std::array<double, 6>& n) {
             path.append(BezierPath::oval(Rect::of(n[0] - n[2], n[1] - n[2], 2 * n[2], 2 * n[2])));
         }},
    Step{'R', 5,
         [](BezierPath& path, const std::array<double, 6>& n) {
             path.append(BezierPath::roundedRect(Rect::of(n[0], n[1], n[2], n[3]), n[4], n[4]));
         }},
    Step{'A', 5, addArc},
};

const Step* stepOf(char letter)
{
    for (const Step& step : steps) {
        if (step.letter == letter) return &step;
    }
    return nullptr;
}

SymbolPart parseFigure(std::string_view figure)
{
    Reader reader(figure);
    const char style = reader.letter();
    SymbolPart part{{}, style == 'f' || style == 'F', style == 'S' || style == 'F'};
    while (const Step* step = stepOf(reader.letter())) {
        std::array<double, 6> numbers{};
        for (double& number : std::span(numbers).first(step->numbers)) number = reader.number();
        step->add(part.path, numbers);
    }
    return part;
}

}  // namespace

std::vector<SymbolPart> parseSymbol(std::string_view figures)
{
    std::vector<SymbolPart> parts;
    while (!figures.empty()) {
        const std::size_t end = figures.find(';');
        parts.push_back(parseFigure(figures.substr(0, end)));
        figures.remove_prefix(end == std::string_view::npos ? figures.size() : end + 1);
    }
    return parts;
}

}  // namespace Platform
