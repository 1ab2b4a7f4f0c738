#include <cstdint>
#include <ctime>
#include <limits>

#include "platform/bundle/PropertyList.h"
#include "platform/bundle/internal/LibPlist.h"
#include "platform/bundle/internal/PropertyListGuard.h"
#include "platform/runtime/FileBytes.h"

namespace Platform {

namespace {

constexpr double secondsFrom1970To2001 = 978307200;

// The node alone as XML, which tells what libplist's accessors do not.
std::string xmlOf(plist_t node)
{
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node, &text, &length);
    std::string xml = text ? std::string(text, length) : "";
    plist_to_xml_free(text);
    return xml;
}

// Negative and huge integers have the same bits; only the XML differs.
PropertyList integerOf(plist_t node)
{
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) return value;
    const bool isNegative = xmlOf(node).find("<integer>-") != std::string::npos;
    return isNegative ? PropertyList(static_cast<std::int64_t>(value)) : PropertyList(value);
}

// The accessor has 32 bits of seconds around 2001; beyond them the XML has the date.
Date dateOf(plist_t node)
{
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    const bool isClipped = seconds == std::numeric_limits<std::int32_t>::min() ||  //
                           seconds == std::numeric_limits<std::int32_t>::max();
    if (!isClipped) return Date(secondsFrom1970To2001 + seconds + microseconds / 1e6);
    const std::string xml = xmlOf(node);
    const std::size_t start = xml.find("<date>");
    std::tm time{};
    if (start == std::string::npos || !::strptime(xml.c_str() + start + 6, "%Y-%m-%dT%H:%M:%SZ", &time)) return Date();
    return Date(static_cast<double>(::timegm(&time)));
}

PropertyList valueOf(plist_t node);

PropertyList dictionaryOf(plist_t node)
{
    PropertyListDictionary entries;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
    while (true) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        const std::unique_ptr<char, decltype(&std::free)> keyOwner(key, &std::free);
        if (!key || !item) return entries;
        entries.set(key, valueOf(item));
    }
}

PropertyList arrayOf(plist_t node)
{
    PropertyList::Array items;
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> owner(iterator, &std::free);
    while (true) {
        plist_t item = nullptr;
        plist_array_next_item(node, iterator, &item);
        if (!item) return items;
        items.push_back(valueOf(item));
    }
}

PropertyList textOf(plist_t node)
{
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return text ? std::string(text, length) : std::string();
}

PropertyList dataOf(plist_t node)
{
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    return bytes ? PropertyList::Data(bytes, bytes + length) : PropertyList::Data();
}

PropertyList scalarOf(plist_t node)
{
    std::uint8_t boolean = 0;
    double real = 0;
    std::uint64_t identifier = 0;
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN:
            plist_get_bool_val(node, &boolean);
            return boolean != 0;
        case PLIST_REAL:
            plist_get_real_val(node, &real);
            return real;
        case PLIST_UID:
            plist_get_uid_val(node, &identifier);
            return identifier;
        case PLIST_DATE:
            return dateOf(node);
        default:
            return integerOf(node);
    }
}

PropertyList valueOf(plist_t node)
{
    switch (plist_get_node_type(node)) {
        case PLIST_DICT:
            return dictionaryOf(node);
        case PLIST_ARRAY:
            return arrayOf(node);
        case PLIST_STRING:
            return textOf(node);
        case PLIST_DATA:
            return dataOf(node);
        default:
            return scalarOf(node);
    }
}

Error refused(std::string reason)
{
    return {"parse", "property list", 0, std::move(reason)};
}

bool looksLikeXml(std::string_view bytes)
{
    const std::size_t first = bytes.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && bytes[first] == '<';
}

}  // namespace

Result<PropertyList> PropertyList::parse(std::string_view bytes)
{
    if (bytes.empty()) return refused("empty");
    if (bytes.size() > largestPropertyList) return refused("too large");
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    const bool isBinary = bytes.starts_with("bplist");
    if (!isBinary && !looksLikeXml(bytes)) return refused("neither XML nor binary");
    if (auto fault = isBinary ? binaryPropertyListFault(bytes) : xmlPropertyListFault(bytes)) return refused(*fault);

    const CLocaleScope locale;
    plist_t parsed = nullptr;
    (isBinary ? plist_from_bin : plist_from_xml)(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &parsed);
    const PlistNode tree(parsed);
    if (!tree) return refused("damaged");
    return valueOf(tree.get());
}

Result<PropertyList> PropertyList::read(const std::string& path)
{
    auto bytes = readFileBytes(path, largestPropertyList);
    if (!bytes) return bytes.error();
    auto parsed = parse(*bytes);
    if (!parsed) return Error{"parse", path, 0, parsed.error().reason};
    return parsed;
}

}  // namespace Platform
