#pragma once

#include <string_view>
#include <tuple>

namespace Platform {

// One member of a record and the key under which it is coded.
template <typename Record, typename Member>
struct CodingField {
    std::string_view key;
    Member Record::*member;
};

template <typename Record, typename Member>
constexpr CodingField<Record, Member> codingField(std::string_view key, Member Record::*member)
{
    return {key, member};
}

// A struct becomes encodable and decodable by naming its fields:
//
//     struct Device {
//         std::string model;
//         std::optional<int> year;
//
//         static constexpr auto codingFields()
//         {
//             return std::tuple(codingField("model", &Device::model), codingField("year", &Device::year));
//         }
//     };
//
// An absent optional member is left out; when decoding, a missing or null one is absent.
template <typename T>
concept CodedRecord = requires
{
    T::codingFields();
};

}  // namespace Platform
