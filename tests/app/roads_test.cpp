// Runs through the commands: what a dialog leads to, in the words of roads.txt; and what words do not tell.

#include <cstring>

#include <QImage>

#include "app/age_strip.h"
#include "app/app_helper.h"
#include "imaging/sky_picture.h"
#include "record/text.h"

#include <QLabel>

class RoadsTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        keepers["record"] = [](const QStringList& words, QStringList& kept) {
            kept << QString::number(numberOf(words[0], words[1].toInt()), 'g', words[2].toInt());
        };
        keepers["age"] = [this](const QStringList&, QStringList& kept) {
            auto* strip = app->findChild<AgeStrip*>();
            strip->tell();
            kept << (strip->isVisible() ? strip->findChild<QLabel*>("ageLabel")->text() : QString("hidden"));
        };
        keepers["line"] = [](const QStringList& words, QStringList& kept) {
            for (const QString& line : report().filter(words[0]))
                kept << line.simplified();
        };
        keepers["named"] = [](const QStringList&, QStringList& kept) {
            kept << report().value(5).left(19).simplified();
        };
        keepers["words"] = [this](const QStringList& words, QStringList& kept) {
            kept << QString(place->read(words[0])).simplified();
        };
        keepers["name"] = [](const QStringList& words, QStringList& kept) {
            const int slot = words[0].toInt();
            kept << (fieldQString(indata->fsname[slot]) + ", " + fieldQString(indata->ldsn[slot])).trimmed();
        };
    }
    void init()
    {
        open(dataFile("vienna.cfg"));
        QVERIFY(QImage(800, 600, QImage::Format_RGB32).save(place->path("stars.png")));
        place->write("text.png", "no picture");
        place->write("vorlix.ini", "[stations]\n8001=48.2,16.37,200\n8002=-33.94,18.51,10\n");
        QVERIFY(QFile::copy(TEST_DATA "/observing/iss.iod", place->path("iss.iod")));
        QVERIFY(QFile::copy(TEST_DATA "/pictures/iss.fits", place->path("iss.fits")));
    }
    void cleanup() { close(); }

    void leadWhereTheyShould_data()
    {
        QTest::addColumn<QString>("commands");
        for (const QString& road : QString(dataFile("roads.txt")).split("Road: ").mid(1))
            if (!road.contains(".fits") || (readsFits() && readsSolutions()))
                QTest::addRow("%s", qPrintable(road.section('\n', 0, 0))) << road.section('\n', 1);
    }
    void leadWhereTheyShould()
    {
        QFETCH(const QString, commands);
        QCOMPARE(follow(commands), QStringList());
    }

    void cancelChangesNothing()
    {
        windows::select("ISS (ZARYA)");
        indata->sgpsat = noSlot;
        const auto before = std::make_unique<WinpData>(*indata);
        choose("manvEdit", {answer("incEdit = 12; nameEdit = nobody; cancelButton")});
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): byte for byte, so that a NaN is like itself
        QVERIFY(std::memcmp(before.get(), indata, sizeof(WinpData)) == 0);
    }

    void thrustIsSwitchedOnAndOff()
    {
        follow(R"(
            manvEdit
            | spg4Box off; perapBox on; numBox on; nameEdit = Mine; incEdit = 0.1; periEdit = 35786; apoEdit = 35786; \
              okButton
            manvEdit
            | stateButton [rxEdit = 42164; ryEdit = 0; rzEdit = 0; vxEdit = 0; vyEdit = 3.0747; vzEdit = 0; okButton]; \
              okButton
            manvDeltaV
            | date 21 0:00:00 0
            | ionBox on; sunBox off; epuBox on; deltavEdit = 0.5; yawEdit = 0; pitchEdit = 0; executeButton)");
        QVERIFY(indata->ionf[0] && indata->epu[0] && !indata->suns[0]);
        QCOMPARE(indata->deltv[0], 0.0005);
        choose("plotCurrent");
        const double a = indata->a[0];
        indata->mjd += 0.5;
        choose("plotForward");
        QVERIFY(indata->a[0] > a + 200.0);  // 2 a f t / v
        // thrust needs no date to be switched off
        QCOMPARE(follow("manvDeltaV\n| see deltavEdit; ionBox off; executeButton").value(0).section(' ', -1),
                 QString("0.5"));
        QVERIFY(!indata->ionf[0] && !indata->epu[0]);
    }

    void twoSightingsWithoutAFile()
    {
        canvas()->setTLEname("missing.txt");
        follow(R"(
            manvOrbDet
            | date 20 5:00:00 0
            | matchBox on; okButton
            | reject
            | see title; accept
            > Find Matching Sats
            > *** Unable to open TLE file ***)");
        QCOMPARE(indata->satn, 1);  // the slot stays
        QVERIFY(report().join('\n').contains("*** Unable to open TLE file ***"));
    }

private:
    static double numberOf(const QString& field, int slot)
    {
        const WinpData& in = *indata;
        const QMap<QString, double> fields{
            {"satn", in.satn},         {"prs", in.prs},         {"lsat", in.lsat},         {"mjd", in.mjd},
            {"picflg", in.picflg},     {"picstep", in.picstep}, {"astra", in.astra[slot]}, {"astx", in.astx[slot]},
            {"lcflg", in.lcflg},       {"rztime", in.rztime},   {"norad", in.norad[slot]}, {"aflg", in.aflg[slot]},
            {"mjdep", in.mjdep[slot]}, {"inc", in.inc[slot]},   {"ra", in.ra[slot]},       {"aper", in.aper[slot]},
            {"m0", in.m0[slot]},       {"ecc", in.ecc[slot]},   {"a", in.a[slot]},         {"n0", in.n0[slot]}};
        if (!fields.contains(field))
            qFatal("no field %s", qPrintable(field));
        return fields[field];
    }
};

QTEST_MAIN(RoadsTest)
#include "roads_test.moc"
