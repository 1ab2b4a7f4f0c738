#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "platform/files/FileHandle.h"
#include "platform/runtime/Result.h"
#include "platform/runtime/Subscription.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// Receives what a FileMonitor reads.
class FileMonitorDelegate {
public:
    virtual ~FileMonitorDelegate() = default;

    // The text that was appended since the last call.
    virtual void didAppend(const std::string& text) = 0;
};

// Why a FileMonitor could not be made.
class FileMonitorError : public std::runtime_error {
public:
    explicit FileMonitorError(Platform::Error error) : std::runtime_error(error.message()), error_(std::move(error)) {}

    const Platform::Error& error() const { return error_; }

private:
    Platform::Error error_;
};

// Follows a growing text file: hands on what is appended after its creation,
// as text, from the main run loop. It stays with the file that it opened when
// that is renamed or deleted. Appended bytes that are no UTF-8 are dropped, as
// one piece with what came together with them. Growth of more than 256 MB at
// once comes in pieces of that size, whole characters each. Truncation moves nothing: only
// bytes beyond the place reached before are read. It stops with its last owner.
// Thread: main.
class FileMonitor : public std::enable_shared_from_this<FileMonitor> {
public:
    // Throws FileMonitorError when the file cannot be opened or watched.
    static std::shared_ptr<FileMonitor> create(const Platform::Url& url);

    const Platform::Url& url() const { return url_; }

    // Held weakly. Without one, what is appended is read all the same, and gone.
    std::shared_ptr<FileMonitorDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::weak_ptr<FileMonitorDelegate>& delegate) { delegate_ = delegate; }

private:
    FileMonitor(Platform::Url url, Platform::FileHandle fileHandle);
    void watch();
    void readAppended();
    void readMoreSoon();

    Platform::Url url_;
    Platform::FileHandle fileHandle_;
    Platform::Subscription source_;  // ends before the handle closes
    std::weak_ptr<FileMonitorDelegate> delegate_;
};

}  // namespace Lorrel
