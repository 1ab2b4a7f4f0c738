#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/bundle/internal/PropertyListGuard.h"

namespace Platform {

namespace {

constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;

// What an object's whole tree amounts to once parsed: the parser copies an
// object for each reference to it, so a small file can describe a huge tree.
struct Extent {
    enum class State : std::uint8_t { unseen, entered, measured } state = State::unseen;
    int height = 0;
    std::uint64_t size = 0;
};

class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view bytes) : bytes_(bytes) {}

    std::optional<std::string> check()
    {
        if (!readTrailer()) return "the trailer is damaged";
        extents_.resize(count_);
        measure(top_, 1);
        return fault_;
    }

private:
    struct Object {
        unsigned kind = 0;          // high half of the marker
        std::uint64_t length = 0;   // elements, bytes or characters
        std::uint64_t content = 0;  // where they begin
    };

    bool readTrailer()
    {
        if (bytes_.size() < headerSize + trailerSize) return false;
        const std::uint64_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = number(trailer + 6, 1);
        referenceSize_ = number(trailer + 7, 1);
        count_ = number(trailer + 8, 8);
        top_ = number(trailer + 16, 8);
        table_ = number(trailer + 24, 8);
        if (!isWordSize(offsetSize_) || !isWordSize(referenceSize_)) return false;
        if (count_ == 0 || top_ >= count_ || table_ < headerSize || table_ > trailer) return false;
        return count_ <= (trailer - table_) / offsetSize_;
    }

    static bool isWordSize(std::uint64_t size) { return size >= 1 && size <= 8; }

    std::uint64_t number(std::uint64_t at, std::uint64_t size) const
    {
        std::uint64_t value = 0;
        for (std::uint64_t i = 0; i < size; ++i) value = value << 8 | static_cast<unsigned char>(bytes_[at + i]);
        return value;
    }

    // The object's extent; {0, 0} and a fault when it must not be parsed.
    Extent measure(std::uint64_t index, int level)
    {
        if (level > deepestPropertyList) return refuse("nested too deeply");
        Extent& known = extents_[index];
        if (known.state == Extent::State::entered) return refuse("an object contains itself");
        if (known.state == Extent::State::unseen) {
            known.state = Extent::State::entered;
            const Extent measured = measureObject(index, level);
            if (fault_) return {};
            known = measured;
        }
        if (level + known.height - 1 > deepestPropertyList) return refuse("nested too deeply");
        return known;
    }

    Extent measureObject(std::uint64_t index, int level)
    {
        const auto object = objectAt(number(table_ + index * offsetSize_, offsetSize_));
        if (!object) return refuse("an object is damaged");
        const std::uint64_t unit = unitOf(object->kind);
        if (object->length > (table_ - object->content) / unit) return refuse("an object reaches past its end");
        Extent whole{Extent::State::measured, 1, 1 + (isContainer(object->kind) ? 0 : object->length * unit)};
        if (isContainer(object->kind)) addElements(*object, level, whole);
        return whole;
    }

    void addElements(const Object& object, int level, Extent& whole)
    {
        const std::uint64_t references = object.length * (object.kind == 0xD ? 2 : 1);
        for (std::uint64_t i = 0; i < references; ++i) {
            const std::uint64_t element = number(object.content + i * referenceSize_, referenceSize_);
            const bool isKey = object.kind == 0xD && i < object.length;
            if (isKey && element < count_ && holdsNul(element)) refuse("a key holds a NUL");
            const Extent part = element < count_ ? measure(element, level + 1) : refuse("a reference leads nowhere");
            if (fault_) return;
            whole.height = std::max(whole.height, part.height + 1);
            whole.size += part.size;
            if (whole.size > 2 * largestPropertyList) fault_ = "too large once expanded";
        }
    }

    // The library measures keys as C texts, and ends the process where that differs.
    bool holdsNul(std::uint64_t index) const
    {
        const auto text = objectAt(number(table_ + index * offsetSize_, offsetSize_));
        if (!text || (text->kind != 0x5 && text->kind != 0x6)) return false;
        const std::uint64_t unit = unitOf(text->kind);
        const std::uint64_t units = std::min(text->length, (table_ - text->content) / unit);
        for (std::uint64_t i = 0; i < units; ++i) {
            if (number(text->content + i * unit, unit) == 0) return true;
        }
        return false;
    }

    std::optional<Object> objectAt(std::uint64_t offset) const
    {
        if (offset < headerSize || offset >= table_) return std::nullopt;
        const auto marker = static_cast<unsigned char>(bytes_[offset]);
        Object object{static_cast<unsigned>(marker >> 4), marker & 15U, offset + 1};
        const bool isFixed = object.kind <= 0x3 || object.kind == 0x8;
        if (isFixed) {
            object.length = fixedLength(object.kind, object.length);
        } else if (object.length == 15 && !readLength(object)) {
            return std::nullopt;
        }
        return object;
    }

    // Integers, reals and dates have 2^n bytes, identifiers n + 1.
    static std::uint64_t fixedLength(unsigned kind, std::uint64_t low)
    {
        if (kind == 0x0) return 0;
        return kind == 0x8 ? low + 1 : std::uint64_t{1} << low;
    }

    // A length of 15 or more follows as an integer object.
    bool readLength(Object& object) const
    {
        if (object.content >= table_) return false;
        const auto marker = static_cast<unsigned char>(bytes_[object.content]);
        const std::uint64_t size = std::uint64_t{1} << (marker & 15U);
        if (marker >> 4 != 0x1 || size > 8 || object.content + 1 + size > table_) return false;
        object.length = number(object.content + 1, size);
        object.content += 1 + size;
        return true;
    }

    static bool isContainer(unsigned kind) { return kind == 0xA || kind == 0xC || kind == 0xD; }

    std::uint64_t unitOf(unsigned kind) const
    {
        if (kind == 0x6) return 2;
        if (kind == 0xD) return 2 * referenceSize_;
        return isContainer(kind) ? referenceSize_ : 1;
    }

    Extent refuse(const char* reason)
    {
        if (!fault_) fault_ = reason;
        return {};
    }

    std::string_view bytes_;
    std::uint64_t offsetSize_ = 0;
    std::uint64_t referenceSize_ = 0;
    std::uint64_t count_ = 0;
    std::uint64_t top_ = 0;
    std::uint64_t table_ = 0;
    std::vector<Extent> extents_;
    std::optional<std::string> fault_;
};

}  // namespace

std::optional<std::string> binaryPropertyListFault(std::string_view bytes)
{
    return BinaryWalk(bytes).check();
}

}  // namespace Platform
