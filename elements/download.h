// The online update of an element file, with the backup of the file that it replaces. No widgets.
#pragma once

#include "elements/http.h"

#include "record/winp_data.h"

#include <QBuffer>
#include <QFile>
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

/// The name that the file of an address gets beside the element file; empty if the address has none that a file may
/// bear, as one with a query has.
QString fileNameOfAddress(const QString& entered);

/// A name to propose where the address has none: of "GROUP=visual&FORMAT=csv" visual.csv.
QString suggestedFileName(const QString& entered);

/// Whether a file beside the element file may bear this name.
bool isFileName(const QString& name);

/// The path of a file of this name beside the current element file.
QString besideElementFile(const QString& name);

/// Takes an address as entered: cut to 104 characters, stored as `url` and split.
///
/// @return false, with nothing changed, for fewer than 2 characters
[[nodiscard]] bool takeAddress(WinpData* in, const QString& entered, AddressParts& parts);

/// Where a document waits until it is whole. No element file comes near the limit.
class Received : public QBuffer
{
public:
    static constexpr qint64 mostBytes = 128 * 1024 * 1024;

protected:
    qint64 writeData(const char* data, qint64 size) override;
};

/// Fetches a file over HTTP. The file is written when the document is whole, in one go, and meanwhile its old lines
/// wait in the backup file `satwwwsave.tmp` as well: whenever the program is killed, one of the two holds them.
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

    bool isUpdating() const { return updating; }
    QString fileName() const { return tleFile.fileName(); }
    QString errorString() const { return lastError; }

Q_SIGNALS:
    /// The end: the file is the new one, or with `error` the old one again. errorString() says why.
    void finished(bool error);

private Q_SLOTS:
    void httpDone(bool error);

private:
    bool saveBackup();
    bool restoreBackup();
    void dropBackup();
    bool storeReceived();

    Received received;
    Http http;
    QFile tleFile;
    QFile backupFile;
    bool updating = false;
    bool hasBackup = false;
    bool isNew = false;  // the file did not exist before
    QString lastError;
};
