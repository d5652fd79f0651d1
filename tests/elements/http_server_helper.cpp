#include "elements/http_server_helper.h"

#include <QFile>
#include <QHostAddress>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QTimer>

HttpServer::HttpServer() : HttpServer(std::make_unique<QTcpServer>()) {}

HttpServer::HttpServer(std::unique_ptr<QTcpServer> listener) : server(std::move(listener))
{
    QObject::connect(server.get(), &QTcpServer::pendingConnectionAvailable, server.get(), [this] { take(); });
    server->listen(QHostAddress::LocalHost);
}

std::unique_ptr<HttpServer> HttpServer::overTls()
{
    QFile key(TEST_DATA "/tls/key.pem");
    key.open(QIODevice::ReadOnly);
    const QList<QSslCertificate> certificates = QSslCertificate::fromPath(TEST_DATA "/tls/certificate.pem");
    QSslConfiguration client = QSslConfiguration::defaultConfiguration();
    client.setCaCertificates(certificates);
    QSslConfiguration::setDefaultConfiguration(client);
    QSslConfiguration own;
    own.setLocalCertificateChain(certificates);
    own.setPrivateKey(QSslKey(&key, QSsl::Rsa));
    auto listener = std::make_unique<QSslServer>();
    listener->setSslConfiguration(own);
    std::unique_ptr<HttpServer> made(new HttpServer(std::move(listener)));
    made->encrypted = true;
    return made;
}

void HttpServer::take()
{
    QTcpSocket* const socket = server->nextPendingConnection();
    if (!socket)
        return;
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { serve(socket); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
}

void HttpServer::serve(QTcpSocket* socket)
{
    constexpr char handshake = 0x16;
    if (!encrypted && socket->peek(1) == QByteArray(1, handshake)) {
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
