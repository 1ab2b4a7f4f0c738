#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <utility>

#include "benchmarks/notifications/peers/Peer.h"

class QtPeer : public QObject, public Bench::Peer {
    Q_OBJECT
public:
    void listen(const std::string& name, Handler handler) override
    {
        handler_ = std::move(handler);
        bus_.connect(QString(), QString(), Bench::interface, Bench::member, {QString::fromStdString(name)}, "ss", this,
                     SLOT(onSignal(QString, QString)));
        // Any answer of the daemon comes after its consent to the rule.
        bus_.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
    }
    void post(const std::string& name, const std::string& object) override
    {
        auto message = QDBusMessage::createSignal(Bench::path, Bench::interface, Bench::member);
        message << QString::fromStdString(name) << QString::fromStdString(object);
        bus_.send(message);
    }
    void run() override { QCoreApplication::exec(); }
    void stop() override { QCoreApplication::quit(); }

public slots:
    void onSignal(const QString&, const QString& object) { handler_(object.toStdString()); }

private:
    QDBusConnection bus_ = QDBusConnection::sessionBus();
    Handler handler_;
};
