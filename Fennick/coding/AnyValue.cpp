#include "Fennick/coding/AnyValue.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <new>

#include "Fennick/coding/AnyDictionary.h"

namespace Fennick {

using Platform::Number;

// What does not fit into the value itself, shared by its copies.
struct AnyValue::Node {
    explicit Node(Kind ofKind) : kind(ofKind) {}
    static void* operator new(std::size_t size) { return AnyMemory::take(size); }
    static void* operator new(std::size_t, void* memory) { return memory; }
    static void operator delete(void* node) { AnyMemory::give(node); }

    // The next of the dying, kept where the owners were counted: it has none any more.
    Node* nextDying() const { return reinterpret_cast<Node*>(owners.load(std::memory_order_relaxed)); }
    void setNextDying(Node* next) { owners.store(reinterpret_cast<std::uintptr_t>(next), std::memory_order_relaxed); }

    std::atomic<std::uintptr_t> owners{1};
    Kind kind;
};

// The text's bytes stand behind the node, in the same piece of memory.
struct AnyValue::TextNode : Node {
    static TextNode* make(std::string_view text)
    {
        auto* node = new (AnyMemory::take(sizeof(TextNode) + text.size())) TextNode(text.size());
        std::memcpy(node->bytes(), text.data(), text.size());
        return node;
    }
    char* bytes() { return reinterpret_cast<char*>(this + 1); }
    std::string_view text() { return {bytes(), size}; }
    std::size_t size;

private:
    explicit TextNode(std::size_t length) : Node(Kind::text), size(length) {}
};

struct AnyValue::UrlNode : Node {
    explicit UrlNode(Platform::Url taken) : Node(Kind::url), url(std::move(taken)) {}
    Platform::Url url;
};

struct AnyValue::NumberNode : Node {
    explicit NumberNode(const Number& taken) : Node(Kind::number), number(taken) {}
    Number number;
};

struct AnyValue::ObjectNode : Node {
    ObjectNode(std::shared_ptr<const void> taken, const std::type_info& ofType)
        : Node(Kind::object), object(std::move(taken)), type(ofType)
    {
    }
    std::shared_ptr<const void> object;
    const std::type_info& type;
};

struct AnyValue::ArrayNode : Node {
    explicit ArrayNode(AnyArray taken) : Node(Kind::array), items(std::move(taken)) {}
    AnyArray items;
};

struct AnyValue::DictionaryNode : Node {
    explicit DictionaryNode(AnyDictionary taken) : Node(Kind::dictionary), members(std::move(taken)) {}
    AnyDictionary members;
};

namespace {

// Up to 14 bytes, in moves of fixed sizes that may overlap.
void copyShort(std::string_view text, unsigned char* to)
{
    const auto move = [&]<typename Word>(std::size_t at, Word word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        std::memcpy(to + at, &word, sizeof word);
    };
    const auto moveBoth = [&](auto word) {
        move(0, word);
        move(text.size() - sizeof word, word);
    };
    if (text.size() >= 8) return moveBoth(std::uint64_t{});
    if (text.size() >= 4) return moveBoth(std::uint32_t{});
    if (text.size() >= 2) return moveBoth(std::uint16_t{});
    if (text.size() == 1) to[0] = static_cast<unsigned char>(text[0]);
}

}  // namespace

AnyValue::AnyValue(std::string_view text) : kind_(Kind::text)
{
    if (text.size() > inlineCapacity) {
        store<Node*>(TextNode::make(text));
        size_ = held;
        return;
    }
    copyShort(text, bytes_);
    size_ = static_cast<std::uint8_t>(text.size());
}

AnyValue::AnyValue(Platform::Url url) : AnyValue(Kind::url, new UrlNode(std::move(url))) {}
AnyValue::AnyValue(AnyArray array) : AnyValue(Kind::array, new ArrayNode(std::move(array))) {}
AnyValue::AnyValue(AnyDictionary dictionary) : AnyValue(Kind::dictionary, new DictionaryNode(std::move(dictionary))) {}
AnyValue::AnyValue(std::shared_ptr<const void> object, const std::type_info& type)
    : AnyValue(Kind::object, new ObjectNode(std::move(object), type))
{
}
AnyValue AnyValue::boxed(const Number& number)
{
    return AnyValue(Kind::number, new NumberNode(number));
}

AnyValue AnyValue::dictionaryOf(AnyArray keysAndValues)
{
    return AnyDictionary::fromPairs(keysAndValues);
}

void AnyValue::swap(AnyValue& other) noexcept
{
    unsigned char kept[sizeof *this];
    std::memcpy(kept, static_cast<const void*>(this), sizeof kept);
    std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof kept);
    std::memcpy(static_cast<void*>(&other), kept, sizeof kept);
}

void AnyValue::retain() const noexcept
{
    load<Node*>()->owners.fetch_add(1, std::memory_order_relaxed);
}

void AnyValue::release() noexcept
{
    Node* dying = nullptr;
    handOver(dying);
    if (dying != nullptr) destroy(dying);
}

// Gives up the node; the last owner puts it in front of the dying ones.
void AnyValue::handOver(Node*& dying) noexcept
{
    Node* node = load<Node*>();
    become(Kind::empty);
    const bool isOnlyOwner = node->owners.load(std::memory_order_acquire) == 1;
    if (!isOnlyOwner && node->owners.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
    node->setNextDying(dying);
    dying = node;
}

// Takes the children of a dying container over before it goes, so that the
// depth of the value is never the depth of the stack.
void AnyValue::destroy(Node* first) noexcept
{
    const AnyMemory::Giving giving;
    while (first != nullptr) {
        Node* node = std::exchange(first, first->nextDying());
        const auto takeOver = [&](AnyValue& child) {
            if (child.isHeld()) child.handOver(first);
        };
        switch (node->kind) {
            case Kind::text:
                delete static_cast<TextNode*>(node);
                break;
            case Kind::url:
                delete static_cast<UrlNode*>(node);
                break;
            case Kind::number:
                delete static_cast<NumberNode*>(node);
                break;
            case Kind::object:
                delete static_cast<ObjectNode*>(node);
                break;
            case Kind::array:
                for (AnyValue& item : static_cast<ArrayNode*>(node)->items) takeOver(item);
                delete static_cast<ArrayNode*>(node);
                break;
            default:
                for (auto& entry : static_cast<DictionaryNode*>(node)->members.entries_) {
                    takeOver(entry.key);
                    takeOver(entry.value);
                }
                delete static_cast<DictionaryNode*>(node);
        }
    }
}

std::optional<bool> AnyValue::asBool() const
{
    if (kind_ == Kind::boolean) return load<std::int64_t>() != 0;
    if (kind_ != Kind::number || node<NumberNode>().number.kind() != Number::Kind::boolean) return std::nullopt;
    return node<NumberNode>().number.boolValue();
}

Number AnyValue::numericValue() const
{
    if (kind_ == Kind::number) return node<NumberNode>().number;
    if (kind_ >= Kind::float32) return load<double>();
    if (kind_ >= Kind::uint8) return load<std::uint64_t>();
    return load<std::int64_t>();
}

std::optional<Number> AnyValue::asNumber() const
{
    return isNumber() ? std::optional(numericValue()) : std::nullopt;
}

std::optional<std::int64_t> AnyValue::asInteger() const
{
    const auto number = asNumber();
    const bool isWhole = number && Number(number->int64Value()) == *number;
    return isWhole ? std::optional(number->int64Value()) : std::nullopt;
}

std::optional<std::uint64_t> AnyValue::asUnsigned() const
{
    const auto number = asNumber();
    const bool isWhole = number && Number(number->uint64Value()) == *number;
    return isWhole ? std::optional(number->uint64Value()) : std::nullopt;
}

std::optional<double> AnyValue::asDouble() const
{
    return isNumber() ? std::optional(numericValue().doubleValue()) : std::nullopt;
}

std::string_view AnyValue::heldText() const
{
    return node<TextNode>().text();
}

std::optional<Platform::Date> AnyValue::asDate() const
{
    return kind_ == Kind::date ? std::optional(Platform::Date(load<double>())) : std::nullopt;
}

std::optional<Platform::Url> AnyValue::asUrl() const
{
    return kind_ == Kind::url ? std::optional(node<UrlNode>().url) : std::nullopt;
}

const void* AnyValue::objectOf(const std::type_info& type) const
{
    if (kind_ != Kind::object || node<ObjectNode>().type != type) return nullptr;
    return node<ObjectNode>().object.get();
}

const AnyArray& AnyValue::array() const
{
    static const AnyArray none;
    return kind_ == Kind::array ? node<ArrayNode>().items : none;
}

const AnyDictionary& AnyValue::dictionary() const
{
    static const AnyDictionary none;
    return kind_ == Kind::dictionary ? node<DictionaryNode>().members : none;
}

std::size_t AnyValue::count() const
{
    return array().size() + dictionary().size();
}

const AnyValue& AnyValue::operator[](std::size_t index) const
{
    static const AnyValue none;
    return index < array().size() ? array()[index] : none;
}

const AnyValue& AnyValue::operator[](std::string_view key) const
{
    static const AnyValue none;
    const AnyValue* found = dictionary().find(key);
    return found != nullptr ? *found : none;
}

AnyArray& AnyValue::editArray()
{
    const bool isOwn = kind_ == Kind::array && node<ArrayNode>().owners.load(std::memory_order_acquire) == 1;
    if (!isOwn) *this = AnyValue(AnyArray(array()));
    return node<ArrayNode>().items;
}

AnyDictionary& AnyValue::editDictionary()
{
    const bool isOwn = kind_ == Kind::dictionary && node<DictionaryNode>().owners.load(std::memory_order_acquire) == 1;
    if (!isOwn) *this = AnyValue(AnyDictionary(dictionary()));
    return node<DictionaryNode>().members;
}

// Containers of the same kind and count pass; their content is compared by the caller.
bool AnyValue::isSameScalar(const AnyValue& a, const AnyValue& b)
{
    if (const auto flag = a.asBool()) return flag == b.asBool();
    if (a.isNumber()) return b.isNumber() && !b.asBool() && a.numericValue() == b.numericValue();
    if (a.kind_ != b.kind_) return false;
    switch (a.kind_) {
        case Kind::text:
            return a.asText() == b.asText();
        case Kind::date:
            return a.load<double>() == b.load<double>();
        case Kind::url:
            return a.node<UrlNode>().url == b.node<UrlNode>().url;
        case Kind::object:
            return a.node<ObjectNode>().object == b.node<ObjectNode>().object;
        default:
            return a.count() == b.count();
    }
}

bool operator==(const AnyValue& a, const AnyValue& b)
{
    using Kind = AnyValue::Kind;
    if (!AnyValue::isSameScalar(a, b)) return false;
    if (a.kind_ < Kind::array) return true;
    std::vector<std::pair<const AnyValue*, const AnyValue*>> pending{{&a, &b}};
    while (!pending.empty()) {
        const auto [one, other] = pending.back();
        pending.pop_back();
        if (!AnyValue::isSameScalar(*one, *other)) return false;
        const bool isShared =
            one->isHeld() && other->isHeld() && one->load<AnyValue::Node*>() == other->load<AnyValue::Node*>();
        if (isShared) continue;
        for (std::size_t i = 0; i < one->array().size(); ++i)
            pending.emplace_back(&one->array()[i], &other->array()[i]);
        for (const auto& entry : one->dictionary()) {
            const AnyValue* match = other->dictionary().find(entry.key);
            if (match == nullptr) return false;
            pending.emplace_back(&entry.value, match);
        }
    }
    return true;
}

// Equal values hash alike: numbers by value, containers by kind and count alone.
std::size_t AnyValue::hash() const
{
    if (const auto flag = asBool()) return std::hash<bool>()(*flag);
    if (const auto whole = asInteger()) return std::hash<std::int64_t>()(*whole);
    if (const auto whole = asUnsigned()) return std::hash<std::uint64_t>()(*whole);
    if (isNumber()) return std::hash<double>()(numericValue().doubleValue());
    if (const auto text = asText()) return std::hash<std::string_view>()(*text);
    if (kind_ == Kind::date) return std::hash<double>()(load<double>());
    if (kind_ == Kind::url) return std::hash<Platform::Url>()(node<UrlNode>().url);
    if (kind_ == Kind::object) return std::hash<const void*>()(node<ObjectNode>().object.get());
    return std::hash<std::size_t>()(count() * 32 + static_cast<std::size_t>(kind_));
}

}  // namespace Fennick
