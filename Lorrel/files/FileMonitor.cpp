#include "Lorrel/files/FileMonitor.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/files/FileSystemEvents.h"
#include "platform/runtime/RunLoop.h"
#include "platform/runtime/Utf8.h"

namespace Lorrel {

namespace {

// One call makes a file grow by any size; the memory for it has its bounds.
constexpr std::size_t largestPiece = 256 << 20;

// How many bytes at the end begin a character that goes on after it.
std::size_t unfinishedEnd(std::string_view text)
{
    constexpr std::pair<unsigned char, std::size_t> leads[] = {{0xF0, 4}, {0xE0, 3}, {0xC0, 2}};
    for (std::size_t back = 1; back <= std::min<std::size_t>(3, text.size()); ++back) {
        const auto byte = static_cast<unsigned char>(text[text.size() - back]);
        if ((byte & 0xC0) == 0x80) continue;
        for (const auto& [lead, length] : leads) {
            if (byte >= lead) return back < length ? back : 0;
        }
        return 0;
    }
    return 0;
}

}  // namespace

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

// Other work of the loop comes in between.
void FileMonitor::readMoreSoon()
{
    Platform::RunLoop::main().post([weak = weak_from_this()] {
        if (const auto self = weak.lock()) self->readAppended();
    });
}

void FileMonitor::readAppended()
{
    std::string appended = fileHandle_.readDataToEndOfFile(largestPiece);
    if (appended.size() == largestPiece) {
        const std::size_t unfinished = unfinishedEnd(appended);
        fileHandle_.stepBack(unfinished);
        appended.resize(appended.size() - unfinished);
        readMoreSoon();
    }
    if (appended.empty() || !Platform::isUtf8(appended)) return;
    if (const auto delegate = delegate_.lock()) delegate->didAppend(appended);
}

}  // namespace Lorrel
