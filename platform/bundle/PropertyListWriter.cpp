#include <cmath>
#include <cstdint>
#include <ctime>
#include <limits>

#include "platform/bundle/PropertyList.h"
#include "platform/bundle/internal/LibPlist.h"
#include "platform/bundle/internal/PropertyListGuard.h"

namespace Platform {

namespace {

constexpr double secondsFrom1970To2001 = 978307200;

// Makes libplist's tree of a value; null once something cannot be written.
class TreeMaker {
public:
    PlistNode make(const PropertyList& value, int level)
    {
        if (level > deepestPropertyList) return refuse("nested too deeply");
        if (const auto* entries = value.dictionary()) return dictionary(*entries, level);
        if (const auto* items = value.array()) return array(*items, level);
        if (const auto* text = value.text()) return string(*text);
        if (const auto* bytes = value.data()) return data(*bytes);
        return scalar(value);
    }

    const std::string& reason() const { return reason_; }

private:
    PlistNode dictionary(const PropertyList::Dictionary& entries, int level)
    {
        PlistNode node(plist_new_dict());
        for (const auto& [key, value] : entries) {
            PlistNode item = isPlainUtf8(key) ? make(value, level + 1) : refuse("a key is not UTF-8");
            if (!item) return nullptr;
            plist_dict_set_item(node.get(), key.c_str(), item.release());
        }
        return node;
    }

    PlistNode array(const PropertyList::Array& items, int level)
    {
        PlistNode node(plist_new_array());
        for (const auto& value : items) {
            PlistNode item = make(value, level + 1);
            if (!item) return nullptr;
            plist_array_append_item(node.get(), item.release());
        }
        return node;
    }

    PlistNode string(const std::string& text)
    {
        if (!isPlainUtf8(text)) return refuse("a text is not UTF-8");
        return PlistNode(plist_new_string(text.c_str()));
    }

    static PlistNode data(const PropertyList::Data& bytes)
    {
        return PlistNode(plist_new_data(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }

    PlistNode scalar(const PropertyList& value)
    {
        if (const auto boolean = value.boolean()) return PlistNode(plist_new_bool(*boolean ? 1 : 0));
        if (const auto real = value.real()) return PlistNode(plist_new_real(*real));
        if (const auto date = value.date()) return dateNode(*date);
        if (const auto small = value.integer()) return PlistNode(plist_new_uint(static_cast<std::uint64_t>(*small)));
        // libplist makes a negative number of a huge one, except from XML.
        return parsed("<integer>" + std::to_string(*value.unsignedInteger()) + "</integer>");
    }

    PlistNode dateNode(Date date)
    {
        const double seconds = std::floor(date.timeIntervalSince1970() - secondsFrom1970To2001);
        if (!std::isfinite(seconds)) return refuse("a date is not finite");
        if (seconds > std::numeric_limits<std::int32_t>::min() && seconds < std::numeric_limits<std::int32_t>::max()) {
            const double fraction = date.timeIntervalSince1970() - secondsFrom1970To2001 - seconds;
            return PlistNode(plist_new_date(static_cast<std::int32_t>(seconds),
                                            static_cast<std::int32_t>(std::lround(fraction * 1e6))));
        }
        return farDate(std::floor(date.timeIntervalSince1970()));
    }

    // libplist takes a date of more than 32 bits of seconds from XML only.
    PlistNode farDate(double seconds)
    {
        if (std::fabs(seconds) > 1e11) return refuse("a date is out of range");
        const auto time = static_cast<std::time_t>(seconds);
        std::tm parts{};
        char text[64];
        ::gmtime_r(&time, &parts);
        std::strftime(text, sizeof text, "<date>%Y-%m-%dT%H:%M:%SZ</date>", &parts);
        return parsed(text);
    }

    static PlistNode parsed(const std::string& element)
    {
        const std::string xml = "<plist version=\"1.0\">" + element + "</plist>";
        plist_t node = nullptr;
        plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &node);
        return PlistNode(node);
    }

    PlistNode refuse(const char* reason)
    {
        reason_ = reason;
        return nullptr;
    }

    std::string reason_ = "out of memory";
};

using Writer = void (*)(plist_t, char**, std::uint32_t*);

Result<std::string> written(const PropertyList& value, Writer writer)
{
    const CLocaleScope locale;
    TreeMaker maker;
    const PlistNode tree = maker.make(value, 1);
    if (!tree) return Error{"write", "property list", 0, maker.reason()};
    char* bytes = nullptr;
    std::uint32_t length = 0;
    writer(tree.get(), &bytes, &length);
    if (!bytes) return Error{"write", "property list", 0, "libplist refused it"};
    std::string form(bytes, length);
    plist_to_bin_free(bytes);
    return form;
}

}  // namespace

Result<std::string> PropertyList::xml() const
{
    return written(*this, plist_to_xml);
}

Result<std::string> PropertyList::binary() const
{
    return written(*this, plist_to_bin);
}

}  // namespace Platform
