#include "elements/http.h"

#include <QFileDevice>
#include <QNetworkRequest>
#include <QUrl>

namespace {
constexpr quint16 standardPort = 80;
constexpr const char* userAgent = "Vorlix/11.8";

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
    request.setTransferTimeout(silenceMs);
    request.setHeader(QNetworkRequest::UserAgentHeader, QLatin1String(userAgent));
    return request;
}

/// A text without what stands between "<" and ">"; each such mark ends a line.
QString withoutMarks(const QString& text)
{
    QString plain;
    bool inMark = false;
    for (const QChar c : text) {
        inMark = inMark || c == QLatin1Char('<');
        if (!inMark)
            plain += c.isPrint() ? c : QChar(QLatin1Char('\n'));
        else if (c == QLatin1Char('>')) {
            inMark = false;
            plain += QLatin1Char('\n');
        }
    }
    return plain;
}

/// The first sentence of a page or a plain text, cut to what fits into a box; empty if it has none.
QString firstSentenceOf(const QByteArray& document)
{
    constexpr qsizetype mostCharacters = 200;
    const QString text = withoutMarks(QString::fromUtf8(document)).trimmed();
    const QString line = text.section(QLatin1Char('\n'), 0, 0).trimmed();
    const qsizetype stop = line.indexOf(QLatin1String(". "));
    const QString sentence = stop < 0 ? line : line.left(stop + 1);
    return sentence.size() > mostCharacters ? sentence.left(mostCharacters) + QStringLiteral("...") : sentence;
}

bool flushed(QIODevice* device)
{
    auto* const file = qobject_cast<QFileDevice*>(device);
    return !file || file->flush();
}
}  // namespace

Http::Http(QObject* parent) : QObject(parent)
{
    connect(&progressTimer, &QTimer::timeout, this, &Http::watchProgress);
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
    refusal.clear();
    refused = false;
    lastError.clear();
    storedBefore = 0;
    progressTimer.start(silenceMs);
    reply = network.get(requestFor(address(host, port, path), silenceMs));
    connect(reply, &QNetworkReply::readyRead, this, &Http::store);
    connect(reply, &QNetworkReply::finished, this, &Http::finish);
}

void Http::abort()
{
    giveUp(tr("Ended by hand"));
}

void Http::giveUp(const QString& why)
{
    lastError = why;
    if (reply)
        reply->abort();
}

/// One that sends a byte now and then would hold the transfer for ever.
void Http::watchProgress()
{
    constexpr qint64 leastBytes = 1024;
    if (stored - storedBefore < leastBytes)
        giveUp(tr("The server sends nothing, or next to nothing"));
    storedBefore = stored;
}

bool Http::succeeded() const
{
    constexpr int part = 206;  // nobody has asked for one
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return status >= 200 && status < 300 && status != part;
}

bool Http::saysNo() const
{
    return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= 400;
}

void Http::store()
{
    constexpr qsizetype mostRefusal = 4096;
    const QByteArray piece = reply->readAll();
    if (saysNo())
        refusal += piece.left(mostRefusal - refusal.size());
    if (!succeeded() || !lastError.isEmpty())
        return;
    if (!target || target->write(piece) != piece.size()) {
        giveUp(target ? target->errorString() : tr("The file is gone"));
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
    const bool packed = reply->hasRawHeader("Content-Encoding");  // the length is that of the packed bytes
    if (announced.isValid() && !packed)
        return announced.toLongLong() != stored;
    // Without a length a connection that is cut looks like one that is done. Of a text at least a half line tells.
    return !isWhole(head, tail);
}

/// What the server leads to if it is less safe than its own address; empty if that is not why nothing came.
QString Http::lessSafePlace() const
{
    constexpr qsizetype mostCharacters = 200;
    const QNetworkReply::NetworkError error = reply->error();
    if (error != QNetworkReply::InsecureRedirectError && error != QNetworkReply::ProtocolUnknownError)
        return {};
    return QString::fromUtf8(reply->rawHeader("Location").left(mostCharacters)).simplified();
}

QString Http::networkFailure() const
{
    if (const QString place = lessSafePlace(); !place.isEmpty())
        return tr("The server leads to %1, which is less safe and was not followed").arg(place);
    const QString sentence = firstSentenceOf(refusal);
    return sentence.isEmpty() ? reply->errorString()
                              : tr("%1. The server says: \"%2\"").arg(reply->errorString(), sentence);
}

QString Http::failure()
{
    if (!lastError.isEmpty())
        return lastError;
    if (reply->error() != QNetworkReply::NoError)
        return networkFailure();
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
    progressTimer.stop();
    if (reply->bytesAvailable() > 0)
        store();
    lastError = failure();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    refused = !lastError.isEmpty() && status >= 300 && status < 500;
    reply->deleteLater();
    reply.clear();
    Q_EMIT done(!lastError.isEmpty());
}
