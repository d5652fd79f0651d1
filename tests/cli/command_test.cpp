// The command as a whole: what the README and a list of lines show comes out, and what must be so for any line.

#include "cli/command.h"
#include "cli/words.h"

#include "cli/transcript_helper.h"
#include "record_fields.h"
#include "scratch_dir.h"

#include "cli/sorter.h"
#include "cli/times.h"
#include "record/config.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "scan/all_satellites.h"
#include "scan/matching.h"

#include <QDir>
#include <QRegularExpression>
#include <QTime>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <set>
#include <tuple>

#include <gtest/gtest.h>

namespace {

const QString samples = QStringLiteral(SOURCE_DIR "/resources/elements");  // no configuration lies there
/// With a site and a clock.
CommandRun runEvening(std::vector<std::string> words, std::FILE* input = nullptr)
{
    words.insert(words.end(), {"--clock", "2018-01-20T12:00:00Z", "--site", "48.2,16.4,200"});
    return runWords(words, samples, input);
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

/// The samples lie in the working directory as well.
class Command : public testing::Test
{
    void SetUp() override { QDir::setCurrent(samples); }
    void TearDown() override { QDir::setCurrent(before); }
    const QString before = QDir::currentPath();
};

TEST_F(Command, CutsPassesByTheHorizonOfTheSite)
{
    const std::string elements = (samples + "/visual.txt").toStdString();
    const ScratchDir folder;
    const auto passes = [&](const char* text) {
        ScratchDir::write("horizon.txt", text);
        return runEvening({"passes", "--elements", elements, "--satellite", "10967", "--days", "0.4", "--format",
                           "csv", "--horizon", "horizon.txt"});
    };
    EXPECT_EQ(linesOf(passes("0 10\n").out).size(), 2u);
    const CommandRun cut = passes("Azimuth;Altitude\n# the house\n240;30\n270\xc2\xb0;30\n270;+5\n360;5\n210;5\n");
    const std::vector<std::string> rows = linesOf(cut.out);
    ASSERT_EQ(rows.size(), 3u) << cut.out << cut.err;
    EXPECT_NE(rows[1].find("T16:58:41.4"), std::string::npos) << rows[1];
    EXPECT_NE(rows[2].find("T17:01:05"), std::string::npos) << rows[2];
    EXPECT_EQ(passes("[[240, 30], [270, 30], [270, 5], [360, 5], [210, 5]]").out, cut.out);
    for (const auto& [text, why] : {std::pair{"12 5\n\n1 2 3\n", "line 3"}, std::pair{"az el\nx y\n", "line 2"},
                                    std::pair{"10 91\n", "line 1: the elevation"}, std::pair{"# no\n", "no point"},
                                    std::pair{"nan 3\n", "line 1: the azimuth"},
                                    std::pair{"[[0, 1], [2]]", "point 2"}, std::pair{"[[0, 1", "but is none"}}) {
        const CommandRun refused = passes(text);
        EXPECT_EQ(refused.status, 3) << text;
        EXPECT_NE(refused.err.find(why), std::string::npos) << refused.err;
    }
}

TEST_F(Command, AnswersAsTheReadmeShows)
{
    const std::vector<Transcript> shown = transcriptsOf(ScratchDir::read(SOURCE_DIR "/README.md"));
    EXPECT_GE(shown.size(), 8);
    for (const Transcript& t : shown)
        EXPECT_TRUE(sameOutcome(outcomeOf(t.command, samples), t.expected))
            << t.command << "\n"
            << outcomeOf(t.command, samples) << "instead of\n"
            << t.expected;
}

TEST_F(Command, AnswersLines)
{
    const std::vector<Transcript> lines = transcriptsOf(ScratchDir::read(TEST_DATA "/cli/commands.txt"));
    EXPECT_GE(lines.size(), 30);
    for (const Transcript& t : lines)
        EXPECT_TRUE(sameOutcome(outcomeOf(t.command, samples), t.expected))
            << t.command << "\n"
            << outcomeOf(t.command, samples) << "instead of\n"
            << t.expected;
}

/// Start, maximum and end of a pass, each as its time of the day, and the name.
struct ListedPass
{
    std::string name;
    std::array<QTime, 3> times;
};

/// A line of a list of the window, or one of the command in CSV; nothing for any other line.
std::optional<ListedPass> passOf(const std::string& line)
{
    static const QRegularExpression clock(QStringLiteral("[ T]([ 0-9][0-9]:[0-9]{2}:[0-9]{2}([.][0-9]+)?)"));
    const QString text = QString::fromStdString(line);
    ListedPass pass;
    std::size_t count = 0;
    qsizetype end = 0;
    for (auto found = clock.globalMatch(text); found.hasNext() && count < 3;) {
        const QRegularExpressionMatch match = found.next();
        end = match.capturedEnd();
        const QString time = match.captured(1).replace(QLatin1Char(' '), QLatin1Char('0'));
        pass.times[count++] = QTime::fromString(time, Qt::ISODateWithMs);
    }
    if (count < 3)
        return std::nullopt;
    const bool csv = text.contains(QLatin1String("Z,"));
    const QString name =
        csv ? text.section(QLatin1Char(','), 0, 0) : text.mid(text.indexOf(QLatin1Char(')'), end) + 1);
    pass.name = name.trimmed().toStdString();
    return pass;
}

/// In order of their names and times of the day.
std::vector<ListedPass> passesOf(const std::string& list)
{
    std::vector<ListedPass> passes;
    for (const std::string& line : linesOf(list))
        if (const auto pass = passOf(line))
            passes.push_back(*pass);
    std::sort(passes.begin(), passes.end(), [](const ListedPass& a, const ListedPass& b) {
        return std::tie(a.name, a.times) < std::tie(b.name, b.times);
    });
    return passes;
}

/// The list that the window writes for two days of the sample file.
std::string listOfWindow()
{
    const ScratchDir here;
    WinpData in;
    setDefaults(&in);
    setFields(in, "visflg=1 satel=10 sunel=-6 dur=2 lat=48.2 lng=16.4 height=200 tzone=0 day=20 month=1 year=2018 "
                  "hour=12 newsave=1");
    assignField(in.tlename, SOURCE_DIR "/resources/elements/visual.txt");
    assignField(in.savename, "list.txt");
    EXPECT_EQ(AllSatAos(&in), 0);
    return ScratchDir::read("list.txt");
}

TEST(Passes, AreThoseOfTheWindowToTheSecond)
{
    const std::vector<ListedPass> expected = passesOf(listOfWindow());
    ASSERT_GT(expected.size(), 100);
    const CommandRun run = runEvening({"passes", "--days", "2", "--format", "csv"});
    const std::vector<ListedPass> found = passesOf(run.out);
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i].name, expected[i].name);
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_LE(std::abs(found[i].times[k].msecsTo(expected[i].times[k])), 501) << found[i].name;
    }
}

/// The catalogue numbers that fit a sighting, by the report of the window.
std::multiset<std::string> matchesOfWindow(const char* fields)
{
    WinpData in;
    setDefaults(&in);
    setFields(in,
              std::string("visflg=0 satel=10 sunel=90 lat=48.2 lng=16.4 height=200 mjd=58138.70833333333 ") + fields);
    assignField(in.tlename, TEST_DATA "/elements/catalogue_2018.txt");
    const auto out = std::make_unique<WoutData>();
    EXPECT_EQ(SatMatch(&in, out.get()), 0);
    std::multiset<std::string> numbers;
    for (int line = 0; line < out->nlines; ++line)
        if (lineText(*out, line).rfind(" NORAD#:", 0) == 0)
            numbers.insert(QString::fromUtf8(lineText(*out, line).substr(8, 6).data(), 6).trimmed().toStdString());
    return numbers;
}

struct SightingCase
{
    const char* words;
    const char* fields;
};

TEST(Matches, AreThoseOfTheWindow)
{
    const SightingCase cases[] = {
        {"--azel 253,23 --radius 25 --window 3", "rdf=0 az=253 el=23 mxa=25 tm=3"},
        {"--azel 253,23 --radius 60 --window 1 --direction 90", "rdf=0 az=253 el=23 mxa=60 tm=1 drf=1 dra=90"},
        {"--radec 345,30 --radius 40 --window 5", "rdf=1 az=23 el=30 mxa=40 tm=5"},
    };
    for (const SightingCase& c : cases) {
        std::vector<std::string> words = wordsOfLine(c.words);
        words.insert(words.begin(), {"match", "--at", "2018-01-20T17:00:00Z", "--all", "--format", "csv",
                                     "--elements", TEST_DATA "/elements/catalogue_2018.txt"});
        std::multiset<std::string> found;
        for (const std::string& line : linesOf(runEvening(words).out))
            found.insert(QString::fromStdString(line).section(QLatin1Char(','), 1, 1).toStdString());
        found.erase("catalogue_number");
        EXPECT_EQ(found, matchesOfWindow(c.fields)) << c.words;
        EXPECT_GE(found.size(), 3) << c.words;
    }
}

/// Two places of one satellite a minute apart, as `look` has them; the second one precessed to its date by hand.
TEST(Matches, OfSeveralSightingsAreLateByTheSameTime)
{
    const char* first = " --azel 250.6584,22.9422";
    const std::pair<const char*, std::string> cases[] = {
        {"17:00:00.5 17:01:00.5", "10967,0"},
        {"17:01:00.5 17:00:00.5", ""},  // the wrong way round
        {"17:00:20.9 17:01:20.9", "10967,-20"},
        {"17:00:20.5 17:01:22.5", ""},  // each would fit with a shift of its own
        {"17:02:30.5 17:03:30.5", ""},  // beyond the window
    };
    for (const auto& [times, expected] : cases) {
        const QStringList at = QString(times).split(' ');
        const QString line = "match --at 2018-01-20T%1Z" + QString(first) +
                             " --radec 317.6718,15.3146 --at 2018-01-20T%2Z --radius 0.05 --format csv";
        std::string found;
        for (const std::string& row : linesOf(runEvening(wordsOfLine(line.arg(at[0], at[1]).toStdString())).out)) {
            const QStringList cells = QString::fromStdString(row).split(',');
            if (cells[1] != "catalogue_number")
                found += (cells[1] + ',' + QString::number(cells[5].toDouble(), 'f', 0)).toStdString();
        }
        EXPECT_EQ(found, expected) << times;
    }
}

TEST_F(Command, OffersEveryWordInManualPageAndCompletions)
{
    for (const char* file :
         {"vorlix.1", "completions/vorlix.bash", "completions/_vorlix", "completions/vorlix.fish"}) {
        std::string text = ScratchDir::read((std::string(SOURCE_DIR "/resources/desktop/") + file).c_str());
        text.erase(std::remove(text.begin(), text.end(), '\\'), text.end());
        for (const TaskWords& task : allTasks())
            EXPECT_NE(text.find(task.name), std::string::npos) << file << ": " << task.name;
        for (const OptionWords& option : allOptions())
            EXPECT_TRUE(text.find(std::string("--") + option.name) != std::string::npos ||
                        text.find(std::string("-l ") + option.name) != std::string::npos)
                << file << ": " << option.name;
    }
}

TEST_F(Command, ReadsStandardInputAndWritesFiles)
{
    const ScratchDir here;
    const std::string elements = ScratchDir::read(SOURCE_DIR "/resources/elements/visual.txt");
    ScratchDir::write("elements.txt", elements);
    const FilePtr input(std::fopen("elements.txt", "r"));
    const CommandRun typed = runEvening({"passes", "--elements", "-", "--format", "csv"}, input.get());
    EXPECT_EQ(typed.status, 0) << typed.err;

    ScratchDir::write("old.csv", "old");
    EXPECT_EQ(runEvening({"passes", "--elements", "elements.txt", "--output", "./elements.txt"}).status, 2);
    EXPECT_EQ(ScratchDir::read("elements.txt"), elements) << "an input is overwritten";
    ScratchDir::write("empty.txt", "nothing\n");
    EXPECT_EQ(runWords({"passes", "--elements", "empty.txt", "--output", "old.csv"}, samples).status, 2);
    EXPECT_EQ(runEvening({"passes", "--elements", "empty.txt", "--output", "old.csv"}).status, 3);
    EXPECT_EQ(ScratchDir::read("old.csv"), "old") << "a file is lost for nothing";
    EXPECT_EQ(runEvening({"passes", "--output", "old.csv", "--format", "csv"}).status, 0);
    EXPECT_EQ(passesOf(ScratchDir::read("old.csv")).size(), passesOf(typed.out).size());
}

/// A configuration with an element file beside it, asked from another folder.
TEST(Configuration, IsTakenWhereNoOptionStandsAndLeftAsItIs)
{
    const ScratchDir here;
    const std::string elements = ScratchDir::read(SOURCE_DIR "/resources/elements/iridium.txt");
    ScratchDir::write("mine.txt", elements);
    WinpData in;
    setDefaults(&in);
    setFields(in, "visflg=1 satel=40 sunel=-12 dur=3 lat=-33.9 lng=18.4 height=20");
    assignField(in.geoname, "Cape");
    assignField(in.tlename, "mine.txt");
    ASSERT_EQ(putcfg(&in), "");
    const std::string saved = ScratchDir::read("vorlix.cfg");
    const QString home = QDir::currentPath();
    QDir().mkdir("away");
    QDir::setCurrent("away");
    const auto answerOf = [&](const std::string& line) {
        return runWords(wordsOfLine(line + " --clock 2018-01-20T12:00Z --format csv"), home).out;
    };
    const std::string site = " --no-config --elements ../mine.txt --site -33.9,18.4,20";
    const std::string passes = answerOf("passes");
    EXPECT_GT(linesOf(passes).size(), 3);
    EXPECT_EQ(passes, answerOf("passes --visible --min-elevation 40 --max-sun -12 --days 3" + site));
    EXPECT_EQ(answerOf("passes --min-elevation 10"),
              answerOf("passes --visible --min-elevation 10 --max-sun -12 --days 3" + site));
    EXPECT_EQ(runWords({"convert"}, home).out, elements) << "an entry is filtered or changed";
    EXPECT_EQ(ScratchDir::read("../vorlix.cfg"), saved);

    ScratchDir::write("../vorlix.cfg", "damaged\n");
    const CommandRun damaged = runWords({"passes", "--elements", "../mine.txt"}, home);
    EXPECT_EQ(damaged.status, 2);
    EXPECT_NE(damaged.err.find("the saved configuration is damaged and is not used"), std::string::npos);
}

TEST(Sorter, GivesTextsByTimeFromMemoryAndFiles)
{
    Sorter sorter(300);  // bytes: a few of these items
    std::vector<std::string> expected;
    for (int i = 0; i < 500; ++i) {
        const int time = i * 7919 % 100;
        sorter.add(time, std::to_string(1000 * time + i), i);
        expected.push_back(std::to_string(1000 * time + i));
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](const auto& a, const auto& b) { return std::stoi(a) < std::stoi(b); });
    std::vector<std::string> given;
    EXPECT_TRUE(sorter.giveAll([&](const std::string& text, int tag) {
        EXPECT_EQ(std::stoi(text) % 1000, tag);
        given.push_back(text);
        return true;
    }));
    EXPECT_EQ(given, expected);
}

}  // namespace
