#include "tests/support/Display.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace Tests {

namespace {

// The server prints its number once it accepts connections.
std::string awaitName(ChildProcess& server)
{
    const std::optional<std::string> number = server.readLine(std::chrono::seconds(20));
    if (!number) throw std::runtime_error("Xvfb did not start");
    return ':' + *number;
}

}  // namespace

Display::Display(const std::string& screen)
    : server_({"Xvfb", "-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"},
              {.streams = ChildStreams::output}),
      display_("DISPLAY", awaitName(server_))
{
}

// Asked politely it takes its lock file along, which another user could not remove.
Display::~Display()
{
    thaw();
    server_.signal(SIGTERM);
    server_.wait(std::chrono::seconds(5));
}

std::string screenshotPath(const std::string& name)
{
    const char* folder = std::getenv("PELLORA_SCREENSHOTS");
    const std::filesystem::path path = std::filesystem::path(folder ? folder : SCREENSHOTS) / (name + ".png");
    std::filesystem::create_directories(path.parent_path());
    return path.string();
}

}  // namespace Tests
