#pragma once

#include <vector>

#include "Fennick/coding/AnyValue.h"
#include "platform/coding/Decoder.h"
#include "platform/coding/ValueSink.h"

namespace Fennick {

// Builds the value that a decoder walks. Refuses what no trial of a decoder
// would take: dates and URLs in their own right.
class AnyValueBuilder final : public Platform::ValueSink {
public:
    explicit AnyValueBuilder(const Platform::Decoder& decoder) : decoder_(decoder) { pending_.reserve(64); }

    AnyValue take() { return std::move(pending_.front()); }

    void null() override { pending_.emplace_back(Null{}); }
    void boolean(bool value) override { pending_.emplace_back(value); }
    void integer(std::int64_t value) override { pending_.emplace_back(value); }
    void unsignedInteger(std::uint64_t value) override;
    void real(double value) override { pending_.emplace_back(value); }
    void text(std::string_view value) override { pending_.emplace_back(value); }
    void date(Platform::Date) override { refuse(); }
    void url(const Platform::Url&) override { refuse(); }
    void beginArray() override { levels_.push_back({pending_.size(), true}); }
    void endArray() override;
    void beginDictionary() override { levels_.push_back({pending_.size(), false}); }
    void key(std::string_view key) override { pending_.emplace_back(key); }
    void endDictionary() override;
    Platform::CodingPath codingPath() const override;

private:
    struct Level {
        std::size_t start;  // of what it holds so far, in the pending values
        bool isArray;
    };

    [[noreturn]] void refuse() const;
    void finish(std::size_t start, AnyValue container);

    AnyMemory::Paged paged_;
    const Platform::Decoder& decoder_;
    std::vector<AnyValue> pending_;  // of every open container, the outermost's first
    std::vector<Level> levels_;
};

}  // namespace Fennick
