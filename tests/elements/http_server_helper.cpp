#include "elements/http_server_helper.h"

#include <QHostAddress>
#include <QTimer>

HttpServer::HttpServer()
{
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] { take(); });
    server.listen(QHostAddress::LocalHost);
}

void HttpServer::take()
{
    QTcpSocket* const socket = server.nextPendingConnection();
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

void HttpServer::serve(QTcpSocket* socket)
{
    constexpr char handshake = 0x16;
    if (socket->peek(1) == QByteArray(1, handshake)) {
        ++greetings;
        socket->disconnectFromHost();
        return;
    }
    if (!socket->peek(65536).contains("\r\n\r\n"))
        return;
    request = socket->readAll();
    const QByteArray path = request.split(' ').value(1);
    ++count;
    if (path == silent)
        return;
    if (path == dripping) {
        socket->write("HTTP/1.0 200 OK\r\n\r\n");
        auto* const drops = new QTimer(socket);
        QObject::connect(drops, &QTimer::timeout, socket, [socket] { socket->write("x"); });
        drops->start(5);
        return;
    }
    socket->write(
        answers.value(path, "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot found"));
    socket->disconnectFromHost();
}
