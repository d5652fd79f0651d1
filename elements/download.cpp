#include "elements/download.h"

#include "elements/element_file.h"
#include "elements/reader.h"
#include "elements/selection.h"
#include "record/files.h"
#include "record/text.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QTimer>
#include <QUrlQuery>
#include <algorithm>
#include <fcntl.h>
#include <future>
#include <memory>

namespace {
constexpr int endMilliseconds = 1;
constexpr qsizetype shortestAddress = 2;
constexpr qsizetype shortestKnownAddress = 6;
constexpr QLatin1Char slash('/'), question('?');

/// What stands behind the last "/", all of it without one.
QString fileNameOf(const QString& path)
{
    return path.mid(path.lastIndexOf(slash) + 1);
}

QString withoutFragment(const QString& address)
{
    return address.trimmed().section(QLatin1Char('#'), 0, 0).trimmed();
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

constexpr QLatin1String backupName("satwwwsave.tmp");

/// The bytes of all lines, each ended by a line feed.
QByteArray linesOf(const QString& name)
{
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray lines = file.readAll();
    if (!lines.isEmpty() && !lines.endsWith('\n'))
        lines.append('\n');
    return lines;
}

/// Why a file cannot be written, without a change of it; empty if it can.
QString obstacle(const QString& name)
{
    QFile old(name);
    if (old.exists() && !QFileInfo(name).isFile())
        return mayBeWritten(QFile::encodeName(name).constData()) ? QString() : Download::tr("It is no file");
    if (old.exists())
        return old.open(QIODevice::Append) ? QString() : old.errorString();
    QSaveFile file(name);
    return file.open(QIODevice::WriteOnly) ? QString() : file.errorString();
}

/// The first line of what a server sent, cut to what fits into a box.
QString firstLineOf(const QByteArray& document)
{
    constexpr qsizetype mostCharacters = 100;
    const QByteArray text = document.left(4 * mostCharacters).trimmed();
    QString line = QString::fromUtf8(text.left(text.indexOf('\n'))).trimmed();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return !c.isPrint(); }, QChar(QLatin1Char(' ')));
    return line.size() > mostCharacters ? line.left(mostCharacters) + QStringLiteral("...") : line;
}

bool readsAnEntry(const char* name)
{
    const FilePtr file = openElementFile(name);
    const auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    assignField(in->cfgname[workSlot], "*");
    char report[entryTextRoom] = {};
    return file && tleread(in.get(), file.get(), report, 0) != 0;
}
}  // namespace

AddressParts addressParts(const QString& address)
{
    return splitAddress(withoutFragment(address));
}

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
    const QString path = splitAddress(withoutFragment(entered)).path;
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

bool isAddressStorable(const QString& entered)
{
    return entered.trimmed().toUtf8().size() <= longestAddress;
}

bool takeAddress(WinpData* in, const QString& entered, AddressParts& parts)
{
    const QString whole = entered.trimmed();
    if (whole.size() < shortestAddress || !isAddressStorable(whole))
        return false;
    QsToChar(whole, in->url, sizeof in->url - 1);
    parts = splitAddress(withoutFragment(whole));
    parts.file = besideElementFile(parts.path.isEmpty() ? QString() : fileNameOf(parts.path));
    return true;
}

bool holdsElements(const QByteArray& document)
{
    QTemporaryFile file;
    if (!file.open() || file.write(document) != document.size() || !file.flush())
        return false;
    const QByteArray name = QFile::encodeName(file.fileName());
    // on a thread of its own, which has records of its own: the satellites on show keep their state
    return std::async(std::launch::async, readsAnEntry, name.constData()).get();
}

qint64 Received::writeData(const char* data, qint64 size)
{
    if (size > mostBytes - pos()) {
        setErrorString(QCoreApplication::translate("Download", "The document is too long"));
        return -1;
    }
    return QBuffer::writeData(data, size);
}

Download::Download(QObject* parent) : QObject(parent)
{
    // by a timer: a scan that reads the element file lets other events in, but no timers
    connect(&http, &Http::done, this,
            [this](bool error) { QTimer::singleShot(endMilliseconds, this, [=, this] { httpDone(error); }); });
}

Download::Start Download::start(const AddressParts& parts, quint16 port)
{
    if (updating)
        return Start::busy;
    elementFile = parts.file;
    lastError = obstacle(elementFile);
    if (!lastError.isEmpty())
        return Start::cannotWriteFile;
    if (leftover::exists(elementFile))
        leftover::keep();
    hasBackup = saveBackup();
    updating = true;
    received.setData(QByteArray());
    received.open(QIODevice::WriteOnly);
    http.setHost(parts.host, port);
    http.get(parts.path, &received);
    return Start::running;
}

void Download::cancel()
{
    if (updating)
        http.abort();
}

bool Download::saveBackup() const
{
    const QByteArray lines = linesOf(elementFile);
    // the backup is none of itself
    if (lines.isEmpty() || QFileInfo(elementFile) == QFileInfo(backupName))
        return false;
    // a link would lead to a file that is none of ours
    const int handle = ::open(backupName.latin1(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0644);
    QFile backup;
    if (handle < 0 || !backup.open(handle, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle))
        return false;
    const bool whole = backup.write(lines) == lines.size() && backup.flush();
    backup.close();
    if (!whole)
        QFile::remove(backupName);
    return whole;
}

/// Brings what was received into the element file. @return  why it stays as it is; empty if it is the new one
QString Download::store() const
{
    const QByteArray& document = received.data();
    if (!holdsElements(document))
        return tr("The server sent no elements, but \"%1\"").arg(firstLineOf(document));
    const std::string_view text(document.constData(), static_cast<std::size_t>(document.size()));
    return QString::fromStdString(replaceFile(QFile::encodeName(elementFile).constData(), text));
}

void Download::httpDone(bool error)
{
    received.close();
    lastError = error ? http.errorString() : store();
    received.setData(QByteArray());
    updating = false;
    if (hasBackup)
        QFile::remove(backupName);
    hasBackup = false;
    Q_EMIT finished(!lastError.isEmpty());
}

bool leftover::exists(const QString& elementFile)
{
    const QFileInfo backup(backupName);
    return backup.isFile() && !backup.isSymLink() && backup != QFileInfo(elementFile) &&
           linesOf(backupName) != linesOf(elementFile);
}

QString leftover::restore(const QString& elementFile)
{
    const QByteArray lines = linesOf(backupName);
    const std::string_view text(lines.constData(), static_cast<std::size_t>(lines.size()));
    const std::string why = replaceFile(QFile::encodeName(elementFile).constData(), text);
    if (why.empty())
        QFile::remove(backupName);
    return QString::fromStdString(why);
}

QString leftover::keep()
{
    for (int number = 1; number < 1000; ++number) {
        const QString name = QStringLiteral("satwwwsave-%1.tmp").arg(number);
        if (!QFileInfo::exists(name) && QFile::rename(backupName, name))
            return name;
    }
    return {};
}
