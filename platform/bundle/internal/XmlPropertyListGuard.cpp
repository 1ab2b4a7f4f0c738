#include <vector>

#include "platform/bundle/internal/PropertyListGuard.h"

namespace Platform {

namespace {

using Fault = std::optional<std::string>;

// Walks the tags as the parser will. Where the two could disagree about what
// is a tag (attributes, an internal DTD subset), the document is refused.
class XmlWalk {
public:
    explicit XmlWalk(std::string_view text) : rest_(text) {}

    Fault check()
    {
        while (true) {
            const std::size_t open = rest_.find('<');
            if (open == std::string_view::npos) break;
            rest_.remove_prefix(open + 1);
            if (auto fault = construct()) return fault;
        }
        if (!open_.empty()) return "the document ends inside <" + std::string(open_.back()) + ">";
        return std::nullopt;
    }

private:
    Fault construct()
    {
        if (rest_.starts_with("!--")) return skipPast("-->", 3);
        if (rest_.starts_with("![CDATA[")) return skipPast("]]>", 8);
        if (rest_.starts_with('?')) return skipPast("?>", 1);
        const std::size_t end = rest_.find('>');
        if (end == std::string_view::npos) return "a tag does not end";
        const std::string_view inner = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        if (inner.find('<') != std::string_view::npos) return "a tag inside a tag";
        return inner.starts_with('!') ? documentType(inner) : tag(inner);
    }

    Fault skipPast(std::string_view mark, std::size_t from)
    {
        const std::size_t end = rest_.find(mark, from);
        if (end == std::string_view::npos) return "\"" + std::string(mark) + "\" is missing";
        rest_.remove_prefix(end + mark.size());
        return std::nullopt;
    }

    Fault documentType(std::string_view inner) const
    {
        if (!open_.empty() || inner.find('[') != std::string_view::npos) return "a document type of its own";
        return std::nullopt;
    }

    Fault tag(std::string_view inner)
    {
        const std::string_view name = inner.substr(0, inner.find_first_of(" \t\r\n"));
        if (name == "plist") return open_.empty() ? enter(name) : Fault("<plist> inside the document");
        if (inner.find_first_of("\"'") != std::string_view::npos) return "an attribute where none belongs";
        if (name.starts_with('/')) return leave(name.substr(1));
        if (inner.ends_with('/')) return std::nullopt;
        return enter(name);
    }

    Fault enter(std::string_view name)
    {
        open_.push_back(name);
        if (open_.size() > deepestPropertyList + 1) return "nested too deeply";
        return std::nullopt;
    }

    Fault leave(std::string_view name)
    {
        if (open_.empty() || open_.back() != name) return "</" + std::string(name) + "> closes nothing";
        open_.pop_back();
        return std::nullopt;
    }

    std::string_view rest_;
    std::vector<std::string_view> open_;
};

}  // namespace

Fault xmlPropertyListFault(std::string_view bytes)
{
    if (!isPlainUtf8(bytes)) return "not UTF-8";
    return XmlWalk(bytes).check();
}

}  // namespace Platform
