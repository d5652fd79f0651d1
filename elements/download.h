// The online update of an element file, with the backup of the file that it replaces. No widgets.
#pragma once

#include "elements/http.h"

#include "record/winp_data.h"

#include <QBuffer>
#include <QObject>
#include <QString>

/// The address that an update proposes: the last site and directory with the name of the current element file. One with
/// a query comes back as it is.
QString proposedAddress(const WinpData* in);

/// The parts of an address host/path/file, of http without a protocol in front; without a "/" path and file are empty.
struct AddressParts
{
    QString host;  // with "https://" in front if the address has it
    QString path;  // from the first "/" on, with the query
    QString file;  // the local name: beside the current element file
};

/// Host and path of an address, without what follows a "#"; the file stays empty.
AddressParts addressParts(const QString& address);

/// The name that the file of an address gets beside the element file; empty if the address has none that a file may
/// bear, as one with a query has.
QString fileNameOfAddress(const QString& entered);

/// A name to propose where the address has none: of "GROUP=visual&FORMAT=csv" visual.csv.
QString suggestedFileName(const QString& entered);

/// Whether a file beside the element file may bear this name.
bool isFileName(const QString& name);

/// The path of a file of this name beside the current element file.
QString besideElementFile(const QString& name);

/// What the record holds of an address, in bytes of UTF-8.
constexpr int longestAddress = 104;

/// Whether the record can hold the address as it is.
bool isAddressStorable(const QString& entered);

/// Takes an address without the blanks around it: stored as `url` and split. What follows a "#" is no part of the file.
///
/// @return false, with nothing changed, for fewer than 2 characters and for one that is not storable
[[nodiscard]] bool takeAddress(WinpData* in, const QString& entered, AddressParts& parts);

/// Whether a document holds elements: an entry that the reader takes.
bool holdsElements(const QByteArray& document);

/// Where a document waits until it is whole. No element file comes near the limit.
class Received : public QBuffer
{
public:
    static constexpr qint64 mostBytes = 128 * 1024 * 1024;

protected:
    qint64 writeData(const char* data, qint64 size) override;
};

/// Fetches an element file over HTTP.
///
/// The file changes when the document is whole and an entry could be read from it, in one go; in all other cases it
/// stays as it is. While a transfer is under way the backup file `satwwwsave.tmp` holds its old lines as well.
class Download : public QObject
{
    Q_OBJECT

public:
    enum class Start
    {
        running,
        busy,            // another one is under way and goes on
        cannotWriteFile  // errorString() says why
    };

    explicit Download(QObject* parent = nullptr);

    /// Starts a download and returns; `finished` follows if the result is `running`.
    ///
    /// @param port  80 but for tests
    [[nodiscard]] Start start(const AddressParts& parts, quint16 port = 80);

    /// Ends the one under way; `finished` follows with an error.
    void cancel();

    bool isUpdating() const { return updating; }
    QString fileName() const { return elementFile; }
    QString errorString() const { return lastError; }
    /// See `Http::isRefused`.
    bool isRefused() const { return http.isRefused(); }

    /// A transfer that brings less than a kilobyte in this time has failed; 60 seconds unless set.
    void setSilenceLimit(int milliseconds) { http.setSilenceLimit(milliseconds); }

Q_SIGNALS:
    /// The end: the file is the new one, or with `error` the old one still. errorString() says why.
    void finished(bool error);

private Q_SLOTS:
    void httpDone(bool error);

private:
    bool saveBackup() const;
    QString store() const;

    Received received;
    Http http;
    QString elementFile;
    bool updating = false;
    bool hasBackup = false;
    QString lastError;
};

/// The backup that an update has left because the program ended before it did. Nothing but a plain file counts.
namespace leftover {

/// Whether there is one whose lines differ from those of the element file.
bool exists(const QString& elementFile);

/// Gives the element file these lines. @return  why that failed; empty if it was done, and the backup is gone
QString restore(const QString& elementFile);

/// Gives it another name, under which no update looks for it. @return  the name; empty if that failed
QString keep();

}  // namespace leftover
