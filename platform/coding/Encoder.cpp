#include "platform/coding/Encoder.h"

#include <utility>

#include "platform/runtime/FatalError.h"

namespace Platform {

ValueSink& Encoder::sink()
{
    if (std::exchange(hasValue_, true)) fatalError("This encoder already has its value.", "platform/Encoder");
    return sink_;
}

KeyedEncodingContainer Encoder::keyedContainer()
{
    return KeyedEncodingContainer(sink(), nullptr);
}

UnkeyedEncodingContainer Encoder::unkeyedContainer()
{
    return UnkeyedEncodingContainer(sink(), nullptr);
}

SingleValueEncodingContainer Encoder::singleValueContainer()
{
    return SingleValueEncodingContainer(*this);
}

OpenContainer::OpenContainer(ValueSink& sink, OpenContainer* parent, void (ValueSink::*end)())
    : sink_(sink), parent_(parent), end_(end), exceptions_(std::uncaught_exceptions())
{
    if (parent_ != nullptr) parent_->isNestedOpen_ = true;
}

OpenContainer::~OpenContainer() noexcept(false)
{
    if (parent_ != nullptr) parent_->isNestedOpen_ = false;
    if (std::uncaught_exceptions() == exceptions_) (sink_.*end_)();
}

ValueSink& OpenContainer::sink()
{
    if (isNestedOpen_) fatalError("A nested container is still open.", "platform/Encoder");
    return sink_;
}

KeyedEncodingContainer::KeyedEncodingContainer(ValueSink& sink, OpenContainer* parent)
    : OpenContainer(sink, parent, &ValueSink::endDictionary)
{
    sink.beginDictionary();
}

void KeyedEncodingContainer::encodeNil(std::string_view key)
{
    sink().key(key);
    sink().null();
}

KeyedEncodingContainer KeyedEncodingContainer::nestedContainer(std::string_view key)
{
    sink().key(key);
    return KeyedEncodingContainer(sink(), this);
}

UnkeyedEncodingContainer KeyedEncodingContainer::nestedUnkeyedContainer(std::string_view key)
{
    sink().key(key);
    return UnkeyedEncodingContainer(sink(), this);
}

UnkeyedEncodingContainer::UnkeyedEncodingContainer(ValueSink& sink, OpenContainer* parent)
    : OpenContainer(sink, parent, &ValueSink::endArray)
{
    sink.beginArray();
}

KeyedEncodingContainer UnkeyedEncodingContainer::nestedContainer()
{
    return KeyedEncodingContainer(sink(), this);
}

UnkeyedEncodingContainer UnkeyedEncodingContainer::nestedUnkeyedContainer()
{
    return UnkeyedEncodingContainer(sink(), this);
}

}  // namespace Platform
