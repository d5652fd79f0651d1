// Orbit Mean-Elements Messages as element files.
#include "elements/entry_stream.h"
#include "elements/omm_forms.h"
#include "elements/search_helper.h"
#include "omm_catalogue.h"

#include <QStringEncoder>
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

namespace {
/// The work slot and the report of two searches that stand at the same entry, to the last bit.
void expectSame(const FileSearch& a, const FileSearch& b)
{
    EXPECT_EQ(a.name(), b.name());
    EXPECT_EQ(a.report, b.report);
    EXPECT_EQ(a.designator(), b.designator());
    EXPECT_EQ(slotFields(*a.in, workSlot), slotFields(*b.in, workSlot));
}

const omm::Message& atlasMessage()
{
    static const omm::Message message = omm::messages(atlas).at(0);
    return message;
}

/// The message of ATLAS CENTAUR 2 with changes like "EPOCH=yesterday ; -BSTAR".
omm::Message changed(const std::string& changes)
{
    omm::Message message = atlasMessage();
    for (std::size_t begin = 0; begin < changes.size();) {
        const std::size_t end = std::min(changes.find(" ; ", begin), changes.size());
        const std::string change = changes.substr(begin, end - begin);
        begin = end + 3;
        const std::size_t sign = change.find('=');
        const std::string keyword = change[0] == '-' ? change.substr(1) : change.substr(0, sign);
        const auto field =
            std::find_if(message.begin(), message.end(), [&](const auto& f) { return f.first == keyword; });
        if (change[0] == '-')
            message.erase(field);
        else if (field != message.end())
            field->second = change.substr(sign + 1);
        else
            message.insert(message.begin() + 2, {keyword, change.substr(sign + 1)});
    }
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
        FileSearch text = FileSearch::of(path), messages(form.write(all));
        for (int more = 2, entries = 1; more == 2; ++entries) {
            more = text.next();
            ASSERT_EQ(messages.next(), more) << entries;
            expectSame(text, messages);
            ASSERT_FALSE(HasFailure()) << text.name();
        }
    }
}

/// What a row of the cases expects of a message alone in its file.
void expectOutcome(const omm::Message& message, const omm::Form& form, const std::string& outcome)
{
    FileSearch search(form.write({message})), text(atlas);
    const std::string quoted = outcome.substr(std::min(outcome.find('"') + 1, outcome.size()));
    if (outcome.starts_with("refused: ")) {
        EXPECT_EQ(search.byName("ATLAS"), 0);
        EXPECT_TRUE(search.report.starts_with("\n+++ No match found for ATLAS +++\n\nATLAS CENTAUR 2"))
            << search.report;
        EXPECT_TRUE(search.report.ends_with("\n\n+++ Not used: " + outcome.substr(9) + " +++")) << search.report;
        return;
    }
    ASSERT_EQ(search.next(), 1);
    if (outcome == "same") {
        ASSERT_EQ(text.next(), 1);
        expectSame(text, search);
    } else if (outcome.starts_with("name "))
        EXPECT_EQ(search.name() + '"', quoted);
    else if (outcome.starts_with("designator "))
        EXPECT_EQ(search.designator() + '"', quoted);
    else
        EXPECT_EQ(differences(*search.in, outcome), "");
}

TEST(Omm, TakesMessagesOfManyKindsAndTellsWhyItRefusesOthers)
{
    const ScratchDir here;
    std::ifstream file(TEST_DATA "/elements/omm_cases.txt");
    int cases = 0;
    for (std::string line; std::getline(file, line);) {
        const std::size_t arrow = line.find(" => ");
        if (line[0] == '#' || arrow == std::string::npos)
            continue;
        ++cases;
        for (const omm::Form& form : omm::forms) {
            SCOPED_TRACE(line + " as " + form.what);
            expectOutcome(changed(line.substr(0, arrow)), form, line.substr(arrow + 4));
        }
    }
    EXPECT_EQ(cases, 43);
    omm::Message reversed = atlasMessage();
    std::reverse(reversed.begin(), reversed.end());
    for (const omm::Form& form : omm::forms)
        expectOutcome(reversed, form, "same");
    FileSearch search(omm::xml({changed("EPOCH=yesterday"), changed("OBJECT_NAME=GOOD ; REV_AT_EPOCH=123456")}));
    EXPECT_EQ(search.next(), 1);  // an iteration goes on behind a message that is refused
    EXPECT_EQ(search.name(), "GOOD                ");
    EXPECT_NE(search.report.find("Revolution at Epoch: 123456"), std::string::npos);
    FileSearch byNumber(omm::xml({changed("EPOCH=yesterday")}));
    EXPECT_EQ(byNumber.byNumber(694), 0);
    EXPECT_NE(byNumber.report.find("\nNORAD#\t\t:   694\n"), std::string::npos) << byNumber.report;
    EXPECT_EQ(byNumber.byNumber(695), 0);
    EXPECT_EQ(byNumber.report, "\n+++ No match found for NORAD# 695 +++");
}

/// The name of each entry, to its last blank.
std::string namesOf(const std::string& bytes)
{
    FileSearch search(bytes);
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

const std::vector<omm::Message>& twoMessages()
{
    static const std::vector<omm::Message> two{atlasMessage(), changed("OBJECT_NAME=SECOND")};
    return two;
}

TEST(Omm, ReadsWhatOtherProgramsWrite)
{
    const ScratchDir here;
    const std::string csv = omm::csv(twoMessages()), json = omm::json(twoMessages()), xml = omm::xml(twoMessages()),
                      kvn = omm::kvn(twoMessages());
    const std::string lines = replaced(csv, "\r\n", "\n"), both = "ATLAS CENTAUR 2;SECOND;",
                      first = both.substr(0, 16);
    const std::pair<std::string, std::string> cases[] = {
        {csv + csv, both + both},  // with its keywords in the middle
        {"# from a service\n\n" + csv + "\r\n\r\n", both},
        {lines, both},
        {replaced(csv, "\r\n", "\r"), both},
        {csv.substr(0, csv.size() - 2), both},
        {"\"" + replaced(replaced(lines, ",", "\" , \""), "\n", "\"\n\""), both},
        {replaced(csv, "SECOND", "\"SECOND, \"\"B\"\"\r\nTHIRD\""), first + "SECOND, \"B\"  THIRD;"},
        {replaced(csv, "SECOND", "SEC\"OND"), first + "SEC\"OND;"},
        {replaced(csv, ",U", "\nU"), ""},  // lines that end too early
        {" \n [ " + replaced(json, ",", " ,\n\t ").substr(1), both},
        {json.substr(1, json.find("},{")), first},
        {replaced(json, "SECOND", "A \\\"{\\u0042}\\\\"), first + "A \"{B}\\;"},
        {replaced(json, "14.02251561", "\"14.02251561\""), both},
        {replaced(json, ",\"BSTAR\":", ",\"X\":{\"Y\":[1,{}]},\"BSTAR\":"), both},
        {replaced(json, "\"BSTAR\":0.13161E-4", "\"BSTAR\":null"), both},
        {replaced(xml, "<OBJECT_NAME>", "<!-- a > b --><OBJECT_NAME>"), both},
        {"\n" + replaced(xml, ">SECOND<", "><![CDATA[SECOND]]><"), both},
        {xml.substr(xml.find("<omm"), xml.find("</omm>") + 6 - xml.find("<omm")), first},
        {replaced(kvn, "\n", "\r\n"), both},
        {replaced(kvn, "\n", "\r"), both},
        {replaced(kvn, " = ", "="), both},
        {replaced(kvn, "CCSDS_OMM_VERS = 2.0\n", ""), both},
        {"COMMENT one\n\nCOMMENT two\n" + kvn, both},
        {replaced(kvn, "SECOND", "SECOND [+]"), first + "SECOND [+];"},
    };
    for (const auto& [bytes, names] : cases)
        EXPECT_EQ(namesOf(bytes), names) << bytes;
    for (const omm::Form& form : omm::forms) {
        const std::string text = form.write(twoMessages());
        EXPECT_EQ(namesOf("\xEF\xBB\xBF" + text), both);
        for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
            QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
            const QByteArray wide = encoder.encode(QString::fromStdString(replaced(text, "encoding=\"UTF-8\"", "")));
            EXPECT_EQ(namesOf(wide.toStdString()), both) << form.what;
        }
    }
}

/// The number of messages that a document gives.
std::size_t messagesIn(const std::string& xml)
{
    return ommMessages(OmmForm::xml, QByteArray::fromStdString(xml)).size();
}

TEST(Omm, ReadsALargeXmlDocumentToItsEnd)
{
    std::vector<omm::Message> many(600, changed("OBJECT_NAME=GR\xD6SSE"));
    const std::string latin = replaced(omm::xml(many), "UTF-8", "ISO-8859-1");
    ASSERT_GT(latin.size(), 500'000U);
    EXPECT_EQ(messagesIn(latin), 600U);
    many.assign(600, atlasMessage());
    const std::string plain = omm::xml(many);
    const std::string named =
        replaced(replaced(plain, "<ndm", "<ndm xmlns:s=\"u\""), "<omm ", "<omm s:noNamespaceSchemaLocation=\"o\" ");
    EXPECT_EQ(messagesIn(named), 600U);
    std::string damaged = plain;
    damaged.replace(damaged.find("<OBJECT_NAME>", damaged.size() / 2), 1, "&");
    EXPECT_EQ(messagesIn(damaged), 599U);
    damaged.replace(damaged.rfind("</omm>"), 6, "");
    EXPECT_EQ(messagesIn(damaged), 598U);
}

TEST(Omm, LeavesTextFilesAlone)
{
    const ScratchDir here;
    for (const char* name : {"[SAT] 1", "{SAT}", "<SAT>", "EPOCH", "EPOCH,BSTAR", "\"SAT\"", "CCSDS_OMM_VERS",
                             "COMMENT = X", "OBJECT_NAME", "[", "{"})
        EXPECT_EQ(namesOf(std::string(name) + "\n" + atlasLines), std::string(name) + ";");
    // the lines of a stream in memory are none of a file
    Entry entry;
    entry.number = 777;
    entry.readTo = EntryPart::whole;
    std::string bytes;
    appendEntry(bytes, entry);
    FileSearch search(bytes + '\n' + atlas);
    EXPECT_EQ(search.byNumber(777), 0);
    EXPECT_EQ(search.byNumber(694), 1);
}

TEST(DamagedOmm, CutAnywhereGivesWholeMessagesOnly)
{
    const ScratchDir here;
    for (const omm::Form& form : omm::forms) {
        const std::string text = form.write(twoMessages());
        const std::size_t second = text.find("SECOND");
        for (std::size_t length = 0; length <= text.size(); ++length) {
            SCOPED_TRACE(form.what + std::to_string(length));
            FileSearch search(text.substr(0, length));
            int entries = 0;
            for (; search.next() > 0; ++entries) {
                ASSERT_EQ(differences(*search.in, "n0=14.02251561 m0=249.5182"), "");
                // KVN does not tell where a message ends
                ASSERT_TRUE(form.write == omm::kvn || search.in->norad[workSlot] == 694);
            }
            ASSERT_GE(entries, length == text.size() ? 2 : length > second ? 1 : 0);
            ASSERT_LE(entries, length < second / 2 ? 0 : length < second ? 1 : 2);
        }
    }
}

}  // namespace
