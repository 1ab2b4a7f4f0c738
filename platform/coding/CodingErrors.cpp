#include "platform/coding/CodingErrors.h"

#include <utility>

namespace Platform {

CodingError::CodingError(CodingPath path, std::string description)
    : path_(std::move(path)), description_(std::move(description))
{
    what_ = path_.empty() ? description_ : pathText(path_) + ": " + description_;
}

DecodingError::DecodingError(Kind kind, CodingPath path, std::string description)
    : CodingError(std::move(path), std::move(description)), kind_(kind)
{
}

DecodingError DecodingError::dataCorrupted(CodingPath path, std::string description)
{
    return DecodingError(Kind::dataCorrupted, std::move(path), std::move(description));
}

EncodingError::EncodingError(std::any value, CodingPath path, std::string description)
    : CodingError(std::move(path), std::move(description)), value_(std::move(value))
{
}

EncodingError EncodingError::invalidValue(std::any value, CodingPath path, std::string description)
{
    return EncodingError(std::move(value), std::move(path), std::move(description));
}

}  // namespace Platform
