// A small HTTP client: one host, one GET into a file, one signal at the end.
#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class QIODevice;

/// Fetches one text document at a time, through the proxy of the system if the application has asked for that. Redirects
/// are followed, to https as well; an answer other than success is an error, and nothing of it is written. A document
/// that is empty, a part or cut off is an error too. Requests name program and version as their User-Agent.
class Http : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Http)

public:
    explicit Http(QObject* parent = nullptr);
    ~Http() override;

    /// The host of the next `get`, with "https://" in front for that protocol. Port 80 stands for the usual one of the
    /// protocol.
    void setHost(const QString& name, quint16 portNumber = 80);

    /// Starts to fetch a document and returns. `to` is an open device; if it dies before the end the transfer fails.
    void get(const QString& path, QIODevice* to);

    /// A transfer that brings less than a kilobyte in this time has failed; 60 seconds unless set.
    void setSilenceLimit(int milliseconds);

    /// Ends the transfer under way as a failure.
    void abort();

    /// What went wrong in the last transfer, for a reader; where the server refused, with the first sentence it sent.
    QString errorString() const { return lastError; }

    /// Whether the last transfer failed by the will of the server: an answer of 3xx or 4xx, such as 301 to where no
    /// redirect is followed, 403 and 404. Nobody but a person should try again.
    bool isRefused() const { return refused; }

Q_SIGNALS:
    /// The transfer has ended.
    void done(bool error);

private Q_SLOTS:
    void store();
    void finish();
    void watchProgress();

private:
    void giveUp(const QString& why);
    bool succeeded() const;
    bool isCut() const;
    bool saysNo() const;
    void remember(const QByteArray& piece);
    QString lessSafePlace() const;
    QString networkFailure() const;
    QString failure();

    QNetworkAccessManager network;
    QPointer<QNetworkReply> reply;
    QPointer<QIODevice> target;
    QString host;
    quint16 port = 80;
    QString lastError;
    bool refused = false;
    qint64 stored = 0;   // bytes in the target
    QByteArray head;     // the first of them
    QByteArray tail;     // and the last
    QByteArray refusal;  // what a server sent that refused, its beginning
    int silenceMs = 60000;
    QTimer progressTimer;
    qint64 storedBefore = 0;  // at its last tick
};
