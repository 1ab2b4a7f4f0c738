#include "examples/pellora/table/LiveTable.h"

#include <algorithm>
#include <array>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

#include "examples/pellora/Texts.h"
#include "examples/pellora/table/ReadingsTable.h"

namespace Pellora {

namespace {

constexpr std::size_t widestGraph = 30;
constexpr std::size_t columnsBesideGraph = 50;

std::size_t graphWidth(std::size_t columns)
{
    return columns > columnsBesideGraph ? std::min(widestGraph, columns - columnsBesideGraph) : 0;
}

}  // namespace

TableOutput TableOutput::standardOutput()
{
    TableOutput output;
    winsize size{};
    output.isTerminal = isatty(STDOUT_FILENO) == 1;
    if (output.isTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 && size.ws_col > 0) {
        output.lines = size.ws_row;
        output.columns = size.ws_col;
    }
    return output;
}

LiveTable::LiveTable(std::shared_ptr<Fennick::IDataStore> readings, Keys keys, TableOutput output,
                     std::size_t refreshes, std::function<void()> atEnd)
    : readings_(std::move(readings)),
      keys_(std::move(keys)),
      output_(output),
      refreshes_(refreshes),
      atEnd_(std::move(atEnd))
{
}

void LiveTable::didRefresh(double elapsed)
{
    ++count_;
    std::array<char, 32> seconds{};
    std::snprintf(seconds.data(), seconds.size(), "%.2f", elapsed);
    const std::string heading = text("REFRESH", std::to_string(count_)) + "  +" + seconds.data() + " s";
    if (output_.isTerminal) {
        redraw(heading);
    } else {
        append(heading);
    }
    std::fflush(output_.file);
    if (count_ == refreshes_) atEnd_();
}

// Over the former lines; what a longer line leaves behind is erased.
void LiveTable::redraw(const std::string& heading)
{
    std::vector<std::string> lines = tableLines(*readings_, keys_(), graphWidth(output_.columns));
    lines.insert(lines.begin(), heading);
    lines.resize(std::min(lines.size(), std::max<std::size_t>(output_.lines, 2) - 1));
    if (drawnLines_ > 0) std::fprintf(output_.file, "\x1b[%zuA", drawnLines_);
    for (const auto& line : lines) std::fprintf(output_.file, "%s\x1b[K\n", line.c_str());
    drawnLines_ = std::max(drawnLines_, lines.size());
    for (std::size_t at = lines.size(); at < drawnLines_; ++at) std::fputs("\x1b[K\n", output_.file);
}

void LiveTable::append(const std::string& heading)
{
    std::fprintf(output_.file, "%s\n", heading.c_str());
    for (const auto& line : tableLines(*readings_, keys_(), 0)) std::fprintf(output_.file, "  %s\n", line.c_str());
}

}  // namespace Pellora
