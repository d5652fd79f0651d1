#include "mounts/follower.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QRegularExpression>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <gtest/gtest.h>

#include "mounts/seasat_helper.h"

namespace {

constexpr double second = 1.0 / 86400.0;
constexpr double rise = 58138.0 + (16 * 3600 + 56 * 60 + 17) * second;

/// A server on loopback that hears what comes and answers by a function.
class Server
{
public:
    using Answer = std::function<QByteArray(const QByteArray& heard)>;

    explicit Server(Answer how) : answer(std::move(how))
    {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            QTcpSocket* socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                const QByteArray bytes = socket->readAll();
                heard += bytes;
                const QByteArray reply = answer(bytes);
                if (reply == "hang up")
                    socket->abort();
                else
                    socket->write(reply);
            });
        });
    }

    QTcpServer server;
    Answer answer;
    QByteArray heard;
};

class MountTest : public testing::Test
{
protected:
    MountTest()
    {
        static int argc = 1;
        static char name[] = "test_mounts";
        static char* argv[] = {name, nullptr};
        if (!QCoreApplication::instance())
            application = std::make_unique<QCoreApplication>(argc, argv);
    }

    /// Follows SEASAT from seconds after it comes up, ten seconds of its way a tick.
    ///
    /// @param stopAt  ended by hand when it has told something that begins so
    QString run(MountKind kind, const Server& server, double from, const QString& stopAt = "never")
    {
        FollowTask task{"SEASAT 1", seasat(), vienna, {}, {10.0, 30.0}, {}, 4};
        task.mount = {kind, "127.0.0.1", server.server.serverPort(),
                      kind == MountKind::indi ? "Telescope Simulator" : "0"};
        task.mount.patience = 400;
        auto now = std::make_shared<std::atomic<double>>(rise + from * second);
        Following following(task, [now] {
            const double t = *now;
            *now = t + 10 * second;
            return t;
        });
        QString why = "endless";
        QEventLoop loop;
        QObject::connect(&following, &Following::told, &loop, [&](const QString& line) {
            told << line;
            if (line.startsWith(stopAt))
                following.stop();
        });
        QObject::connect(&following, &Following::ended, &loop, [&](const QString& reason) {
            why = reason;
            loop.quit();
        });
        QTimer::singleShot(20000, &loop, &QEventLoop::quit);
        loop.exec();
        QCoreApplication::processEvents();
        return why;
    }

    std::unique_ptr<QCoreApplication> application;
    QStringList told;
};

QByteArray rotator(const QByteArray& heard)
{
    return heard.startsWith('p') ? "120.5\n30.25\n" : "RPRT 0\n";
}

TEST_F(MountTest, ARotatorGoesToTheStartFollowsAndStops)
{
    const Server server(rotator);
    EXPECT_EQ(run(MountKind::rotctld, server, -94), "SEASAT 1 has set");
    const QStringList words = QString(server.heard).split('\n', Qt::SkipEmptyParts);
    ASSERT_GT(words.size(), 30) << server.heard.constData();
    EXPECT_EQ(words[0], "p");
    EXPECT_TRUE(QRegularExpression("^P 201\\.[0-9]{2} 10\\.[01][0-9]$").match(words[1]).hasMatch())
        << words[1].toStdString();
    EXPECT_EQ(words.filter(words[1]).size(), 1) << "sent to the start once";
    double highest = 0;
    for (const QString& word : words.filter("P "))
        highest = std::max(highest, word.section(' ', 2).toDouble());
    EXPECT_NEAR(highest, 23.06, 0.05);
    EXPECT_EQ(words.last(), "S");
    EXPECT_TRUE(told.filter("Waiting for SEASAT 1 at azimuth 201.").size() > 0) << told.join('\n').toStdString();
}

TEST_F(MountTest, WhateverGoesWrongEndsItWithAReason)
{
    struct Row
    {
        Server::Answer answer;
        const char* why;
    };
    const Row rows[] = {
        {[](const QByteArray& h) { return h.startsWith('p') ? rotator(h) : "RPRT -1\n"; },
         "the rotator refuses to go there (RPRT -1)"},
        {[](const QByteArray&) { return QByteArray("HTTP/1.1 400 Bad Request\r\n"); },
         "127.0.0.1 does not speak as a rotator does"},
        {[](const QByteArray&) { return QByteArray(5000, '1'); }, "127.0.0.1 does not speak as a rotator does"},
        {[](const QByteArray&) { return QByteArray(); }, "no answer from 127.0.0.1"},
        {[](const QByteArray& h) { return h.startsWith('p') ? rotator(h) : "hang up"; },
         "The remote host closed the connection"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(run(MountKind::rotctld, Server(row.answer), 60), row.why);
    auto gone = std::make_unique<Server>(rotator);
    gone->server.close();
    EXPECT_EQ(run(MountKind::indi, *gone, 60), "Connection refused");
    const Server another([](const QByteArray&) { return QByteArray("<defNumberVector device='X' name='Y'/>"); });
    EXPECT_EQ(run(MountKind::indi, another, 60), "127.0.0.1 has no telescope \"Telescope Simulator\"");
    const Server html([](const QByteArray&) { return QByteArray("<p>no <b>INDI</p>"); });
    EXPECT_TRUE(run(MountKind::indi, html, 60).contains("INDI")) << "mismatched tags";
}

TEST_F(MountTest, StopsAtOnceByHand)
{
    const Server server(rotator);
    EXPECT_EQ(run(MountKind::rotctld, server, 60, "Following SEASAT 1: azimuth 2"), "");
    EXPECT_TRUE(server.heard.endsWith("S\n"));
    EXPECT_LT(server.heard.count("P "), 30);
}

/// A telescope that is not connected until asked, and then takes what it is sent.
QByteArray indiTelescope(const QByteArray& heard)
{
    const QByteArray d = "device='Telescope Simulator'";
    if (heard.contains("getProperties"))
        return "<defSwitchVector " + d +
               " name='CONNECTION' state='Idle'>\n<defSwitch name='CONNECT'>Off\n</defSwitch>"
               "</defSwitchVector><defNumberVector device='Other' name='EQUATORIAL_EOD_COORD' state='Ok'/>";
    if (heard.contains("\"CONNECT\""))
        return "<defSwitchVector " + d +
               " name='ON_COORD_SET'><defSwitch name='TRACK'>On</defSwitch></defSwitchVector>"
               "<defNumberVector " +
               d +
               " name='EQUATORIAL_EOD_COORD' state='Idle'><defNumber name='RA'>1</defNumber>"
               "</defNumberVector>";
    if (heard.contains("EQUATORIAL_EOD_COORD"))
        return "<setNumberVector " + d +
               " name='EQUATORIAL_EOD_COORD' state='Ok'><oneNumber name='RA'>2</oneNumber>"
               "</setNumberVector>";
    return {};
}

TEST_F(MountTest, AnIndiTelescopeIsConnectedTracksAndAborts)
{
    const Server server(indiTelescope);
    EXPECT_EQ(run(MountKind::indi, server, 223, "Following SEASAT 1: azimuth 250.5"), "");
    const QString words = server.heard;
    EXPECT_LT(words.indexOf("name=\"CONNECT\">On<"), words.indexOf("name=\"TRACK\">On<"));
    const auto place =
        QRegularExpression("\"RA\">([0-9.]+)</oneNumber><oneNumber name=\"DEC\">([0-9.-]+)<").match(words);
    ASSERT_TRUE(place.hasMatch()) << words.toStdString();
    // 17:00:00, and two seconds further for the way
    EXPECT_NEAR(place.captured(1).toDouble(), 22.05639 - 2 * 0.01399, 0.002);
    EXPECT_NEAR(place.captured(2).toDouble(), 4.9286 + 2 * 0.1833, 0.02);
    EXPECT_GT(words.indexOf("TELESCOPE_ABORT_MOTION\"><oneSwitch name=\"ABORT\">On<"),
              words.lastIndexOf("EQUATORIAL"));
    const Server refusing([](const QByteArray& heard) { return indiTelescope(heard).replace("'Ok'", "'Alert'"); });
    EXPECT_EQ(run(MountKind::indi, refusing, 60), "the telescope refuses to go there");
}

/// Reads the method of a request and answers as a telescope that counts by the equator of 2000.
class AlpacaTelescope
{
public:
    QByteArray operator()(const QByteArray& request)
    {
        const QString method = QString(request).section(' ', 1, 1).section('/', 5).section('?', 0, 0);
        QByteArray value = "null";
        if (method == "equatorialsystem")
            value = "2";
        else if (method == "slewing" || method.startsWith("canset"))
            value = method != "slewing" && rates ? "true" : "false";
        else if (method == "rightascension" || method == "declination")
            value = method == "declination" ? "4.85" : "22.04";
        const QByteArray error =
            method == refuses ? "1035,\"ErrorMessage\":\"below the horizon\"" : "0,\"ErrorMessage\":\"\"";
        const QByteArray body = "{\"Value\":" + value + ",\"ErrorNumber\":" + error + "}";
        return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
               QByteArray::number(body.size()) + "\r\n\r\n" + body;
    }

    bool rates = false;
    QString refuses;
};

TEST_F(MountTest, AnAlpacaTelescopeSlewsByItsOwnEquator)
{
    const Server server(AlpacaTelescope{});
    EXPECT_EQ(run(MountKind::alpaca, server, 223, "Following SEASAT 1: azimuth 253"), "");
    const QString words = server.heard;
    const auto place = QRegularExpression("RightAscension=([0-9.]+)&Declination=([0-9.-]+)&ClientID").match(words);
    ASSERT_TRUE(place.hasMatch()) << words.toStdString();
    EXPECT_NEAR(place.captured(1).toDouble(), 22.04142 - 2 * 0.01398, 0.002);
    EXPECT_NEAR(place.captured(2).toDouble(), 4.8410 + 2 * 0.1836, 0.02);
    EXPECT_LT(words.indexOf("PUT /api/v1/telescope/0/connected"), words.indexOf("PUT /api/v1/telescope/0/tracking"));
    EXPECT_GT(words.indexOf("PUT /api/v1/telescope/0/abortslew"), words.lastIndexOf("slewtocoordinatesasync"));
    EXPECT_FALSE(words.contains("rightascensionrate "));

    AlpacaTelescope refusing;
    refusing.refuses = "slewtocoordinatesasync";
    EXPECT_EQ(run(MountKind::alpaca, Server(refusing), 60), "the telescope refuses: below the horizon");
    const Server page([](const QByteArray&) { return QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi"); });
    EXPECT_EQ(run(MountKind::alpaca, page, 60), "127.0.0.1 does not speak as an Alpaca server does");
}

TEST_F(MountTest, AnAlpacaTelescopeThatTakesRatesGoesAlongByThem)
{
    AlpacaTelescope telescope;
    telescope.rates = true;
    const Server server(telescope);
    EXPECT_EQ(run(MountKind::alpaca, server, 223, "Following SEASAT 1: azimuth 253"), "");
    const QString words = server.heard;
    // near the satellite: no slew, but its rate and what the telescope is off, made good in two seconds
    EXPECT_LT(words.indexOf("DeclinationRate="), words.indexOf("slewtocoordinatesasync") & 0x7fffffff);
    const auto rate = QRegularExpression("DeclinationRate=([0-9.-]+)").match(words);
    ASSERT_TRUE(rate.hasMatch()) << words.toStdString();
    EXPECT_NEAR(rate.captured(1).toDouble(), 0.1836 * 3600 + (4.8410 - 4.85) * 1800, 20.0);
    EXPECT_TRUE(words.contains("RightAscensionRate=0.00000000")) << "stands still in the end";
}

}  // namespace
