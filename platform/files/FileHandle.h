#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/runtime/FileDescriptor.h"
#include "platform/runtime/Result.h"
#include "platform/runtime/Url.h"

namespace Platform {

// A file opened for reading, with a position of its own. It stays with the
// file that it opened, whatever happens to the name. Not copyable.
// Thread: any, one at a time.
class FileHandle {
public:
    // Fails on folders, on URLs of other schemes and on what cannot be opened; a pipe without writer does not block.
    static Result<FileHandle> forReadingFrom(const Url& url);

    int fileDescriptor() const { return file_.get(); }
    std::uint64_t offset() const { return offset_; }

    // Moves to the present end; the new offset.
    std::uint64_t seekToEndOfFile();
    // Everything from the position to the present end, which becomes the
    // position; at most so many bytes. What the limit or a read error leaves out
    // comes with the next call.
    std::string readDataToEndOfFile(std::size_t most);
    // Moves back over bytes that were read.
    void stepBack(std::size_t bytes) { offset_ -= bytes; }
    void closeFile() { file_.reset(); }

private:
    explicit FileHandle(FileDescriptor file) : file_(std::move(file)) {}

    FileDescriptor file_;
    std::uint64_t offset_ = 0;
};

// Opens an entry, of any kind and without the right to read it, only to be
// watched. Not open where that fails. Thread: any.
FileDescriptor openForEvents(const Url& url);

}  // namespace Platform
