#include "platform/coding/ValueTape.h"

#include <bit>

namespace Platform {

void ValueTape::add(Kind kind, std::uint64_t bits, std::uint32_t extent)
{
    if (!open_.empty()) ++nodes_[open_.back()].extent;
    nodes_.push_back({bits, extent, kind});
}

void ValueTape::addText(Kind kind, std::string_view value)
{
    add(kind, texts_.size(), static_cast<std::uint32_t>(value.size()));
    texts_ += value;
}

void ValueTape::real(double value)
{
    add(Kind::real, std::bit_cast<std::uint64_t>(value));
}

void ValueTape::date(Date value)
{
    add(Kind::date, std::bit_cast<std::uint64_t>(value.timeIntervalSince1970()));
}

void ValueTape::key(std::string_view key)
{
    nodes_.push_back({texts_.size(), static_cast<std::uint32_t>(key.size()), Kind::text});
    texts_ += key;
}

void ValueTape::begin(Kind kind)
{
    add(kind, 0);
    open_.push_back(static_cast<Node>(nodes_.size() - 1));
}

void ValueTape::end()
{
    nodes_[open_.back()].bits = nodes_.size();
    open_.pop_back();
}

double ValueTape::real(Node node) const
{
    return std::bit_cast<double>(nodes_[node].bits);
}

std::string_view ValueTape::text(Node node) const
{
    return std::string_view(texts_).substr(nodes_[node].bits, nodes_[node].extent);
}

ValueTape::Node ValueTape::next(Node node) const
{
    const bool isContainer = kind(node) >= Kind::array;
    return isContainer ? static_cast<Node>(nodes_[node].bits) : node + 1;
}

std::optional<ValueTape::Node> ValueTape::member(Node dictionary, std::string_view key) const
{
    std::optional<Node> found;
    for (Node child = firstChild(dictionary); child < next(dictionary); child = next(child + 1)) {
        if (text(child) == key) found = child + 1;
    }
    return found;
}

void ValueTape::replayScalar(Node node, ValueSink& sink) const
{
    switch (kind(node)) {
        case Kind::null:
            return sink.null();
        case Kind::boolean:
            return sink.boolean(boolean(node));
        case Kind::integer:
            return sink.integer(integer(node));
        case Kind::unsignedInteger:
            return sink.unsignedInteger(unsignedInteger(node));
        case Kind::real:
            return sink.real(real(node));
        case Kind::text:
            return sink.text(text(node));
        case Kind::date:
            return sink.date(Date(real(node)));
        case Kind::url:
            if (const auto url = Url::parse(text(node))) return sink.url(*url);
            return sink.text(text(node));
        case Kind::array:
        case Kind::dictionary:
            return;
    }
}

void ValueTape::replay(Node node, ValueSink& sink) const
{
    std::vector<Node> open;
    const Node end = next(node);
    for (Node current = node;;) {
        while (!open.empty() && current == next(open.back())) {
            kind(open.back()) == Kind::array ? sink.endArray() : sink.endDictionary();
            open.pop_back();
        }
        if (current == end) return;
        if (!open.empty() && kind(open.back()) == Kind::dictionary) sink.key(text(current++));
        if (kind(current) < Kind::array) {
            replayScalar(current++, sink);
            continue;
        }
        kind(current) == Kind::array ? sink.beginArray() : sink.beginDictionary();
        open.push_back(current++);
    }
}

CodingPath ValueTape::pathOf(Node node) const
{
    CodingPath path;
    for (Node container = 0; container != node;) {
        const bool isArray = kind(container) == Kind::array;
        Node child = firstChild(container);
        std::size_t index = 0;
        for (Node behind = next(isArray ? child : child + 1); behind <= node; ++index) {
            child = behind;
            behind = next(isArray ? child : child + 1);
        }
        path.push_back(isArray ? CodingKey::element(index) : CodingKey::member(std::string(text(child))));
        container = isArray ? child : child + 1;
    }
    return path;
}

CodingPath ValueTape::codingPath() const
{
    CodingPath path;
    for (std::size_t level = 0; level + 1 < open_.size(); ++level)
        path.push_back(stepTo(open_[level], open_[level + 1]));
    if (open_.empty()) return path;
    const Node innermost = open_.back();
    if (kind(innermost) == Kind::array) {
        path.push_back(CodingKey::element(nodes_[innermost].extent));
    } else if (const auto waiting = keyWithoutValue(innermost)) {
        path.push_back(CodingKey::member(std::string(text(*waiting))));
    }
    return path;
}

CodingKey ValueTape::stepTo(Node container, Node lastChild) const
{
    if (kind(container) == Kind::array) return CodingKey::element(nodes_[container].extent - 1);
    return CodingKey::member(std::string(text(lastChild - 1)));
}

std::optional<ValueTape::Node> ValueTape::keyWithoutValue(Node dictionary) const
{
    Node key = firstChild(dictionary);
    while (key + 1 < nodes_.size()) key = next(key + 1);
    return key < nodes_.size() ? std::optional(key) : std::nullopt;
}

}  // namespace Platform
