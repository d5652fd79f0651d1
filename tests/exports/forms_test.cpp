// Forms of lists that no run of the command shows: odd texts and numbers, edges of the calendar, the date line.

#include "elements/element_file.h"
#include "elements/entry_reader.h"
#include "elements/omm_forms.h"
#include "exports/calendar_form.h"
#include "exports/element_forms.h"
#include "exports/ephemeris_form.h"
#include "exports/geo_form.h"
#include "exports/rows.h"
#include "exports/time_text.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <array>
#include <limits>
#include <map>

#include <gtest/gtest.h>

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

struct TimeCase
{
    double mjd;
    const char* iso;
};

TEST(Times, RoundAndStayInTheCalendar)
{
    const TimeCase cases[] = {
        {58138.0, "2018-01-20T00:00:00.000Z"},
        {58138.5 + 0.0004 / 86400, "2018-01-20T12:00:00.000Z"},
        {58139.0 - 0.0004 / 86400, "2018-01-21T00:00:00.000Z"},  // carried into the next day
        {60369.0 - 0.001 / 86400, "2024-02-28T23:59:59.999Z"},
        {60369.999, "2024-02-29T23:58:33.600Z"},
        {-1e9, "0001-01-01T00:00:00.000Z"},
        {nan, "1858-11-17T00:00:00.000Z"},
    };
    for (const TimeCase& c : cases)
        EXPECT_EQ(isoTime(c.mjd), c.iso);
    EXPECT_EQ(isoCivil(58138.0, -3.5), "2018-01-19T20:30:00-03:30");
    EXPECT_EQ(isoBasic(58138.75), "20180120T180000Z");
}

TEST(Rows, KeepEveryTextAndNumber)
{
    const std::array columns{ListColumn{"text", "text", 6}, ListColumn{"number", "number", 7, 2},
                             ListColumn{"none", "none", 4}};
    const std::string odd = "a,\"b\"\r\n\x01\\ \xc3\xb6 \xf6";  // the last one is no UTF-8
    const ListRow row{odd, -0.001, ListValue()};
    EXPECT_EQ(csvLine(columns, row), "\"a,\"\"b\"\"\r\n\x01\\ \xc3\x83\xc2\xb6 \xc3\xb6\",0.00,\r\n");
    const QJsonObject read = QJsonDocument::fromJson(QByteArray::fromStdString(jsonObject(columns, row))).object();
    EXPECT_EQ(read["text"].toString(), QString::fromLatin1(odd.data(), static_cast<qsizetype>(odd.size())));
    EXPECT_EQ(read["number"].toDouble(-1), 0.0);
    EXPECT_TRUE(read["none"].isNull());
    EXPECT_EQ(jsonObject(columns, {std::string("x"), nan, ListValue()}),
              R"({"text": "x", "number": null, "none": null})");
    EXPECT_EQ(tableLine(columns, {std::string("longer than six"), 1e300, ListValue()}, 0).size(), 6 + 2 + 7 + 1);
}

TEST(Calendar, FoldsLinesBetweenCharacters)
{
    CalendarEvent event;
    for (int i = 0; i < 60; ++i)
        event.summary += i % 7 == 0 ? ";" : "\xc3\xb6";
    const std::string text = calendarEvent(event, 58138.0);
    std::string unfolded;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        ASSERT_LE(end - at, 75);
        unfolded += text[at] == ' ' ? text.substr(at + 1, end - at - 1) : '\n' + text.substr(at, end - at);
        at = end + 2;
        const bool folded = at < text.size() && text[at] == ' ';
        ASSERT_FALSE(folded && (static_cast<unsigned char>(text[at + 1]) & 0xc0) == 0x80) << "a character is halved";
    }
    EXPECT_NE(unfolded.find("\nSUMMARY:\\;\xc3\xb6\xc3\xb6"), std::string::npos);
    EXPECT_NE(text.find("DTEND:18581117T000001Z"), std::string::npos) << "an event lasts a second";
}

TEST(Lines, AreCutAtTheDateLine)
{
    const std::string line = geoLine({{10, 170, 1}, {20, -170, 3}, {30, -160, 3}, {20, 160, 3}}, "{}");
    EXPECT_NE(line.find("[[[170.000000, 10.000000, 1000.0], [180.000000, 15.000000, 2000.0]], "
                        "[[-180.000000, 15.000000, 2000.0], [-170.000000, 20.000000, 3000.0], "
                        "[-160.000000, 30.000000, 3000.0], [-180.000000, 25.000000, 3000.0]], "
                        "[[180.000000, 25.000000, 3000.0], [160.000000, 20.000000, 3000.0]]]"),
              std::string::npos)
        << line;
    EXPECT_NE(geoLine({{1, 2, 3}}, "{}").find("\"Point\""), std::string::npos);
    EXPECT_NE(geoLine({{1, 2, 3}, {1, 3, 3}}, "{}").find("\"LineString\""), std::string::npos);
}

}  // namespace

TEST(ElementForms, GiveBackTheTwoLinesTheyCameFrom)
{
    const std::string path = std::string(TEST_DATA) + "/elements/iridium_2018.txt";
    const std::string original = contentOfFile(path.c_str()).value_or("");
    std::map<OmmForm, std::string> documents{
        {OmmForm::csv, csvFrame().head}, {OmmForm::json, "[\n"}, {OmmForm::xml, xmlFrame().head}};
    std::string again;
    const FilePtr file = openElementFile(path.c_str());
    EntryReader reader(file.get());
    for (Entry entry; reader.next(entry);) {
        again += twoLinesOf(entry).text;
        const OmmMessage message = messageOf(entry);
        documents[OmmForm::csv] += csvMessage(message);
        documents[OmmForm::json] += jsonMessage(message) + ",\n";
        documents[OmmForm::xml] += xmlMessage(message, 58138.0);
        documents[OmmForm::kvn] += kvnMessage(message, 58138.0);
    }
    EXPECT_EQ(again, original);
    for (const auto& [form, document] : documents) {
        std::string lines;
        for (const OmmMessage& message : ommMessages(form, QByteArray::fromStdString(document)))
            lines += twoLinesOf(entryOf(message)).text;
        EXPECT_EQ(lines, original) << static_cast<int>(form);
    }
}

TEST(ElementForms, SayWhatHasNoPlaceInTwoLines)
{
    Entry fits;
    fits.year = 2018;
    fits.n0 = 15;
    fits.bstar = -3.25e-12;
    EXPECT_EQ(twoLinesOf(fits).text.substr(25 + 52, 9), " -00325-9");
    const std::pair<void (*)(Entry&), const char*> cases[] = {{[](Entry& e) { e.number = 340000; }, "its number"},
                                                              {[](Entry& e) { e.year = 2057; }, "the year of its epoch"},
                                                              {[](Entry& e) { e.ecc = 0.99999997; }, "its ecc"},
                                                              {[](Entry& e) { e.n0 = 100; }, "its mean motion"},
                                                              {[](Entry& e) { e.ndot = -1; }, "its drag"},
                                                              {[](Entry& e) { e.bstar = 1e10; }, "its drag"}};
    for (const auto& [change, why] : cases) {
        Entry entry = fits;
        change(entry);
        EXPECT_EQ(twoLinesOf(entry).complaint.rfind(why, 0), 0u) << why;
    }
}
