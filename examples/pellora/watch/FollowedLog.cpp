#include "examples/pellora/watch/FollowedLog.h"

#include <algorithm>
#include <utility>

#include <sys/stat.h>

#include "examples/pellora/Texts.h"
#include "platform/runtime/Log.h"

namespace Pellora {

namespace {

constexpr double secondsBetweenLooks = 10;
constexpr std::size_t longestLine = 60;  // bytes

// At most so many bytes, without half a character at the end.
std::string_view front(std::string_view line, std::size_t bytes)
{
    if (line.size() <= bytes) return line;
    while (bytes > 0 && (static_cast<unsigned char>(line[bytes]) & 0xC0) == 0x80) --bytes;
    return line.substr(0, bytes);
}

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
}

}  // namespace

std::optional<std::string> shownLine(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    if (last == std::string_view::npos) return std::nullopt;
    text = text.substr(0, last + 1);
    text.remove_prefix(text.find_last_of('\n') + 1);  // npos is the number before 0
    text.remove_prefix(text.find_first_not_of(" \t\r"));
    std::string line(front(text, longestLine));
    std::ranges::replace_if(line, isControl, ' ');
    return line;
}

std::shared_ptr<FollowedLog> FollowedLog::create(std::string path)
{
    std::shared_ptr<FollowedLog> created(new FollowedLog(std::move(path)));
    created->openIfReplaced();
    return created;
}

FollowedLog::FollowedLog(std::string path)
    : path_(std::move(path)), reading_(std::make_shared<Fennick::StringIdentifier>("log", text("LOG"), std::nullopt))
{
    add(reading_);
}

std::optional<FollowedLog::FileIdentity> FollowedLog::identityAtPath() const
{
    struct stat state {};
    if (stat(path_.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
    return FileIdentity{state.st_dev, state.st_ino};
}

// The old file is followed until there is another in its place.
void FollowedLog::openIfReplaced()
{
    const auto present = identityAtPath();
    if (!present || present == opened_) return;
    try {
        auto monitor = Lorrel::FileMonitor::create(Platform::Url::fromPath(path_, false));
        monitor->setDelegate(weak_from_this());
        monitor_ = std::move(monitor);
    } catch (const Lorrel::FileMonitorError& error) {
        Platform::log(error.what());
        monitor_ = nullptr;
    }
    opened_ = present;  // also when it may not be read: once told is enough
}

void FollowedLog::update(double elapsed)
{
    sinceLook_ += elapsed;
    if (sinceLook_ < 0 || sinceLook_ >= secondsBetweenLooks) {
        sinceLook_ = 0;
        openIfReplaced();
    }
    if (lastLine_) reading_->setString(lastLine_, std::exchange(newLines_, 0));
}

void FollowedLog::didAppend(const std::string& appended)
{
    newLines_ += std::ranges::count(appended, '\n');
    if (auto line = shownLine(appended)) lastLine_ = std::move(line);
}

}  // namespace Pellora
