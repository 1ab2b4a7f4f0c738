// Posts "NAME" once, with the object OBJECT or without any; or, with FIRST and
// END, once for each number from FIRST to before END. Ends without cleaning up.
#include <unistd.h>

#include "platform/session/DistributedNotificationCenter.h"

int main(int argc, char** argv)
{
    auto& center = Platform::DistributedNotificationCenter::shared();
    const Platform::NotificationName name(argv[1]);
    if (argc < 4) {
        center.post(name, argc == 3 ? std::optional<std::string>(argv[2]) : std::nullopt);
    } else {
        const int end = std::stoi(argv[3]);
        for (int number = std::stoi(argv[2]); number < end; ++number) center.post(name, std::to_string(number));
    }
    ::_exit(0);
}
