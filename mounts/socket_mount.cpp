#include "mounts/socket_mount.h"

SocketMount::SocketMount(const MountAddress& to) : address(to), socket(this), silence(this)
{
    silence.setSingleShot(true);
    silence.setInterval(address.patience);
    connect(&silence, &QTimer::timeout, this, [this] { fail(silenceMeans()); });
    connect(&socket, &QTcpSocket::connected, this, [this] { greet(); });
    connect(&socket, &QTcpSocket::readyRead, this, [this] {
        if (!over)
            listen();
    });
    connect(&socket, &QTcpSocket::errorOccurred, this, [this] { fail(socket.errorString()); });
}

void SocketMount::open()
{
    expectAnswer();
    socket.connectToHost(address.host, address.port);
}

void SocketMount::send(const QByteArray& bytes)
{
    socket.write(bytes);
    socket.flush();
}

void SocketMount::fail(const QString& why)
{
    if (over)
        return;
    over = true;
    answered();
    socket.abort();
    Q_EMIT failed(why);
}

void SocketMount::close(const QByteArray& lastWords)
{
    if (over)
        return;
    over = true;
    answered();
    if (socket.state() == QAbstractSocket::ConnectedState) {
        send(lastWords);
        hearOut();
    }
    socket.abort();
    Q_EMIT halted();
}

/// Waits until the last words are out and answered: a connection closed over unread bytes may take them back.
void SocketMount::hearOut()
{
    QElapsedTimer since;
    since.start();
    socket.waitForBytesWritten(lastWait);
    while (since.elapsed() < lastWait && socket.waitForReadyRead(lastPause))
        socket.readAll();
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState)
        socket.waitForDisconnected(lastPause);
}
