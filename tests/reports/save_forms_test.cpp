// Files of other forms hold what the text of the same report holds.

#include "reports/save_forms.h"

#include "engine/aos_list.h"
#include "engine/event.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "reports/list_rows.h"
#include "reports/orbit_track.h"
#include "reports/pass_details.h"
#include "reports/report_helper.h"
#include "scan/all_satellites.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace {

class SavedForm : public ReportTest
{
protected:
    static void saveAs(const char* name)
    {
        assignField(indata->savename, name);
        indata->newsave = 1;
    }
};

long linesIn(const std::string& text)
{
    return std::count(text.begin(), text.end(), '\n');
}

TEST_F(SavedForm, IsThatOfTheEnding)
{
    EXPECT_EQ(formOfName("a.csv"), ListForm::csv);
    EXPECT_EQ(formOfName("/b/list.GeoJSON"), ListForm::geojson);
    EXPECT_EQ(formOfName("list.txt"), std::nullopt);
    EXPECT_EQ(formOfName("csv"), std::nullopt);
}

TEST_F(SavedForm, HoldsThePassesOfTheTable)
{
    indata->dur = 2.0;
    aospass(indata, outdata);
    const QJsonDocument json =
        QJsonDocument::fromJson(QByteArray::fromStdString(passListText(indata, ListForm::json)));
    const QJsonArray passes = json["passes"].toArray();
    ASSERT_EQ(passes.size(), indata->naos);
    ASSERT_GT(indata->naos, 2);
    int pass = 0;
    for (int i = 0; i < outdata->nlines; ++i) {
        const std::string line(lineText(*outdata, i));
        if (line.rfind(".JAN ", 0) != 0)
            continue;
        const QString shown = QString::fromStdString(line.substr(8, 9)).trimmed();  // an hour east of UTC
        const QDateTime start = QDateTime::fromString(passes[pass++]["start"].toString(), Qt::ISODateWithMs);
        const QTime civil = start.addSecs(3600).addMSecs(500).time();
        EXPECT_EQ(civil.toString(QStringLiteral("H:mm:ss")), shown);
    }
    EXPECT_EQ(pass, indata->naos);
    const std::string lines = passListText(indata, ListForm::geojson);
    EXPECT_EQ(linesIn(lines), indata->naos + 2) << lines;

    occultStar();
    chooseEventKind(indata);
    indata->maxdst = 3000.0;
    aospass(indata, outdata);
    ASSERT_GT(indata->naos, 0);
    EXPECT_EQ(linesIn(passListText(indata, ListForm::csv)), indata->naos + 1);
}

TEST_F(SavedForm, HoldsAllPasses)
{
    indata->dur = 1.0;
    assignField(indata->tlename, TEST_DATA "/reports/three_entries.txt");
    ASSERT_EQ(AllSatAos(indata), 0);
    const std::string text = saved();
    long passes = 0;
    for (std::size_t at = text.find("\nJAN "); at != std::string::npos; at = text.find("\nJAN ", at + 1))
        ++passes;
    ASSERT_GT(passes, 5);
    EXPECT_EQ(linesIn(*allPassesText(indata, ListForm::csv)), passes + 1);
    assignField(indata->tlename, "missing.txt");
    EXPECT_EQ(allPassesText(indata, ListForm::csv), std::nullopt);
}

TEST_F(SavedForm, HoldsTheStepsOfTheDetails)
{
    EXPECT_TRUE(vsSavePassDt(passform::groundTrack));
    const std::string text = saved();
    const long steps = linesIn(text.substr(text.find("JAN "))) + 1;
    for (const int mode : {passform::save, passform::groundTrack}) {
        saveAs("list.csv");
        EXPECT_TRUE(vsSavePassDt(mode));
        EXPECT_EQ(linesIn(ScratchDir::read("list.csv")), steps + 1);
    }
    saveAs("list.ics");
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_NE(ScratchDir::read("list.ics").find("SUMMARY:"), std::string::npos);
}

TEST_F(SavedForm, HoldsThePointsOfTheTrack)
{
    indata->dur = 48 * 2 * minuteDays - 1e-6;
    indata->tmstep = 2 * minuteDays;
    saveAs("list.csv");
    EXPECT_EQ(saveOrbitTrack(indata), 0);
    EXPECT_EQ(linesIn(ScratchDir::read("list.csv")), 48 + 1);
    saveAs("list.ics");
    EXPECT_EQ(saveOrbitTrack(indata), 1) << "a calendar has no tracks";
}

TEST_F(SavedForm, OfCsvGoesOnUnderTheSameColumns)
{
    indata->dur = 1.0;
    saveAs("list.csv");
    const std::string list = passListText(indata, ListForm::csv);
    EXPECT_EQ(writeInForm(indata, ListForm::csv, list), "");
    EXPECT_EQ(writeInForm(indata, ListForm::csv, list), "");
    EXPECT_EQ(linesIn(ScratchDir::read("list.csv")), 2 * linesIn(list) - 1);
    EXPECT_EQ(writeInForm(indata, ListForm::csv, "other\r\n1\r\n"), "");
    EXPECT_EQ(ScratchDir::read("list.csv"), "other\r\n1\r\n");
}

// The text of the window marks a zone of 50 km and more in place of its first digit.
TEST_F(SavedForm, TellsTheWidthOfTheWidestZone)
{
    Event event;
    event.transit = DiskTransit{50.0, 2.04, 10.4};
    EXPECT_EQ(numberAt(eventColumns(), eventRow(*indata, 0, event), "half_width_km"), 50.0);
}

}  // namespace
