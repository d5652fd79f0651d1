// Orbit Mean-Elements Messages as element files.
#include "elements/element_file.h"

#include "elements/exact_entry.h"
#include "elements/search_helper.h"
#include "omm_catalogue.h"
#include "scratch_dir.h"

#include <QByteArray>
#include <QString>
#include <QStringEncoder>
#include <algorithm>
#include <gtest/gtest.h>

namespace {
constexpr int k = workSlot;

FileSearch openedBytes(const std::string& bytes)
{
    ScratchDir::write("set.omm", bytes);
    return FileSearch::opened("set.omm");
}

std::vector<double> elementsOf(const WinpData& in)
{
    return {in.mjdep[k], in.n0[k],   in.ecc[k],  in.inc[k],   in.ra[k],    in.aper[k], in.m0[k],
            in.a[k],     in.adot[k], in.ndot[k], in.n6dot[k], in.bstar[k], in.epr0[k], in.epr1[k],
            in.epr2[k],  in.epv0[k], in.epv1[k], in.epv2[k],  in.F107[k]};
}

/// The work slot and the report of two searches that stand at the same entry.
void expectSame(const FileSearch& a, const FileSearch& b)
{
    EXPECT_EQ(a.name(), b.name());
    EXPECT_EQ(a.report, b.report);
    EXPECT_EQ(a.designator(), b.designator());
    EXPECT_EQ(a.in->norad[k], b.in->norad[k]);
    EXPECT_EQ(a.in->aflg[k], b.in->aflg[k]);
    EXPECT_EQ(a.in->numflg[k], b.in->numflg[k]);
    EXPECT_EQ(elementsOf(*a.in), elementsOf(*b.in));  // to the last bit
}

const omm::Message& atlasMessage()
{
    static const omm::Message message = omm::messages(atlas).at(0);
    return message;
}

omm::Message changed(const char* keyword, const char* value)
{
    omm::Message message = atlasMessage();
    for (omm::Field& field : message)
        if (field.first == keyword)
            field.second = value;
    return message;
}

omm::Message without(const std::vector<std::string>& keywords)
{
    omm::Message message = atlasMessage();
    std::erase_if(message, [&](const omm::Field& field) {
        return std::find(keywords.begin(), keywords.end(), field.first) != keywords.end();
    });
    return message;
}

omm::Message with(const char* keyword, const char* value)
{
    omm::Message message = atlasMessage();
    message.insert(message.begin() + 2, {keyword, value});
    return message;
}

TEST(Omm, GivesWhatTwoLinesGiveInEveryForm)
{
    const ScratchDir here;
    const std::string path = TEST_DATA "/elements/catalogue_2018.txt";
    const std::vector<omm::Message> all = omm::messages(ScratchDir::read(path.c_str()));
    ASSERT_EQ(all.size(), 979U);
    for (const omm::Form& form : omm::forms) {
        SCOPED_TRACE(form.what);
        FileSearch text = FileSearch::of(path), messages = openedBytes(form.write(all));
        for (int more = 2, entries = 1; more == 2; ++entries) {
            more = text.next();
            ASSERT_EQ(messages.next(), more) << entries;
            ASSERT_NO_FATAL_FAILURE(expectSame(text, messages));
            ASSERT_FALSE(HasFailure()) << text.name();
        }
    }
}

/// What the fields of one message say beyond two lines.
TEST(Omm, KeepsTheFullPrecisionOfAMessage)
{
    const ScratchDir here;
    omm::Message message = changed("EPOCH", "2026-07-15T12:34:56.789012");
    for (auto& [keyword, value] : message) {
        value = keyword == "MEAN_MOTION" ? "15.123456789012" : value;
        value = keyword == "ECCENTRICITY" ? "0.000123456789" : value;
        value = keyword == "BSTAR" ? "-0.00012345678" : value;
        value = keyword == "NORAD_CAT_ID" ? "799501234" : value;
        value = keyword == "REV_AT_EPOCH" ? "123456" : value;
    }
    for (const omm::Form& form : omm::forms) {
        SCOPED_TRACE(form.what);
        FileSearch search = openedBytes(form.write({message}));
        ASSERT_EQ(search.byNumber(799501234), 1);
        const WinpData& in = *search.in;
        // the days between the two dates, and 45296.789012 s; the double resolves 0.6 microseconds
        EXPECT_NEAR(in.mjdep[k] - 61236.0, 0.524268391342593, 1e-11);
        EXPECT_EQ(in.n0[k], 15.123456789012);
        EXPECT_EQ(in.ecc[k], 0.000123456789);
        EXPECT_EQ(in.bstar[k], -0.00012345678);
        EXPECT_EQ(in.norad[k], 799501234);
        EXPECT_NE(search.report.find("Revolution at Epoch: 123456"), std::string::npos);
        EXPECT_EQ(search.byNumber(1234), 0);
    }
}

struct AcceptedCase
{
    const char* what;
    omm::Message message;
    void (*check)(const FileSearch&);
};

/// Read in another way than the standard asks for, or left out.
TEST(Omm, TakesMessagesOfManyKinds)
{
    const ScratchDir here;
    const auto same = [](const FileSearch& s) {
        FileSearch text(atlas);
        ASSERT_EQ(text.next(), 1);
        expectSame(text, s);
    };
    omm::Message reversed = atlasMessage();
    std::reverse(reversed.begin(), reversed.end());
    const auto noDrag = [](const FileSearch& s) {
        EXPECT_EQ(s.in->bstar[k], 0);
        EXPECT_EQ(s.in->ndot[k], 0);
        EXPECT_EQ(s.in->aflg[k], 1);
        EXPECT_EQ(s.in->n0[k], 14.02251561);
    };
    const AcceptedCase cases[] = {
        {"another order", reversed, same},
        {"no class nor set number", without({"CLASSIFICATION_TYPE", "ELEMENT_SET_NO"}), same},
        {"time system", with("TIME_SYSTEM", "UTC"), same},
        {"frame", with("REF_FRAME", "teme"), same},
        {"theory", with("MEAN_ELEMENT_THEORY", "SGP/SGP4"), same},
        {"unknown keyword", with("USER_DEFINED_X", "7"), same},
        {"zone", changed("EPOCH", "2018-01-20T10:54:52.602336Z"), same},
        {"day of the year", changed("EPOCH", "2018-020T10:54:52.602336"), same},
        {"nanoseconds", changed("EPOCH", "2018-01-20T10:54:52.602336000"), same},
        {"leap second", changed("EPOCH", "2018-01-20T10:54:60"),
         [](const FileSearch& s) { EXPECT_NEAR(s.in->mjdep[k], 58138 + 39300 / 86400.0, 1e-11); }},
        {"last day of a leap year", changed("EPOCH", "2024-366T00:00:00"),
         [](const FileSearch& s) { EXPECT_EQ(s.in->mjdep[k], 60675.0); }},
        {"before 1957", changed("EPOCH", "1900-01-01T00:00:00"),
         [](const FileSearch& s) { EXPECT_EQ(s.in->mjdep[k], 15020.0); }},
        {"elements alone",
         without({"BSTAR", "MEAN_MOTION_DOT", "MEAN_MOTION_DDOT", "EPHEMERIS_TYPE", "REV_AT_EPOCH"}), noDrag},
        {"empty fields", changed("OBJECT_NAME", ""), [](const FileSearch& s) { EXPECT_EQ(s.name(), "1963-047A  "); }},
        {"no number", without({"NORAD_CAT_ID"}), [](const FileSearch& s) { EXPECT_EQ(s.in->norad[k], 0); }},
        {"no designator", changed("OBJECT_ID", "UNKNOWN"),
         [](const FileSearch& s) { EXPECT_EQ(s.designator(), "           "); }},
        {"simple model", changed("EPHEMERIS_TYPE", "9"), [](const FileSearch& s) { EXPECT_EQ(s.in->aflg[k], 0); }},
        {"long name",
         changed("OBJECT_NAME", "1 NAME THAT IS LONGER THAN THE FIELD WHICH HOLDS IT AND THAN A LINE OF IT"),
         [](const FileSearch& s) { EXPECT_EQ(s.name(), "1 NAME THAT IS LONGE"); }},
        {"letters of other tongues", changed("OBJECT_NAME", "SATELLITE ÄÖÜ ÄÖÜ"),
         [](const FileSearch& s) { EXPECT_EQ(s.name(), "SATELLITE ÄÖÜ Ä "); }},
        {"hyperbola", changed("ECCENTRICITY", "1.5"), [](const FileSearch& s) { EXPECT_EQ(s.in->ecc[k], 1.5); }},
    };
    for (const AcceptedCase& c : cases) {
        for (const omm::Form& form : omm::forms) {
            SCOPED_TRACE(std::string(c.what) + " as " + form.what);
            FileSearch search = openedBytes(form.write({c.message}));
            ASSERT_EQ(search.next(), 1);
            c.check(search);
        }
    }
}

struct RefusedCase
{
    omm::Message message;
    const char* reason;
};

TEST(Omm, TellsWhyAMessageIsRefused)
{
    const ScratchDir here;
    const RefusedCase cases[] = {
        {with("TIME_SYSTEM", "TAI"), "TIME_SYSTEM is TAI, not UTC"},
        {with("CENTER_NAME", "MARS BARYCENTER"), "CENTER_NAME is MARS BARYCENTER, not EARTH"},
        {with("REF_FRAME", "EME2000"), "REF_FRAME is EME2000, not TEME"},
        {with("MEAN_ELEMENT_THEORY", "DSST"), "MEAN_ELEMENT_THEORY is DSST, not SGP4"},
        {with("MEAN_ELEMENT_THEORY", "SGP4-XP"), "MEAN_ELEMENT_THEORY is SGP4-XP, not SGP4"},
        {without({"EPOCH"}), "no EPOCH"},
        {without({"MEAN_MOTION"}), "no MEAN_MOTION"},
        {without({"MEAN_ANOMALY"}), "no MEAN_ANOMALY"},
        {changed("EPOCH", "2018-02-29T00:00:00"), "EPOCH is no date"},
        {changed("EPOCH", "2018-366T00:00:00"), "EPOCH is no date"},
        {changed("EPOCH", "2018-01-20T24:00:00"), "EPOCH is no date"},
        {changed("EPOCH", "2018-01-20"), "EPOCH is no date"},
        {changed("EPOCH", "yesterday"), "EPOCH is no date"},
        {changed("MEAN_MOTION", "fast"), "MEAN_MOTION is no number"},
        {changed("INCLINATION", "nan"), "INCLINATION is no number"},
        {changed("MEAN_ANOMALY", "inf"), "MEAN_ANOMALY is no number"},
        {changed("BSTAR", "1,5"), "BSTAR is no number"},
        {changed("ECCENTRICITY", "-0.1"), "ECCENTRICITY is negative"},
        {changed("NORAD_CAT_ID", "-5"), "NORAD_CAT_ID is out of range"},
        {changed("NORAD_CAT_ID", "4000000000"), "NORAD_CAT_ID is out of range"},
        {changed("REV_AT_EPOCH", "1.5"), "REV_AT_EPOCH is out of range"},
    };
    for (const RefusedCase& c : cases) {
        SCOPED_TRACE(c.reason);
        FileSearch search =
            openedBytes(omm::kvn({c.message, omm::message("GOOD", atlasLines.substr(0, 69), atlasLines.substr(70))}));
        EXPECT_EQ(search.byName("ATLAS"), 0);
        const std::string end = std::string("\n\n+++ Not used: ") + c.reason + " +++";
        EXPECT_TRUE(search.report.ends_with(end)) << search.report;
        EXPECT_TRUE(search.report.starts_with("\n+++ No match found for ATLAS +++\n\nATLAS CENTAUR 2"))
            << search.report;
        EXPECT_EQ(search.byName("*"), 1);  // an iteration goes on to the next one
        EXPECT_EQ(search.name(), "GOOD                ");
    }
    FileSearch byNumber = openedBytes(omm::xml({changed("EPOCH", "yesterday")}));
    EXPECT_EQ(byNumber.byNumber(694), 0);
    EXPECT_NE(byNumber.report.find("\nNORAD#\t\t:   694\n"), std::string::npos) << byNumber.report;
    EXPECT_NE(byNumber.report.find("EPOCH is no date"), std::string::npos);
    EXPECT_EQ(byNumber.byNumber(695), 0);
    EXPECT_EQ(byNumber.report, "\n+++ No match found for NORAD# 695 +++");
}

/// The name of each entry, to its last blank.
std::string namesOf(const std::string& bytes)
{
    FileSearch search = openedBytes(bytes);
    std::string names;
    for (int more = 2; more == 2;) {
        more = search.next();
        names += more > 0 ? omm::trimmed(search.name()) + ";" : "";
    }
    return names;
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t i = text.find(from); i != std::string::npos; i = text.find(from, i + to.size()))
        text.replace(i, from.size(), to);
    return text;
}

TEST(Omm, ReadsWhatOtherProgramsWrite)
{
    const ScratchDir here;
    const std::vector<omm::Message> two{atlasMessage(), changed("OBJECT_NAME", "SECOND")};
    const std::string csv = omm::csv(two), json = omm::json(two), xml = omm::xml(two), kvn = omm::kvn(two);
    const std::string both = "ATLAS CENTAUR 2;SECOND;";
    EXPECT_EQ(namesOf(csv + csv), both + both);  // with its keywords in the middle
    EXPECT_EQ(namesOf("# from a service\n\n" + csv + "\r\n\r\n"), both);
    EXPECT_EQ(namesOf(replaced(csv, "\r\n", "\n")), both);
    EXPECT_EQ(namesOf(replaced(csv, "\r\n", "\r")), both);
    EXPECT_EQ(namesOf(csv.substr(0, csv.size() - 2)), both);
    EXPECT_EQ(namesOf("\"" + replaced(replaced(replaced(csv, "\r\n", "\n"), ",", "\" , \""), "\n", "\"\n\"")), both);
    EXPECT_EQ(namesOf(replaced(csv, "SECOND", "\"SECOND, \"\"B\"\"\r\nTHIRD\"")),
              "ATLAS CENTAUR 2;SECOND, \"B\"  THIRD;");
    EXPECT_EQ(namesOf(replaced(csv, "SECOND", "SEC\"OND")), "ATLAS CENTAUR 2;SEC\"OND;");
    EXPECT_EQ(namesOf(replaced(csv, ",U", "\nU")), "");  // lines that end too early
    EXPECT_EQ(namesOf(" \n [ " + replaced(json, ",", " ,\n\t ").substr(1)), both);
    EXPECT_EQ(namesOf(json.substr(1, json.find("},{"))), "ATLAS CENTAUR 2;");
    EXPECT_EQ(namesOf(replaced(json, "SECOND", "A \\\"{\\u0042}\\\\")), "ATLAS CENTAUR 2;A \"{B}\\;");
    EXPECT_EQ(namesOf(replaced(json, "14.02251561", "\"14.02251561\"")), both);
    EXPECT_EQ(namesOf(replaced(json, ",\"BSTAR\":", ",\"X\":{\"Y\":[1,{}]},\"BSTAR\":")), both);
    EXPECT_EQ(namesOf(replaced(json, "\"BSTAR\":0.13161E-4", "\"BSTAR\":null")), both);
    EXPECT_EQ(namesOf(replaced(xml, "<OBJECT_NAME>", "<!-- a > b --><OBJECT_NAME>")), both);
    EXPECT_EQ(namesOf("\n" + replaced(xml, ">SECOND<", "><![CDATA[SECOND]]><")), both);
    const std::size_t start = xml.find("<omm");
    EXPECT_EQ(namesOf(xml.substr(start, xml.find("</omm>") + 6 - start)), "ATLAS CENTAUR 2;");
    EXPECT_EQ(namesOf(replaced(kvn, "\n", "\r\n")), both);
    EXPECT_EQ(namesOf(replaced(kvn, "\n", "\r")), both);
    EXPECT_EQ(namesOf(replaced(kvn, " = ", "=")), both);
    EXPECT_EQ(namesOf(replaced(kvn, "CCSDS_OMM_VERS = 2.0\n", "")), both);
    EXPECT_EQ(namesOf("COMMENT one\n\nCOMMENT two\n" + kvn), both);
    EXPECT_EQ(namesOf(replaced(kvn, "SECOND", "SECOND [+]")), "ATLAS CENTAUR 2;SECOND [+];");
}

TEST(Omm, PassesOverByteOrderMarks)
{
    const ScratchDir here;
    const std::vector<omm::Message> two{atlasMessage(), changed("OBJECT_NAME", "SECOND")};
    for (const omm::Form& form : omm::forms) {
        SCOPED_TRACE(form.what);
        const std::string text = form.write(two);
        EXPECT_EQ(namesOf("\xEF\xBB\xBF" + text), "ATLAS CENTAUR 2;SECOND;");
        for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
            QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
            const QByteArray wide = encoder.encode(QString::fromStdString(replaced(text, "encoding=\"UTF-8\"", "")));
            EXPECT_EQ(namesOf(wide.toStdString()), "ATLAS CENTAUR 2;SECOND;");
        }
    }
}

TEST(Omm, LeavesTextFilesAlone)
{
    const ScratchDir here;
    for (const char* name : {"[SAT] 1", "{SAT}", "<SAT>", "EPOCH", "EPOCH,BSTAR", "\"SAT\"", "CCSDS_OMM_VERS",
                             "COMMENT = X", "OBJECT_NAME", "[", "{"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(namesOf(std::string(name) + "\n" + atlasLines), std::string(name) + ";");
    }
    // the lines of a stream in memory are none of a file
    ExactEntry entry;
    entry.norad = 777;
    entry.n0 = 15;
    std::string lines;
    appendExact(lines, entry);
    FileSearch search = openedBytes(lines + atlas);
    EXPECT_EQ(search.byNumber(777), 0);
    EXPECT_EQ(search.byNumber(694), 1);
    EXPECT_FALSE(openElementFile("absent"));
    EXPECT_FALSE(openElementFile("."));
}

// --- damage

TEST(DamagedOmm, CutAnywhereGivesWholeMessagesOnly)
{
    const ScratchDir here;
    const std::vector<omm::Message> two{atlasMessage(), changed("OBJECT_NAME", "SECOND")};
    for (const omm::Form& form : omm::forms) {
        const std::string text = form.write(two);
        const std::size_t second = text.find("SECOND");
        for (std::size_t length = 0; length <= text.size(); ++length) {
            SCOPED_TRACE(form.what + std::to_string(length));
            FileSearch search = openedBytes(text.substr(0, length));
            int entries = 0;
            for (; search.next() > 0; ++entries) {
                ASSERT_EQ(search.in->n0[k], 14.02251561);
                ASSERT_EQ(search.in->m0[k], 249.5182);
                // KVN does not tell where a message ends
                ASSERT_EQ(search.in->norad[k], form.write == omm::kvn ? search.in->norad[k] : 694);
            }
            ASSERT_GE(entries, length == text.size() ? 2 : length > second ? 1 : 0);
            ASSERT_LE(entries, length < second / 2 ? 0 : length < second ? 1 : 2);
        }
    }
}

}  // namespace
