#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/coding/ValueSink.h"

namespace Platform {

// A recorded document, flat: 16 bytes a value and one buffer of texts, so that
// building, copying and destroying it never recurse, however deep it is.
// A node is named by its number; the root is node 0. A value; reading: any thread.
class ValueTape final : public ValueSink {
public:
    enum class Kind : std::uint8_t {
        null,
        boolean,
        integer,
        unsignedInteger,
        real,
        text,
        date,
        url,
        array,
        dictionary
    };
    using Node = std::uint32_t;

    void null() override { add(Kind::null, 0); }
    void boolean(bool value) override { add(Kind::boolean, value); }
    void integer(std::int64_t value) override { add(Kind::integer, static_cast<std::uint64_t>(value)); }
    void unsignedInteger(std::uint64_t value) override { add(Kind::unsignedInteger, value); }
    void real(double value) override;
    void text(std::string_view value) override { addText(Kind::text, value); }
    void date(Date value) override;
    void url(const Url& value) override { addText(Kind::url, value.absoluteString()); }
    void beginArray() override { begin(Kind::array); }
    void endArray() override { end(); }
    void beginDictionary() override { begin(Kind::dictionary); }
    void key(std::string_view key) override;
    void endDictionary() override { end(); }
    CodingPath codingPath() const override;

    bool isEmpty() const { return nodes_.empty(); }

    Kind kind(Node node) const { return nodes_[node].kind; }
    bool boolean(Node node) const { return nodes_[node].bits != 0; }
    std::int64_t integer(Node node) const { return static_cast<std::int64_t>(nodes_[node].bits); }
    std::uint64_t unsignedInteger(Node node) const { return nodes_[node].bits; }
    // Of a real or a date.
    double real(Node node) const;
    // Of a text, a URL or a key; lives as long as the tape is unchanged.
    std::string_view text(Node node) const;

    // How many values an array or dictionary holds, a repeated key counted each time.
    std::size_t count(Node container) const { return nodes_[container].extent; }
    // An array's children are values; a dictionary's are key and value in turn.
    Node firstChild(Node container) const { return container + 1; }
    // The node behind this one and all that it holds.
    Node next(Node node) const;
    // A dictionary's value; of a repeated key the last one.
    std::optional<Node> member(Node dictionary, std::string_view key) const;

    // Feeds one node and all that it holds.
    void replay(Node node, ValueSink& sink) const;
    CodingPath pathOf(Node node) const;

private:
    struct Record {
        std::uint64_t bits;    // the value; a text's offset; behind a container's last child
        std::uint32_t extent;  // a text's length; how many values a container holds
        Kind kind;
    };

    void add(Kind kind, std::uint64_t bits, std::uint32_t extent = 0);
    void addText(Kind kind, std::string_view value);
    void begin(Kind kind);
    void end();
    CodingKey stepTo(Node container, Node lastChild) const;
    std::optional<Node> keyWithoutValue(Node dictionary) const;
    void replayScalar(Node node, ValueSink& sink) const;

    std::vector<Record> nodes_;
    std::vector<Node> open_;
    std::string texts_;
};

}  // namespace Platform
