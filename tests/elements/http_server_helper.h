// A local HTTP server that answers what a test tells it.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

/// Serves on a free port of the loopback interface, from the event loop of the test.
class HttpServer
{
public:
    HttpServer();
    /// One that speaks TLS alone, with the key and the certificate of tests/data/tls, which it makes the program trust.
    static std::unique_ptr<HttpServer> overTls();

    /// The bytes that answer a path; the connection is closed behind them.
    void answer(const QByteArray& path, const QByteArray& bytes) { answers[path] = bytes; }
    /// A request for this path is heard and never answered.
    void silence(const QByteArray& path) { silent = path; }
    /// The answer to this path comes byte by byte, without an end in sight.
    void drip(const QByteArray& path) { dripping = path; }

    quint16 port() const { return server->serverPort(); }
    int requests() const { return count; }
    /// The last request, line and head.
    QByteArray lastRequest() const { return request; }
    /// How often TLS was spoken to the server, which does not: it closes the connection.
    int handshakes() const { return greetings; }

private:
    void take();
    void serve(QTcpSocket* socket);

    explicit HttpServer(std::unique_ptr<QTcpServer> listener);

    std::unique_ptr<QTcpServer> server;
    bool encrypted = false;
    QHash<QByteArray, QByteArray> answers;
    QByteArray silent;
    QByteArray dripping;
    QByteArray request;
    int count = 0;
    int greetings = 0;
};
