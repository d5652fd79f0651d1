#include "elements/download.h"

#include "elements/selection.h"
#include "record/text.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFileInfo>
#include <QTimer>
#include <QUrlQuery>
#include <algorithm>

namespace {
constexpr int longestAddress = 104;
constexpr int endMilliseconds = 1;
constexpr qsizetype shortestAddress = 2;
constexpr qsizetype shortestKnownAddress = 6;
constexpr QLatin1Char slash('/'), question('?');

/// What stands behind the last "/", all of it without one.
QString fileNameOf(const QString& path)
{
    return path.mid(path.lastIndexOf(slash) + 1);
}

/// Host and path; what stands before "://" belongs to the host if it is https, and is left out if it is http.
AddressParts splitAddress(const QString& address)
{
    constexpr QLatin1String http("http://"), https("https://");
    const bool isHttps = address.startsWith(https, Qt::CaseInsensitive);
    const bool isHttp = address.startsWith(http, Qt::CaseInsensitive);
    const QString plain = address.mid(isHttps ? https.size() : isHttp ? http.size() : 0);
    const qsizetype first = plain.indexOf(slash);
    AddressParts parts;
    parts.host = (isHttps ? QString(https) : QString()) + plain.left(first);
    parts.path = first < 0 ? QString() : plain.mid(first);
    return parts;
}

/// The bytes of all lines, each ended by a line feed.
QByteArray linesOf(QFile& file)
{
    QByteArray lines = file.readAll();
    if (!lines.isEmpty() && !lines.endsWith('\n'))
        lines.append('\n');
    return lines;
}

bool writeAll(QFile& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}
}  // namespace

QString proposedAddress(const WinpData* in)
{
    const QString last = fieldQString(in->url);
    const QString elementFile = fieldQString(in->tlename);
    const qsizetype directory = last.lastIndexOf(slash);
    const bool hasPath = !splitAddress(last).path.isEmpty();
    if (last.size() < shortestKnownAddress || !hasPath || last.contains(question))
        return last;
    return last.left(directory + 1) + fileNameOf(elementFile);
}

QString fileNameOfAddress(const QString& entered)
{
    const QString path = splitAddress(entered.left(longestAddress)).path;
    const QString name = fileNameOf(path);
    return isFileName(name) && !path.contains(question) ? name : QString();
}

QString suggestedFileName(const QString& entered)
{
    const QUrlQuery query(entered.mid(entered.indexOf(question) + 1));
    const QString form = query.queryItemValue(QStringLiteral("FORMAT")).toLower();
    const bool isText = form.isEmpty() || form == QLatin1String("tle") || form == QLatin1String("2le") ||
                        form == QLatin1String("3le");
    for (const char* key : {"GROUP", "SPECIAL", "NAME", "CATNR", "INTDES"}) {
        const QString value = query.queryItemValue(QLatin1String(key), QUrl::FullyDecoded).toLower();
        const QString name = value + (isText ? QStringLiteral(".txt") : QLatin1Char('.') + form.left(4));
        if (!value.isEmpty() && isFileName(name))
            return name;
    }
    return QStringLiteral("elements.txt");
}

bool isFileName(const QString& name)
{
    const bool plain = std::none_of(
        name.begin(), name.end(), [](QChar c) { return !c.isPrint() || QStringLiteral("/\\?*:|\"<>").contains(c); });
    return plain && !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..");
}

QString besideElementFile(const QString& name)
{
    char path[sizeof WinpData::tlename] = "*";
    QsToChar(name, path + 1, sizeof path - 2);
    vsFileName(path);
    return fieldQString(path);
}

bool takeAddress(WinpData* in, const QString& entered, AddressParts& parts)
{
    const QString whole = entered.left(longestAddress);
    if (whole.size() < shortestAddress)
        return false;
    QsToChar(whole, in->url, sizeof in->url - 1);
    parts = splitAddress(whole);
    parts.file = besideElementFile(parts.path.isEmpty() ? QString() : fileNameOf(parts.path));
    return true;
}

qint64 Received::writeData(const char* data, qint64 size)
{
    if (size > mostBytes - pos()) {
        setErrorString(QCoreApplication::translate("Download", "The document is too long"));
        return -1;
    }
    return QBuffer::writeData(data, size);
}

Download::Download(QObject* parent) : QObject(parent), backupFile(QStringLiteral("satwwwsave.tmp"))
{
    // by a timer: a scan that reads the element file lets other events in, but no timers
    connect(&http, &Http::done, this,
            [this](bool error) { QTimer::singleShot(endMilliseconds, this, [=, this] { httpDone(error); }); });
}

Download::Start Download::start(const AddressParts& parts, quint16 port)
{
    if (updating)
        return Start::busy;
    tleFile.setFileName(parts.file);
    isNew = !tleFile.exists();
    hasBackup = saveBackup();
    if (!tleFile.open(QIODevice::Append)) {  // for writing, with what it holds left alone as yet
        lastError = tleFile.errorString();
        dropBackup();
        return Start::cannotWriteFile;
    }
    updating = true;
    received.setData(QByteArray());
    received.open(QIODevice::WriteOnly);
    http.setHost(parts.host, port);
    http.get(parts.path, &received);
    return Start::running;
}

bool Download::saveBackup()
{
    // a device has no lines to keep, and the backup is none of itself
    const QFileInfo old(tleFile);
    if (!old.isFile() || old == QFileInfo(backupFile) || !tleFile.open(QIODevice::ReadOnly))
        return false;
    const QByteArray lines = linesOf(tleFile);
    tleFile.close();
    if (!backupFile.open(QIODevice::WriteOnly))
        return false;
    const bool complete = writeAll(backupFile, lines);
    backupFile.close();
    if (!complete)
        backupFile.remove();
    return complete;
}

/// What the download has written gives way to the old lines.
bool Download::restoreBackup()
{
    if (!backupFile.open(QIODevice::ReadOnly))
        return false;
    const QByteArray lines = linesOf(backupFile);
    backupFile.close();
    return tleFile.resize(0) && tleFile.seek(0) && writeAll(tleFile, lines);
}

/// Puts the new lines in the place of the old ones. A device has none that could be cut off.
bool Download::storeReceived()
{
    const bool emptied = tleFile.resize(0) || !QFileInfo(tleFile).isFile();
    return emptied && writeAll(tleFile, received.data());
}

void Download::dropBackup()
{
    if (hasBackup)
        backupFile.remove();
    hasBackup = false;
}

void Download::httpDone(bool error)
{
    lastError = http.errorString();
    received.close();
    if (!error && !storeReceived()) {
        lastError = tleFile.errorString();
        error = true;
    }
    const bool oldLinesLost = error && hasBackup && !restoreBackup();
    updating = false;
    tleFile.close();
    if (error && isNew)
        tleFile.remove();
    if (oldLinesLost) {
        lastError += tr(". The old lines are in %1").arg(backupFile.fileName());
        hasBackup = false;
    }
    dropBackup();
    Q_EMIT finished(error);
}
