#include "benchmarks/notifications/peers/QtPeer.h"

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QtPeer peer;
    const int status = Bench::peerMain(argc, argv, peer);
    // What was sent has left once the daemon answers.
    QDBusConnection::sessionBus().call(
        QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
    return status;
}
