#include "elements/download.h"

#include "elements/http_server_helper.h"
#include "elements/search_helper.h"

#include "record/text.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSslConfiguration>
#include <QTimer>
#include <array>
#include <gtest/gtest.h>
#include <memory>

namespace {
const std::string oldLines = "OLD 1\nOLD 2\r\nOLD 3";
const std::string& newLines = atlas;
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
    Ending fetch(Download& download, const AddressParts& from) { return fetch(download, from, server->port()); }
    Ending fetch(Download& download, const AddressParts& from, quint16 port)
    {
        Ending ending = endless;
        QEventLoop loop;
        QObject::connect(&download, &Download::finished, &loop, [&](bool wrong) {
            ending = wrong ? failed : good;
            loop.quit();
        });
        QTimer::singleShot(30000, &loop, &QEventLoop::quit);
        if (download.start(from, port) != Download::Start::running)
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

/// An Orbit Mean-Elements Message between marks: before a keyword, before its value, behind the value.
QByteArray message(const QByteArray& start, const QByteArray& middle, bool closes)
{
    constexpr std::array<std::array<const char*, 2>, 8> fields{{{"EPOCH", "2018-01-20T12:00:00"},
                                                                {"MEAN_MOTION", "15.5"},
                                                                {"ECCENTRICITY", "0.001"},
                                                                {"INCLINATION", "50"},
                                                                {"RA_OF_ASC_NODE", "10"},
                                                                {"ARG_OF_PERICENTER", "20"},
                                                                {"MEAN_ANOMALY", "30"},
                                                                {"NORAD_CAT_ID", "100001"}}};
    QByteArray text;
    for (const auto& [keyword, value] : fields) {
        const QByteArray end = closes ? QByteArray("</") + keyword + ">" : start;
        text += (text.isEmpty() || closes ? "" : ",") + start + keyword + middle + value + end;
    }
    return text;
}

/// An answer of this status line, head and body, with the length of the body.
QByteArray whole(const QByteArray& status, const QByteArray& body, const QByteArray& head = {})
{
    return "HTTP/1.1 " + status + "\r\n" + head + "Content-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

struct AnswerCase
{
    const char* what;
    QByteArray answer;
    QByteArray text;  // of the file; empty if the download fails
};

TEST_F(DownloadTest, TakesDocumentsWithElementsAndLeavesTheOldFileElse)
{
    HttpServer other;
    const QByteArray elements = QByteArray::fromStdString(atlas);
    const QByteArray json = "[{" + message("\"", "\":\"", false) + "}]";
    const QByteArray xml = "<ndm><omm>" + message("<", ">", true) + "</omm></ndm>";
    const QByteArray csv =
        "EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,ARG_OF_PERICENTER,MEAN_ANOMALY\r\n"
        "2018-01-20T12:00:00,15.5,0.001,50,10,20,30\r\n";
    const QByteArray packed = qCompress(elements).mid(4);  // what Qt puts in front is none of zlib's
    const QByteArray unpack = "Content-Encoding: deflate\r\n";
    other.answer("/moved.txt", "HTTP/1.0 200 OK\r\n\r\n" + elements);
    const QByteArray otherPlace = "http://127.0.0.1:" + QByteArray::number(other.port()) + "/moved.txt";
    const auto redirect = [](const char* status, const QByteArray& to) {
        return whole(status, "moved", "Location: " + to + "\r\n");
    };
    const AnswerCase cases[] = {
        {"a document", whole("200 OK", elements), elements},
        {"without a line end, but with its length", whole("200 OK", elements.chopped(1)), elements.chopped(1)},
        {"without a length", "HTTP/1.0 200 OK\r\n\r\n" + elements, elements},
        {"in chunks", chunked(elements), elements},
        {"packed", whole("200 OK", packed, unpack), elements},
        {"rubbish in front", whole("200 OK", "hello\n" + elements), "hello\n" + elements},
        // whole messages need no line end; a server that closes early leaves the half of one
        {"JSON", chunked(json), json},
        {"half of JSON", chunked(json.chopped(1), false), {}},
        {"XML", chunked(xml), xml},
        {"half of XML", chunked(xml.chopped(12), false), {}},
        {"CSV", chunked(csv), csv},
        {"CSV without a line", chunked(csv.left(csv.indexOf('2'))), {}},
        {"moved", redirect("301 Moved Permanently", otherPlace), elements},
        {"moved for now", redirect("307 Temporary Redirect", otherPlace), elements},
        {"moved to a file", redirect("302 Found", "file:///etc/passwd"), {}},
        {"moved to itself", redirect("302 Found", "/x"), {}},
        {"not found", whole("404 Not Found", elements), {}},
        {"forbidden", whole("403 Forbidden", "<h1>Forbidden</h1>"), {}},
        {"too often", whole("429 Too Many Requests", elements), {}},
        {"out of order", whole("500 Internal Server Error", elements), {}},
        {"a part", whole("206 Partial Content", elements, "Content-Range: bytes 0-160/9999\r\n"), {}},
        {"no document", "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n", {}},
        {"an empty document", whole("200 OK", ""), {}},
        {"blank lines", whole("200 OK", "\n\n  \n"), {}},
        {"NULs", whole("200 OK", QByteArray(500, '\0')), {}},
        {"a page", whole("200 OK", "<!DOCTYPE html>\n<html><body>Log in</body></html>\n"), {}},
        {"no data", whole("200 OK", "No GP data found\n"), {}},
        {"packed without a word", whole("200 OK", packed), {}},
        {"packed rubbish", whole("200 OK", elements, unpack), {}},
        {"cut in the middle", "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\nConnection: close\r\n\r\n" + elements, {}},
        {"cut in a chunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n64\r\n" + elements.left(50), {}},
        {"cut in a line", "HTTP/1.0 200 OK\r\n\r\n" + elements + elements.left(30), {}},
        {"closed without a word", "", {}},
        {"no HTTP", "220 ready\r\n\r\n" + elements, {}},
    };
    for (const AnswerCase& c : cases) {
        SCOPED_TRACE(c.what);
        server->answer("/x?FORMAT=tle", c.answer);
        server->answer("/x", c.answer);
        const Ending expected = c.text.isEmpty() ? failed : good;
        ScratchDir::write("visual.txt", oldLines);
        EXPECT_EQ(fetch("/x?FORMAT=tle"), expected);
        EXPECT_EQ(ScratchDir::read("visual.txt"), expected == good ? c.text.toStdString() : oldLines);
        EXPECT_FALSE(QFile::exists(backup));
        EXPECT_EQ(error.isEmpty(), expected == good);
        QFile::remove("visual.txt");
        EXPECT_EQ(fetch("/x"), expected);
        EXPECT_EQ(ScratchDir::read("visual.txt"), expected == good ? c.text.toStdString() : "(no such file)");
    }
    server->answer("/x", whole("200 OK", "\r\n<b>Sorry</b>\nno"));
    fetch("/x");
    EXPECT_TRUE(error.endsWith("\"<b>Sorry</b>\"")) << error.toStdString();
}

TEST_F(DownloadTest, NamesTheProgramAndTellsWhatTheServerSaysWhereItRefuses)
{
    const std::array<std::array<QByteArray, 2>, 4> refusals{{
        {"GP data has not updated since 08:11:36 UTC. Data is updated every 2 hours.\n",
         "\"GP data has not updated since 08:11:36 UTC.\""},
        {"<html>\n<head><title>403 No</title></head><p>Go away. Now", "\"403 No\""},
        {QByteArray(100000, 'x'), "\"" + QByteArray(200, 'x') + "...\""},
        {"", "Forbidden"},
    }};
    for (const auto& [body, ending] : refusals) {
        server->answer("/x", whole("403 Forbidden", body));
        EXPECT_EQ(fetch("/x"), failed);
        EXPECT_TRUE(error.endsWith(ending)) << error.toStdString();
    }
    EXPECT_TRUE(server->lastRequest().contains("\r\nUser-Agent: Vorlix/11.8\r\n"));
}

TEST_F(DownloadTest, AnAnswerCutAnywhereLeavesWholeLinesOrTheOldFile)
{
    const QByteArray answer = "HTTP/1.0 200 OK\r\n\r\n" + QByteArray::fromStdString(atlas + atlas);
    for (qsizetype length = 0; length < answer.size(); length += 7) {
        server->answer("/x", answer.left(length));
        ScratchDir::write("visual.txt", oldLines);
        const bool taken = fetch("/x") == good;
        const std::string text = ScratchDir::read("visual.txt");
        EXPECT_TRUE(taken ? text.starts_with(atlas) && text.ends_with('\n') : text == oldLines) << length;
    }
}

TEST_F(DownloadTest, SpeaksHttpsIfAskedAndFailsForNoHost)
{
    server->answer("/x", newDocument);
    for (const char* host : {"https://127.0.0.1", "", "http:", "a b", "[", "::::"}) {  // the server speaks HTTP only
        ScratchDir::write("visual.txt", oldLines);
        Download download;
        EXPECT_EQ(fetch(download, {host, "/x", "visual.txt"}), failed) << host;
        EXPECT_EQ(ScratchDir::read("visual.txt"), oldLines);
    }
    EXPECT_GE(server->handshakes(), 1);
    EXPECT_EQ(server->requests(), 0);
}

TEST_F(DownloadTest, FetchesByTlsAndLeavesItForNothingLessSafe)
{
    const auto safe = HttpServer::overTls();
    const auto place = [](const HttpServer& one, const char* scheme) {
        return QByteArray(scheme) + "://127.0.0.1:" + QByteArray::number(one.port()) + "/new";
    };
    const auto moved = [](const QByteArray& to) {
        return "HTTP/1.1 301 Moved\r\nLocation: " + to + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    };
    // a list with a number of six digits, which two lines do not hold
    const QByteArray list =
        "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,"
        "ARG_OF_PERICENTER,MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,"
        "ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,MEAN_MOTION_DOT,MEAN_MOTION_DDOT\n"
        "SIX,2026-001A,2026-11-20T00:00:00,15.5,.0005,51.6,10,20,30,0,U,270123,999,1,.0001,.0001,0\n";
    const QByteArray document = "HTTP/1.0 200 OK\r\n\r\n" + list;
    safe->answer("/new", document);
    server->answer("/new", document);
    safe->answer("/gp.php?GROUP=visual&FORMAT=csv", document);
    safe->answer("/down", moved(place(*server, "http")));
    safe->answer("/file", moved("file:///etc/passwd"));
    safe->answer("/across", moved(place(*safe, "https")));
    server->answer("/up", moved(place(*safe, "https")));
    struct Road
    {
        const HttpServer& from;
        const char* path;
        Ending ending;
        QByteArray why;
    };
    for (const Road& road :
         {Road{*safe, "/gp.php?GROUP=visual&FORMAT=csv", good, ""}, Road{*safe, "/across", good, ""},
          Road{*server, "/up", good, ""}, Road{*safe, "/down", failed, "leads to " + place(*server, "http") + ","},
          Road{*safe, "/file", failed, "leads to file:///etc/passwd,"}, Road{*safe, "/none", failed, "Not Found"}}) {
        ScratchDir::write("visual.txt", oldLines);
        Download download;
        const bool tls = &road.from == safe.get();
        EXPECT_EQ(
            fetch(download, {tls ? "https://127.0.0.1" : "127.0.0.1", road.path, "visual.txt"}, road.from.port()),
            road.ending)
            << road.path << ' ' << download.errorString().toStdString();
        EXPECT_EQ(ScratchDir::read("visual.txt"), road.ending == good ? list.toStdString() : oldLines) << road.path;
        EXPECT_EQ(download.isRefused(), road.ending == failed) << road.path;
        EXPECT_TRUE(download.errorString().contains(road.why)) << download.errorString().toStdString();
    }
    QSslConfiguration::setDefaultConfiguration({});
    Download stranger;  // nobody vouches for the certificate any more
    EXPECT_EQ(fetch(stranger, {"https://127.0.0.1", "/new", "visual.txt"}, safe->port()), failed);
    EXPECT_FALSE(stranger.isRefused());
}

TEST_F(DownloadTest, KeepsTheOldLinesOnDiskUntilTheEnd)
{
    ScratchDir::write("visual.txt", oldLines);
    server->silence("/never");
    {
        Download download;
        ASSERT_EQ(download.start(parts("/never"), server->port()), Download::Start::running);
        EXPECT_EQ(ScratchDir::read(backup), oldLines + "\n");
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
        EXPECT_TRUE(download.isUpdating());
    }                                              // as if the program had ended
    EXPECT_FALSE(leftover::exists("visual.txt"));  // nothing in it that the file lacks
    ScratchDir::write("visual.txt", "damaged\n");
    EXPECT_TRUE(leftover::exists("visual.txt"));
    server->answer("/x", newDocument);
    EXPECT_EQ(fetch("/x"), good);
    EXPECT_EQ(ScratchDir::read("satwwwsave-1.tmp"), oldLines + "\n");  // not overwritten by the next backup
    ASSERT_TRUE(QFile::rename("satwwwsave-1.tmp", backup));
    EXPECT_EQ(leftover::restore("visual.txt"), "");
    EXPECT_EQ(ScratchDir::read("visual.txt"), oldLines + "\n");
    EXPECT_FALSE(QFile::exists(backup));
}

TEST_F(DownloadTest, TheBackupFollowsNoLink)
{
    ScratchDir::write("mine", "precious\n");
    ScratchDir::write("visual.txt", oldLines);
    ASSERT_TRUE(QFile::link("mine", backup));
    server->answer("/x", newDocument);
    EXPECT_EQ(fetch("/x"), good);
    EXPECT_EQ(ScratchDir::read("mine"), "precious\n");
    EXPECT_EQ(ScratchDir::read("visual.txt"), newLines);
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

TEST_F(DownloadTest, AServerThatBringsNothingIsGivenUpAndAnyCanBeEnded)
{
    server->silence("/never");
    server->drip("/slow");
    ScratchDir::write("visual.txt", oldLines);
    for (const char* path : {"/never", "/slow"}) {
        Download download;
        download.setSilenceLimit(50);
        EXPECT_EQ(fetch(download, parts(path)), failed) << path;
        EXPECT_FALSE(download.errorString().isEmpty());
    }
    Download download;
    QTimer::singleShot(20, &download, &Download::cancel);
    EXPECT_EQ(fetch(download, parts("/slow")), failed);
    EXPECT_EQ(download.errorString(), "Ended by hand");
    EXPECT_EQ(ScratchDir::read("visual.txt"), oldLines);
}

TEST_F(DownloadTest, AFullDiskIsAFailure)
{
    server->answer("/x", newDocument);
    Download download;
    EXPECT_EQ(fetch(download, parts("/x", "/dev/full")), failed);
    EXPECT_FALSE(download.errorString().isEmpty());
}

TEST_F(DownloadTest, TakesFiftyMegabytesAlsoWithoutABackup)
{
    ScratchDir::write("visual.txt", oldLines);
    ASSERT_TRUE(QDir().mkdir(backup));  // where the backup cannot be written
    const QByteArray document = QByteArray(50'000'000, 'x') + "\n" + QByteArray::fromStdString(atlas);
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
    EXPECT_EQ(taken("  example.org/x.txt#top \t"), "example.org|/x.txt|/home/u/x.txt");
    EXPECT_EQ(taken("h/" + QString(103, 'p')), "none");
    EXPECT_EQ(taken("h/" + QString(60, QChar(0xFC))), "none");  // two bytes each
    EXPECT_NE(taken("h/" + QString(102, 'p')), "none");
    EXPECT_EQ(fieldText(indata->url).size(), 104U);
    setDefaults(indata);
}

struct NameCase
{
    const char *address, *own, *suggested;
};

constexpr NameCase nameCases[] = {
    {"example.org/tle/visual.txt", "visual.txt", "elements.txt"},
    {" https://example.org/tle/x.json#a/b ", "x.json", "elements.txt"},
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
