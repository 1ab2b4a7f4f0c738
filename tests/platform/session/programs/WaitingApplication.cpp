// An application that waits to be ended, a minute at most.
#include <unistd.h>

int main()
{
    ::alarm(60);
    while (true) ::pause();
}
