#include "launcher/AppDelegate.h"
#include "platform/runtime/Application.h"

int main(int argc, char** argv)
{
    return Platform::applicationMain(argc, argv, &Launcher::AppDelegate::create);
}
