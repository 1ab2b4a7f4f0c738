#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/runtime/FileDescriptor.h"

namespace Pellora {

// A file of /proc or /sys that is read again and again: opened once, and read
// from its start each time. Thread: any, one at a time.
class SystemFile {
public:
    // A file that cannot be opened reads as empty.
    explicit SystemFile(const std::string& path);

    bool isOpen() const { return file_.isOpen(); }
    // The present content, valid until the next read; empty when it cannot be read.
    std::string_view read();
    // The whole number at the front of the content; absent when there is none.
    std::optional<std::int64_t> readNumber();

private:
    Platform::FileDescriptor file_;
    std::string content_;  // its storage is kept between readings
};

// The first line of a file that is read once, without its end; empty when it cannot be read.
std::string firstLineOf(const std::string& path);

}  // namespace Pellora
