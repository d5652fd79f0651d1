// What mounts over a TCP socket share.
#pragma once

#include <QTcpSocket>
#include <QTimer>

#include "mounts/mount.h"

/// Opens the socket, watches that answers come, and fails once.
class SocketMount : public Mount
{
    Q_OBJECT

public:
    void open() override;

protected:
    explicit SocketMount(const MountAddress& address);

    /// The connection stands.
    virtual void greet() = 0;
    /// Bytes have come; `socket` has them.
    virtual void listen() = 0;
    /// Why nothing that was waited for has come.
    virtual QString silenceMeans() const { return tr("no answer from %1").arg(address.host); }

    void send(const QByteArray& bytes);
    /// From now on something has to come in time.
    void expectAnswer() { silence.start(); }
    void answered() { silence.stop(); }
    void fail(const QString& why);
    /// Sends last words and closes: `halted` follows.
    void close(const QByteArray& lastWords);

    MountAddress address;
    QTcpSocket socket;

private:
    static constexpr int lastWait = 1000;  // milliseconds
    static constexpr int lastPause = 200;

    void hearOut();

    QTimer silence;
    bool over = false;
};
