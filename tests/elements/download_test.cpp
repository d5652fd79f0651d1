#include "elements/download.h"

#include "elements/http_server_helper.h"
#include "elements/search_helper.h"
#include "omm_catalogue.h"
#include "scratch_dir.h"

#include "app/record/text.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace {
const std::string oldLines = "OLD 1\nOLD 2\r\nOLD 3";
const std::string oldLinesEnded = oldLines + "\n";
const std::string newLines = "NEW 1\nNEW 2\n";
constexpr const char* backup = "satwwwsave.tmp";

enum Ending
{
    good,
    failed,
    endless,
    notStarted
};

class DownloadTest : public testing::Test
{
protected:
    DownloadTest()
    {
        if (!QCoreApplication::instance()) {
            static int argc = 1;
            static char name[] = "test_elements";
            static char* argv[] = {name, nullptr};
            application = std::make_unique<QCoreApplication>(argc, argv);
        }
        server = std::make_unique<HttpServer>();
    }

    AddressParts parts(const char* path, const char* file = "visual.txt") const
    {
        return {QStringLiteral("127.0.0.1"), QString::fromUtf8(path), QString::fromUtf8(file)};
    }

    /// Runs a download to its end.
    Ending fetch(Download& download, const AddressParts& from)
    {
        Ending ending = endless;
        QEventLoop loop;
        QObject::connect(&download, &Download::finished, &loop, [&](bool wrong) {
            ending = wrong ? failed : good;
            loop.quit();
        });
        QTimer::singleShot(30000, &loop, &QEventLoop::quit);
        if (download.start(from, server->port()) != Download::Start::running)
            return notStarted;
        loop.exec();
        return ending;
    }

    Ending fetch(const char* path)
    {
        Download download;
        const Ending ending = fetch(download, parts(path));
        EXPECT_FALSE(download.isUpdating());
        error = download.errorString();
        return ending;
    }

    const ScratchDir here;
    std::unique_ptr<QCoreApplication> application;
    std::unique_ptr<HttpServer> server;
    QString error;
};

TEST_F(DownloadTest, ReplacesAnOldFile)
{
    ScratchDir::write("visual.txt", oldLines);
    server->document("/tle/visual.txt", QByteArray::fromStdString(newLines));
    EXPECT_EQ(fetch("/tle/visual.txt"), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
    EXPECT_FALSE(QFile::exists(backup));
    EXPECT_TRUE(error.isEmpty());
}

TEST_F(DownloadTest, TakesQueriesAndDocumentsWithoutALength)
{
    server->answer("/gp.php?GROUP=visual&FORMAT=tle",
                   "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n6\r\nNEW 1\n\r\n6\r\nNEW 2\n\r\n0\r\n\r\n");
    EXPECT_EQ(fetch("/gp.php?GROUP=visual&FORMAT=tle"), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
    server->answer("/old", "HTTP/1.0 200 OK\r\n\r\nNEW 3\n");
    EXPECT_EQ(fetch("/old"), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), "NEW 3\n");
}

struct ChunkCase
{
    const char* what;
    QByteArray body;
    Ending ending;
};

// whole documents need no line end; a server that closes early leaves the half of one
const ChunkCase chunkCases[] = {
    {"JSON", "[{\"A\":[1]},{}]", good},      {"half of JSON", "[{\"A\":[1]},{}", failed},
    {"XML", "<ndm><omm></omm></ndm>", good}, {"half of XML", "<ndm><omm></omm><omm>", failed},
    {"CSV", "A,B\r\n1,2\r\n", good},
};

TEST_F(DownloadTest, TellsWholeMessagesFromHalfOnes)
{
    for (const ChunkCase& c : chunkCases) {
        SCOPED_TRACE(c.what);
        QByteArray chunks;
        for (const char byte : c.body)
            chunks += QByteArray("1\r\n") + byte + "\r\n";
        server->answer("/x", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + chunks +
                                 (c.ending == good ? "0\r\n\r\n" : ""));
        EXPECT_EQ(fetch("/x"), c.ending);
    }
}

TEST_F(DownloadTest, SpeaksHttpsToAnAddressThatSaysSo)
{
    ScratchDir::write("visual.txt", oldLines);
    server->document("/x", QByteArray::fromStdString(newLines));
    Download download;
    const AddressParts secure{QStringLiteral("https://127.0.0.1"), QStringLiteral("/x"),
                              QStringLiteral("visual.txt")};
    EXPECT_EQ(fetch(download, secure), failed);  // the server does not
    EXPECT_GE(server->handshakes(), 1);
    EXPECT_EQ(server->requests(), 0);
    EXPECT_EQ(ScratchDir::read("visual.txt"), oldLinesEnded);
}

TEST_F(DownloadTest, FollowsRedirects)
{
    HttpServer other;
    other.document("/moved.txt", QByteArray::fromStdString(newLines));
    server->answer("/tle/visual.txt", "HTTP/1.1 301 Moved Permanently\r\nLocation: http://127.0.0.1:" +
                                          QByteArray::number(other.port()) +
                                          "/moved.txt\r\nContent-Length: 5\r\nConnection: close\r\n\r\nmoved");
    EXPECT_EQ(fetch("/tle/visual.txt"), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
    EXPECT_EQ(other.requests(), 1);
}

struct FailureCase
{
    const char* what;
    QByteArray answer;
};

const FailureCase failureCases[] = {
    {"not found", "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot found"},
    {"no document", "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n"},
    {"cut in the middle", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nNEW 1\nNEW"},
    {"cut in the middle of a chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n64\r\nNEW 1\nNEW"},
    {"closed without a word", ""},
    {"no HTTP", "220 ready\r\n\r\nNEW 1\n"},
    {"a redirect to itself",
     "HTTP/1.1 302 Found\r\nLocation: /bad\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"},
};

TEST_F(DownloadTest, EveryFailureBringsTheOldLinesBack)
{
    for (const FailureCase& c : failureCases) {
        SCOPED_TRACE(c.what);
        ScratchDir::write("visual.txt", oldLines);
        server->answer("/bad", c.answer);
        EXPECT_EQ(fetch("/bad"), failed);
        EXPECT_EQ(ScratchDir::read("visual.txt"), oldLinesEnded);
        EXPECT_FALSE(QFile::exists(backup));
        EXPECT_FALSE(error.isEmpty());
        QFile::remove(QStringLiteral("visual.txt"));
        EXPECT_EQ(fetch("/bad"), failed);
        EXPECT_FALSE(QFile::exists(QStringLiteral("visual.txt")));  // there was none before
    }
}

TEST_F(DownloadTest, AddressesOfNoHostFail)
{
    ScratchDir::write("visual.txt", oldLines);
    for (const char* host : {"", "http:", "a b", "[", "::::"}) {
        SCOPED_TRACE(host);
        Download download;
        EXPECT_EQ(fetch(download, {QString::fromUtf8(host), QStringLiteral("/x"), QStringLiteral("visual.txt")}),
                  failed);
        EXPECT_EQ(ScratchDir::read("visual.txt"), oldLinesEnded);
    }
}

TEST_F(DownloadTest, KeepsTheOldLinesOnDiskUntilTheEnd)
{
    ScratchDir::write("visual.txt", oldLines);
    server->silence("/never");
    {
        Download download;
        ASSERT_EQ(download.start(parts("/never"), server->port()), Download::Start::running);
        EXPECT_EQ(ScratchDir::read(backup), oldLinesEnded);
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_TRUE(download.isUpdating());
    }  // as if the program had ended
    EXPECT_EQ(ScratchDir::read(backup), oldLinesEnded);
    EXPECT_EQ(ScratchDir::read("visual.txt"), oldLines);  // so the next backup is none of half a document
}

TEST(Received, RefusesADocumentWithoutEnd)
{
    Received buffer;
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    const QByteArray half(Received::mostBytes / 2, 'x');
    EXPECT_EQ(buffer.write(half), half.size());
    EXPECT_EQ(buffer.write(half), half.size());
    EXPECT_EQ(buffer.write("x", 1), -1);
    EXPECT_EQ(buffer.size(), Received::mostBytes);
    EXPECT_FALSE(buffer.errorString().isEmpty());
}

TEST_F(DownloadTest, ASecondOneDoesNotDisturbTheFirst)
{
    ScratchDir::write("visual.txt", oldLines);
    server->document("/tle/visual.txt", QByteArray::fromStdString(newLines));
    Download download;
    QTimer::singleShot(0, &download, [&] {
        EXPECT_EQ(download.start(parts("/other", "other.txt")), Download::Start::busy);
        EXPECT_EQ(download.fileName(), QStringLiteral("visual.txt"));
    });
    EXPECT_EQ(fetch(download, parts("/tle/visual.txt")), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
    EXPECT_FALSE(QFile::exists(QStringLiteral("other.txt")));
    EXPECT_EQ(fetch(download, parts("/tle/visual.txt")), good);  // and it may run again
}

TEST_F(DownloadTest, ASilentServerIsGivenUp)
{
    QFile file(QStringLiteral("x"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    server->silence("/never");
    Http http;
    http.setSilenceLimit(50);
    http.setHost(QStringLiteral("127.0.0.1"), server->port());
    QEventLoop loop;
    bool wrong = false;
    QObject::connect(&http, &Http::done, &loop, [&](bool errorAtEnd) {
        wrong = errorAtEnd;
        loop.quit();
    });
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    http.get(QStringLiteral("/never"), &file);
    loop.exec();
    EXPECT_TRUE(wrong);
    EXPECT_FALSE(http.errorString().isEmpty());
}

TEST_F(DownloadTest, AFullDiskIsAFailure)
{
    server->document("/x", QByteArray(100000, 'x'));
    Download download;
    EXPECT_EQ(fetch(download, parts("/x", "/dev/full")), failed);
    EXPECT_FALSE(download.errorString().isEmpty());
}

TEST_F(DownloadTest, GoesOnWithoutABackupThatCannotBeWritten)
{
    ScratchDir::write("visual.txt", oldLines);
    ASSERT_TRUE(QDir().mkdir(QString::fromUtf8(backup)));
    server->document("/x", QByteArray::fromStdString(newLines));
    EXPECT_EQ(fetch("/x"), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
}

struct AddressCase
{
    const char *url, *elementFile, *proposed;
};

constexpr AddressCase proposalCases[] = {
    {"example.org/tle/visual.txt", "/home/u/stations.txt", "example.org/tle/stations.txt"},
    {"example.org/tle/visual.txt", "stations.txt", "example.org/tle/stations.txt"},
    {"a/b/c", "/home/u/stations.txt", "a/b/c"},
    {"example.org", "/home/u/stations.txt", "example.org"},
    {"https://example.org/tle/visual.txt", "/home/u/stations.txt", "https://example.org/tle/stations.txt"},
    {"https://example.org", "/home/u/stations.txt", "https://example.org"},
    {"example.org/gp.php?GROUP=visual&FORMAT=csv", "/home/u/stations.txt",
     "example.org/gp.php?GROUP=visual&FORMAT=csv"},
};

TEST(Address, ProposesTheLastSiteWithTheNameOfTheFile)
{
    WinpData in;
    for (const AddressCase& c : proposalCases) {
        SCOPED_TRACE(c.url);
        assignField(in.url, c.url);
        assignField(in.tlename, c.elementFile);
        EXPECT_EQ(proposedAddress(&in), QString::fromUtf8(c.proposed));
    }
}

TEST(Address, IsSplitAndStored)
{
    setDefaults(indata);
    assignField(indata->tlename, "/home/u/stations.txt");
    AddressParts parts;
    EXPECT_FALSE(takeAddress(indata, QStringLiteral("x"), parts));
    EXPECT_EQ(fieldText(indata->url), "celestrak.org/NORAD/elements/visual.txt");
    ASSERT_TRUE(takeAddress(indata, QStringLiteral("example.org/tle/new.txt"), parts));
    EXPECT_EQ(fieldText(indata->url), "example.org/tle/new.txt");
    EXPECT_EQ(parts.host, QStringLiteral("example.org"));
    EXPECT_EQ(parts.path, QStringLiteral("/tle/new.txt"));
    EXPECT_EQ(parts.file, QStringLiteral("/home/u/new.txt"));
    ASSERT_TRUE(takeAddress(indata, QStringLiteral("example.org"), parts));
    EXPECT_EQ(parts.host, QStringLiteral("example.org"));
    EXPECT_TRUE(parts.path.isEmpty());
    EXPECT_EQ(parts.file, QStringLiteral("/home/u/"));
    ASSERT_TRUE(takeAddress(indata, QStringLiteral("h/") + QString(300, QLatin1Char('p')), parts));
    EXPECT_EQ(fieldText(indata->url).size(), 104U);
    EXPECT_EQ(parts.path.size(), 103);
    setDefaults(indata);
}

struct NameCase
{
    const char *address, *own, *suggested;
};

constexpr NameCase nameCases[] = {
    {"example.org/tle/visual.txt", "visual.txt", "elements.txt"},
    {"https://example.org/tle/x.json", "x.json", "elements.txt"},
    {"example.org/gp.php?GROUP=visual&FORMAT=csv", "", "visual.csv"},
    {"example.org/gp.php?FORMAT=JSON-PRETTY&GROUP=last-30-days", "", "last-30-days.json"},
    {"example.org/gp.php?CATNR=25544&FORMAT=tle", "", "25544.txt"},
    {"example.org/gp.php?NAME=a/b", "", "elements.txt"},
    {"example.org/gp.php?X=a/b.txt", "", "elements.txt"},
    {"example.org/", "", "elements.txt"},
    {"example.org/tle/..", "", "elements.txt"},
    {"https://example.org", "", "elements.txt"},
};

TEST(Address, NamesTheFileOrProposesOne)
{
    for (const NameCase& c : nameCases) {
        SCOPED_TRACE(c.address);
        EXPECT_EQ(fileNameOfAddress(QString::fromUtf8(c.address)), QString::fromUtf8(c.own));
        EXPECT_EQ(suggestedFileName(QString::fromUtf8(c.address)), QString::fromUtf8(c.suggested));
    }
}
}  // namespace
