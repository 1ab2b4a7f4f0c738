// The application that the launcher opens here: tells the pipe beside it its process id, and ends.

#include <cstring>

#include <fcntl.h>
#include <unistd.h>

int main(int, char** argv)
{
    char pipe[4096];
    const int folder = static_cast<int>(std::strrchr(argv[0], '/') - argv[0]);
    std::memcpy(pipe, argv[0], static_cast<std::size_t>(folder));
    std::strcpy(pipe + folder, "/pipe");
    const int descriptor = ::open(pipe, O_WRONLY);
    const pid_t self = ::getpid();
    return ::write(descriptor, &self, sizeof self) == sizeof self ? 0 : 1;
}
