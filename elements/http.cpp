#include "elements/http.h"

#include <QFileDevice>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QUrl>

namespace {
constexpr quint16 standardPort = 80;

QUrl address(const QString& host, quint16 port, const QString& path)
{
    const QString place = port == standardPort ? host : host + QLatin1Char(':') + QString::number(port);
    const bool hasProtocol = host.startsWith(QLatin1String("https://"), Qt::CaseInsensitive);
    return QUrl((hasProtocol ? QString() : QStringLiteral("http://")) + place + path);
}

/// Whether the end of a document shows that nothing is missing: that of a line, or of what the first character opens.
bool isWhole(const QByteArray& head, const QByteArray& tail)
{
    const QByteArray end = tail.trimmed();
    if (head.startsWith('[') || head.startsWith('{'))
        return end.endsWith(head[0] == '[' ? ']' : '}');
    if (head.startsWith('<'))
        return end.endsWith('>') && end.lastIndexOf("</") == end.lastIndexOf('<');
    return tail.endsWith('\n');
}

QNetworkRequest requestFor(const QUrl& url, int silenceMs)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    // the document as it is: its length can then be compared with the announced one
    request.setRawHeader("Accept-Encoding", "identity");
    request.setTransferTimeout(silenceMs);
    return request;
}

bool flushed(QIODevice* device)
{
    auto* const file = qobject_cast<QFileDevice*>(device);
    return !file || file->flush();
}
}  // namespace

Http::Http(QObject* parent) : QObject(parent)
{
    network.setProxy(QNetworkProxy::NoProxy);
}

Http::~Http()
{
    if (reply) {
        reply->disconnect(this);
        reply->abort();
    }
}

void Http::setHost(const QString& name, quint16 portNumber)
{
    host = name;
    port = portNumber;
}

void Http::setSilenceLimit(int milliseconds)
{
    silenceMs = milliseconds;
}

void Http::get(const QString& path, QIODevice* to)
{
    target = to;
    stored = 0;
    head.clear();
    tail.clear();
    lastError.clear();
    reply = network.get(requestFor(address(host, port, path), silenceMs));
    connect(reply, &QNetworkReply::readyRead, this, &Http::store);
    connect(reply, &QNetworkReply::finished, this, &Http::finish);
}

bool Http::succeeded() const
{
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= 200 && status < 300;
}

void Http::store()
{
    const QByteArray piece = reply->readAll();
    if (!succeeded() || !lastError.isEmpty())
        return;
    if (!target || target->write(piece) != piece.size()) {
        lastError = target ? target->errorString() : tr("The file is gone");
        reply->abort();
        return;
    }
    stored += piece.size();
    remember(piece);
}

void Http::remember(const QByteArray& piece)
{
    constexpr qsizetype remembered = 64;
    if (head.isEmpty())
        head = piece.left(remembered).trimmed();
    tail = (tail + piece.right(remembered)).right(remembered);
}

/// Whether the connection was closed before the end of the document.
bool Http::isCut() const
{
    const QVariant announced = reply->header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid())
        return announced.toLongLong() != stored;
    // A chunked document that is cut while bytes wait in the socket is reported as complete. Of a text at least a
    // half line tells.
    return reply->rawHeader("Transfer-Encoding").toLower().contains("chunked") && !isWhole(head, tail);
}

QString Http::failure()
{
    if (!lastError.isEmpty())
        return lastError;
    if (reply->error() != QNetworkReply::NoError)
        return reply->errorString();
    if (!succeeded())
        return tr("The server gave no document");
    if (isCut())
        return tr("The connection was closed in the middle of the document");
    if (stored == 0)
        return tr("The document is empty");
    if (!target || !flushed(target))
        return target ? target->errorString() : tr("The file is gone");
    return {};
}

void Http::finish()
{
    if (reply->bytesAvailable() > 0)
        store();
    lastError = failure();
    reply->deleteLater();
    reply.clear();
    Q_EMIT done(!lastError.isEmpty());
}
