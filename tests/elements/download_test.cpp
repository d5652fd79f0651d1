#include "elements/download.h"

#include "elements/http_server_helper.h"
#include "elements/search_helper.h"

#include "record/text.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace {
const std::string oldLines = "OLD 1\nOLD 2\r\nOLD 3";
const std::string oldLinesEnded = oldLines + "\n";
const std::string newLines = "NEW 1\nNEW 2\n";
const QByteArray newDocument = "HTTP/1.0 200 OK\r\n\r\n" + QByteArray::fromStdString(newLines);
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

    AddressParts parts(const char* path, const char* file = "visual.txt") const { return {"127.0.0.1", path, file}; }

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

/// The body in chunks of one byte.
QByteArray chunked(const QByteArray& body, bool ended = true)
{
    QByteArray answer = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    for (const char byte : body)
        answer += QByteArray("1\r\n") + byte + "\r\n";
    return answer + (ended ? "0\r\n\r\n" : "");
}

struct AnswerCase
{
    const char* what;
    QByteArray answer;
    const char* text;  // of the file; null if the download fails
};

TEST_F(DownloadTest, TakesWholeDocumentsAndBringsTheOldLinesBackElse)
{
    HttpServer other;
    other.answer("/moved.txt", "HTTP/1.0 200 OK\r\n\r\nMOVED\n");
    const QByteArray otherPlace = "http://127.0.0.1:" + QByteArray::number(other.port()) + "/moved.txt";
    const AnswerCase cases[] = {
        {"a document", "HTTP/1.1 200 OK\r\nContent-Length: 6\r\nConnection: close\r\n\r\nNEW 1\n", "NEW 1\n"},
        {"without a length", "HTTP/1.0 200 OK\r\n\r\nNEW 3\n", "NEW 3\n"},
        {"in chunks", chunked("NEW 1\nNEW 2\n"), "NEW 1\nNEW 2\n"},
        // whole messages need no line end; a server that closes early leaves the half of one
        {"JSON", chunked("[{\"A\":[1]},{}]"), "[{\"A\":[1]},{}]"},
        {"half of JSON", chunked("[{\"A\":[1]},{}", false), nullptr},
        {"XML", chunked("<ndm><omm></omm></ndm>"), "<ndm><omm></omm></ndm>"},
        {"half of XML", chunked("<ndm><omm></omm><omm>", false), nullptr},
        {"CSV", chunked("A,B\r\n1,2\r\n"), "A,B\r\n1,2\r\n"},
        {"moved",
         "HTTP/1.1 301 Moved Permanently\r\nLocation: " + otherPlace +
             "\r\nContent-Length: 5\r\nConnection: close\r\n\r\nmoved",
         "MOVED\n"},
        {"not found", "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot found", nullptr},
        {"out of order", "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 5\r\nConnection: close\r\n\r\nerror",
         nullptr},
        {"no document", "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n", nullptr},
        {"an empty document", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", nullptr},
        {"cut in the middle", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\nConnection: close\r\n\r\nNEW 1\nNEW",
         nullptr},
        {"cut in the middle of a chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n64\r\nNEW 1\nNEW",
         nullptr},
        {"closed without a word", "", nullptr},
        {"no HTTP", "220 ready\r\n\r\nNEW 1\n", nullptr},
        {"a redirect to itself",
         "HTTP/1.1 302 Found\r\nLocation: /x\r\nContent-Length: 0\r\nConnection: close\r\n\r\n", nullptr},
    };
    for (const AnswerCase& c : cases) {
        SCOPED_TRACE(c.what);
        server->answer("/x?FORMAT=tle", c.answer);
        server->answer("/x", c.answer);
        const Ending expected = c.text ? good : failed;
        ScratchDir::write("visual.txt", oldLines);
        EXPECT_EQ(fetch("/x?FORMAT=tle"), expected);
        EXPECT_EQ(ScratchDir::read("visual.txt"), c.text ? c.text : oldLinesEnded);
        EXPECT_FALSE(QFile::exists(backup));
        EXPECT_EQ(error.isEmpty(), c.text != nullptr);
        QFile::remove("visual.txt");
        EXPECT_EQ(fetch("/x"), expected);
        EXPECT_EQ(ScratchDir::read("visual.txt"), c.text ? c.text : "(no such file)");  // there was none before
    }
}

TEST_F(DownloadTest, SpeaksHttpsIfAskedAndFailsForNoHost)
{
    server->answer("/x", newDocument);
    for (const char* host : {"https://127.0.0.1", "", "http:", "a b", "[", "::::"}) {  // the server speaks HTTP only
        ScratchDir::write("visual.txt", oldLines);
        Download download;
        EXPECT_EQ(fetch(download, {host, "/x", "visual.txt"}), failed) << host;
        EXPECT_EQ(ScratchDir::read("visual.txt"), oldLinesEnded);
    }
    EXPECT_GE(server->handshakes(), 1);
    EXPECT_EQ(server->requests(), 0);
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
    server->answer("/tle/visual.txt", newDocument);
    Download download;
    QTimer::singleShot(0, &download, [&] {
        EXPECT_EQ(download.start(parts("/other", "other.txt")), Download::Start::busy);
        EXPECT_EQ(download.fileName(), "visual.txt");
    });
    EXPECT_EQ(fetch(download, parts("/tle/visual.txt")), good);
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
    EXPECT_FALSE(QFile::exists("other.txt"));
    EXPECT_EQ(fetch(download, parts("/tle/visual.txt")), good);  // and it may run again
}

TEST_F(DownloadTest, ASilentServerIsGivenUp)
{
    QFile file("x");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    server->silence("/never");
    Http http;
    http.setSilenceLimit(50);
    http.setHost("127.0.0.1", server->port());
    QEventLoop loop;
    bool wrong = false;
    QObject::connect(&http, &Http::done, &loop, [&](bool errorAtEnd) {
        wrong = errorAtEnd;
        loop.quit();
    });
    QTimer::singleShot(30000, &loop, &QEventLoop::quit);
    http.get("/never", &file);
    loop.exec();
    EXPECT_TRUE(wrong);
    EXPECT_FALSE(http.errorString().isEmpty());
}

TEST_F(DownloadTest, AFullDiskIsAFailure)
{
    server->answer("/x", "HTTP/1.0 200 OK\r\n\r\n" + QByteArray(100000, 'x'));
    Download download;
    EXPECT_EQ(fetch(download, parts("/x", "/dev/full")), failed);
    EXPECT_FALSE(download.errorString().isEmpty());
}

TEST_F(DownloadTest, TakesFiftyMegabytesAlsoWithoutABackup)
{
    ScratchDir::write("visual.txt", oldLines);
    ASSERT_TRUE(QDir().mkdir(backup));  // where the backup cannot be written
    const QByteArray document = QByteArray(50'000'000, 'x') + "\n";
    server->answer("/x", "HTTP/1.0 200 OK\r\n\r\n" + document);
    EXPECT_EQ(fetch("/x"), good);
    EXPECT_TRUE(ScratchDir::read("visual.txt") == document.toStdString());
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
        assignField(in.url, c.url);
        assignField(in.tlename, c.elementFile);
        EXPECT_EQ(proposedAddress(&in), QString(c.proposed)) << c.url;
    }
}

TEST(Address, IsSplitAndStored)
{
    setDefaults(indata);
    assignField(indata->tlename, "/home/u/stations.txt");
    AddressParts parts;
    const auto taken = [&](const QString& entered) {
        return takeAddress(indata, entered, parts) ? parts.host + '|' + parts.path + '|' + parts.file
                                                   : QString("none");
    };
    EXPECT_EQ(taken("x"), "none");
    EXPECT_EQ(fieldText(indata->url), "celestrak.org/NORAD/elements/visual.txt");
    EXPECT_EQ(taken("example.org/tle/new.txt"), "example.org|/tle/new.txt|/home/u/new.txt");
    EXPECT_EQ(fieldText(indata->url), "example.org/tle/new.txt");
    EXPECT_EQ(taken("http://example.org/gp.php?GROUP=x"), "example.org|/gp.php?GROUP=x|/home/u/gp.php?GROUP=x");
    EXPECT_EQ(taken("HTTPS://example.org/x.txt"), "https://example.org|/x.txt|/home/u/x.txt");
    EXPECT_EQ(taken("example.org"), "example.org||/home/u/");
    EXPECT_NE(taken("h/" + QString(300, 'p')), "none");
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
        EXPECT_EQ(fileNameOfAddress(c.address), QString(c.own)) << c.address;
        EXPECT_EQ(suggestedFileName(c.address), QString(c.suggested)) << c.address;
    }
}
}  // namespace
