#pragma once

#include <any>
#include <exception>
#include <string>

#include "platform/coding/CodingPath.h"

namespace Platform {

// A document or value that coding refused: where, and why. what() joins both:
// "devices[3].model: Expected a text but found a number."
class CodingError : public std::exception {
public:
    const CodingPath& codingPath() const { return path_; }
    const std::string& description() const { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

protected:
    CodingError(CodingPath path, std::string description);

private:
    CodingPath path_;
    std::string description_;
    std::string what_;
};

class DecodingError : public CodingError {
public:
    enum class Kind {
        dataCorrupted,  // not a document of the format, or a value that does not fit the wanted type
        typeMismatch,   // a value of another type
        keyNotFound,    // the record lacks the member
        valueNotFound,  // null, or the end of an array, where a value is needed
    };

    DecodingError(Kind kind, CodingPath path, std::string description);

    static DecodingError dataCorrupted(CodingPath path, std::string description);

    Kind kind() const { return kind_; }

private:
    Kind kind_;
};

class EncodingError : public CodingError {
public:
    enum class Kind {
        invalidValue,  // a value that the format has no form for
    };

    static EncodingError invalidValue(std::any value, CodingPath path, std::string description);

    Kind kind() const { return Kind::invalidValue; }
    // The refused value, as the encoder met it.
    const std::any& value() const { return value_; }

private:
    EncodingError(std::any value, CodingPath path, std::string description);

    std::any value_;
};

}  // namespace Platform
