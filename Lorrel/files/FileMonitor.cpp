#include "Lorrel/files/FileMonitor.h"

#include <utility>

#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/Utf8.h"

namespace Lorrel {

using Platform::FileEvents;

std::shared_ptr<FileMonitor> FileMonitor::create(const Platform::Url& url)
{
    auto handle = Platform::FileHandle::forReadingFrom(url);
    if (!handle) throw FileMonitorError(handle.error());
    std::shared_ptr<FileMonitor> monitor(new FileMonitor(url, std::move(handle).value()));
    monitor->watch();
    return monitor;
}

FileMonitor::FileMonitor(Platform::Url url, Platform::FileHandle fileHandle)
    : url_(std::move(url)), fileHandle_(std::move(fileHandle))
{
}

void FileMonitor::watch()
{
    const auto handle = [weak = weak_from_this()](FileEvents events) {
        const auto self = weak.lock();
        // After an overflow the file itself tells how far it has grown.
        if (self && contains(events, FileEvents::written | FileEvents::lost)) self->readAppended();
    };
    auto source = Platform::FileSystemEvents::shared().watch(fileHandle_.fileDescriptor(), handle);
    if (!source) throw FileMonitorError(source.error());
    source_ = std::move(source).value();
    // Only now: what is appended in between counts as there already.
    fileHandle_.seekToEndOfFile();
}

void FileMonitor::readAppended()
{
    const std::string appended = fileHandle_.readDataToEndOfFile();
    if (appended.empty() || !Platform::isUtf8(appended)) return;
    if (const auto delegate = delegate_.lock()) delegate->didAppend(appended);
}

}  // namespace Lorrel
