#include "Fennick/coding/internal/AnyValueBuilder.h"

#include <iterator>
#include <limits>
#include <span>
#include <string>
#include <utility>

#include "Fennick/coding/AnyDictionary.h"

namespace Fennick {

using Platform::CodingKey;
using Platform::CodingPath;

// The signed word is tried first.
void AnyValueBuilder::unsignedInteger(std::uint64_t value)
{
    if (std::in_range<std::int64_t>(value)) return integer(static_cast<std::int64_t>(value));
    pending_.emplace_back(value);
}

void AnyValueBuilder::endArray()
{
    const std::size_t start = levels_.back().start;
    const auto first = pending_.begin() + static_cast<std::ptrdiff_t>(start);
    finish(start, AnyArray(std::make_move_iterator(first), std::make_move_iterator(pending_.end())));
}

void AnyValueBuilder::endDictionary()
{
    const std::size_t start = levels_.back().start;
    finish(start, AnyDictionary::fromPairs(std::span(pending_).subspan(start)));
}

void AnyValueBuilder::finish(std::size_t start, AnyValue container)
{
    pending_.resize(start);
    levels_.pop_back();
    pending_.push_back(std::move(container));
}

CodingPath AnyValueBuilder::codingPath() const
{
    CodingPath path = decoder_.codingPath();
    for (std::size_t level = 0; level < levels_.size(); ++level) {
        const auto [start, isArray] = levels_[level];
        const std::size_t end = level + 1 < levels_.size() ? levels_[level + 1].start : pending_.size();
        const bool hasKey = (end - start) % 2 == 1;
        if (isArray) path.push_back(CodingKey::element(end - start));
        if (!isArray && hasKey) path.push_back(CodingKey::member(pending_[end - 1].textOr("")));
    }
    return path;
}

void AnyValueBuilder::refuse() const
{
    throw Platform::DecodingError::dataCorrupted(codingPath(), "AnyDecodable value cannot be decoded");
}

}  // namespace Fennick
