#include "examples/pellora/providers/SystemFile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "examples/pellora/providers/Scan.h"

namespace Pellora {

namespace {

constexpr std::size_t firstStep = 4096;

// Bytes read, 0 at the end and for an error.
std::size_t readAt(int descriptor, char* into, std::size_t size, std::size_t offset)
{
    for (;;) {
        const ssize_t count = pread(descriptor, into, size, static_cast<off_t>(offset));
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) return 0;
    }
}

}  // namespace

SystemFile::SystemFile(const std::string& path) : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}

std::string_view SystemFile::read()
{
    if (!isOpen()) return {};
    if (content_.empty()) content_.resize(firstStep);
    std::size_t length = 0;
    for (;;) {
        const std::size_t count = readAt(file_.get(), content_.data() + length, content_.size() - length, length);
        if (count == 0) break;
        length += count;
        if (length == content_.size()) content_.resize(2 * length);
    }
    return std::string_view(content_).substr(0, length);
}

std::optional<std::int64_t> SystemFile::readNumber()
{
    std::string_view text = read();
    return takeNumber<std::int64_t>(text);
}

std::string firstLineOf(const std::string& path)
{
    SystemFile file(path);
    std::string_view text = file.read();
    return std::string(takeLine(text));
}

}  // namespace Pellora
