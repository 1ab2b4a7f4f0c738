// Posts "NAME" COUNT times, each with its number as object, at RATE a second
// (0: at once), or once with the object OBJECT or without any; then ends
// without cleaning up.

#include <chrono>
#include <thread>

#include <unistd.h>

#include "platform/session/DistributedNotificationCenter.h"

namespace {

void postNumbers(const Platform::NotificationName& name, int count, int rate)
{
    const auto start = std::chrono::steady_clock::now();
    for (int number = 0; number < count; ++number) {
        if (rate > 0) std::this_thread::sleep_until(start + std::chrono::nanoseconds(1'000'000'000LL * number / rate));
        Platform::DistributedNotificationCenter::shared().post(name, std::to_string(number));
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) return 2;
    const Platform::NotificationName name(argv[1]);
    if (argc == 2) {
        Platform::DistributedNotificationCenter::shared().post(name, std::nullopt);
    } else if (argc == 3) {
        Platform::DistributedNotificationCenter::shared().post(name, argv[2]);
    } else {
        postNumbers(name, std::stoi(argv[2]), std::stoi(argv[3]));
    }
    ::_exit(0);
}
