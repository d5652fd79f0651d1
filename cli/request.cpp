#include "cli/request.h"

#include "cli/words.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

constexpr std::array formNames{"table", "csv", "json", "ndjson", "ics", "geojson", "oem",
                               "tle",   "xml", "kvn",  "iod",    "uk",  "rde"};
constexpr double longestDays = 36525;
constexpr double longestStepSeconds = 86400.0 * 366;
constexpr long long mostRows = 1'000'000'000;
constexpr int mostWorkers = 256;

std::optional<double> plainNumber(std::string_view text)
{
    double value = 0;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size() && std::isfinite(value);
    return whole ? std::optional(value) : std::nullopt;
}

/// The numbers of a text with commas between them; nothing if one is none.
std::vector<double> commaNumbers(const std::string& text)
{
    std::vector<double> numbers;
    for (const QString& part : QString::fromStdString(text).split(QLatin1Char(','))) {
        const auto number = plainNumber(part.trimmed().toStdString());
        if (!number)
            return {};
        numbers.push_back(*number);
    }
    return numbers;
}

struct Range
{
    double from, to;
    const char* expected;
};

/// The options of one task, with the first complaint about a value.
class Values
{
public:
    Values(const TaskWords& task, const std::vector<std::string>& words);

    /// Whether the option is given; never one of another task.
    bool on(const char* name) const { return parser.optionNames().contains(QLatin1String(name)); }
    std::vector<std::string> all(const char* name) const;
    std::string text(const char* name) const;
    std::optional<double> number(const char* name, const Range& range);
    std::optional<Angles> angles(const char* name, const Range& second, const char* expected);
    std::optional<Angles> anglesOf(const char* name, const std::string& word, const Range& second,
                                   const char* expected);
    std::vector<std::pair<std::string, std::string>> inOrder(const std::vector<std::string>& names) const;
    std::string oneOf(const char* name, const std::string& otherwise, const std::vector<std::string>& choices);
    void checkChoice(const char* name, const std::string& word, const std::vector<std::string>& choices);
    void site(Request& request);
    void complain(const std::string& what)
    {
        if (complaint.empty())
            complaint = "vorlix " + std::string(task.name) + ": " + what;
    }

    std::vector<std::string> arguments;
    std::string complaint;

private:
    void checkKnown();
    std::string wrong(const char* name, const std::string& word, const std::string& expected) const
    {
        return std::string("--") + name + ' ' + inQuotes(word) + ": expected " + expected;
    }

    const TaskWords& task;
    QCommandLineParser parser;
};

Values::Values(const TaskWords& words, const std::vector<std::string>& given) : task(words)
{
    for (const OptionWords& option : allOptions()) {
        if (!(option.tasks & bitOf(task.task)))
            continue;
        const QString value = option.value ? QString::fromLatin1(option.value) : QString();
        parser.addOption({QString::fromLatin1(option.name), QString(), value});
    }
    QStringList list{QStringLiteral("vorlix")};
    for (const std::string& word : given)
        list << QString::fromStdString(word);
    const bool good = parser.parse(list);
    checkKnown();
    if (!good)
        complain(parser.errorText().simplified().toStdString() + " Expected: vorlix " + task.name + " --help");
    for (const QString& word : parser.positionalArguments())
        arguments.push_back(word.toStdString());
}

void Values::checkKnown()
{
    if (parser.unknownOptionNames().isEmpty())
        return;
    std::vector<std::string> known;
    for (const OptionWords& option : allOptions())
        if (option.tasks & bitOf(task.task))
            known.push_back(std::string("--") + option.name);
    const std::string word = "--" + parser.unknownOptionNames().constFirst().toStdString();
    complain(inQuotes(word) + " is no option of this task; expected one of those in vorlix " + task.name +
             " --help, the nearest is " + nearestOf(word, known));
}

std::vector<std::string> Values::all(const char* name) const
{
    std::vector<std::string> values;
    if (!on(name))
        return values;
    for (const QString& value : parser.values(QLatin1String(name)))
        values.push_back(value.toStdString());
    return values;
}

/// The value that came last; empty without one.
std::string Values::text(const char* name) const
{
    const std::vector<std::string> values = all(name);
    return values.empty() ? std::string() : values.back();
}

std::optional<double> Values::number(const char* name, const Range& range)
{
    if (!on(name))
        return std::nullopt;
    const std::optional<double> value = plainNumber(text(name));
    if (value && *value >= range.from && *value <= range.to)
        return value;
    complain(wrong(name, text(name), range.expected));
    return std::nullopt;
}

std::optional<Angles> Values::angles(const char* name, const Range& second, const char* expected)
{
    return on(name) ? anglesOf(name, text(name), second, expected) : std::nullopt;
}

std::optional<Angles> Values::anglesOf(const char* name, const std::string& word, const Range& second,
                                       const char* expected)
{
    const std::vector<double> numbers = commaNumbers(word);
    if (numbers.size() != 2 || std::abs(numbers[0]) > 360.0 || numbers[1] < second.from || numbers[1] > second.to) {
        complain(wrong(name, word, expected));
        return std::nullopt;
    }
    return Angles{numbers[0], numbers[1]};
}

/// Names and values of these options as they were typed one after the other.
std::vector<std::pair<std::string, std::string>> Values::inOrder(const std::vector<std::string>& names) const
{
    std::vector<std::pair<std::string, std::string>> found;
    for (const QString& option : parser.optionNames()) {
        const std::string name = option.toStdString();
        if (std::find(names.begin(), names.end(), name) == names.end())
            continue;
        const auto isName = [&name](const auto& pair) { return pair.first == name; };
        const auto nth = static_cast<std::size_t>(std::count_if(found.begin(), found.end(), isName));
        const std::vector<std::string> given = all(name.c_str());
        if (nth < given.size())  // the last word of a line may lack its value
            found.emplace_back(name, given[nth]);
    }
    return found;
}

void Values::checkChoice(const char* name, const std::string& word, const std::vector<std::string>& choices)
{
    if (std::find(choices.begin(), choices.end(), word) == choices.end())
        complain(wrong(name, word, listed(choices)) + "; the nearest is " + nearestOf(word, choices));
}

std::string Values::oneOf(const char* name, const std::string& otherwise, const std::vector<std::string>& choices)
{
    if (!on(name))
        return otherwise;
    checkChoice(name, text(name), choices);
    return text(name);
}

void Values::site(Request& request)
{
    request.siteName = text("site-name");
    if (!on("site"))
        return;
    const std::vector<double> numbers = commaNumbers(text("site"));
    const bool good =
        (numbers.size() == 2 || numbers.size() == 3) && std::abs(numbers[0]) <= 90.0 && std::abs(numbers[1]) <= 360.0;
    if (!good)
        complain(wrong("site", text("site"), "LAT,LON[,HEIGHT] in degrees and metres, as 48.2,16.4,200"));
    else if (on("site-name"))
        complain("expected either --site or --site-name");
    else
        request.site = ListSite{"", numbers[0], numbers[1], numbers.size() == 3 ? numbers[2] : 0.0};
}

void takeCorrections(Values& values, Request& request)
{
    std::vector<std::string> choices{"modern"};
    for (const CorrectionName& entry : correctionNames)
        choices.emplace_back(entry.name);
    std::string unknown;
    request.corrections = correctionsNamed(values.text("models"), unknown);
    if (!unknown.empty() || (values.on("models") && values.text("models").empty()))
        values.checkChoice("models", unknown, choices);
}

void takeCommon(Values& values, const TaskWords& task, Request& request)
{
    request.files = values.all("elements");
    const std::vector<std::string> forms = splitWords(task.forms);
    const std::string form = values.oneOf("format", forms[0], forms);
    for (std::size_t i = 0; i < formNames.size(); ++i)
        if (form == formNames[i])
            request.form = static_cast<ListForm>(i);
    if (const auto limit = values.number("limit", {1, static_cast<double>(mostRows), "a whole number above 0"}))
        request.limit = std::llround(*limit);
    if (const auto workers = values.number("workers", {1, mostWorkers, "a number of threads from 1 to 256"}))
        request.workers = static_cast<int>(*workers);
    request.output = values.text("output");
    request.clock = values.text("clock");
    request.withoutConfig = values.on("no-config");
    takeCorrections(values, request);
}

void takeWhereAndWhen(Values& values, Request& request)
{
    values.site(request);
    request.from = values.text("from");
    request.to = values.text("to");
    request.zone = values.text("zone");
    request.days = values.number("days", {1e-6, longestDays, "a number of days above 0, at most 36525"});
    if (request.days && !request.to.empty())
        values.complain("expected either --to or --days");
}

void takeLight(Values& values, Request& request)
{
    const std::array switches{std::pair{"visible", Light::sunlit}, std::pair{"moonshine", Light::moonlit},
                              std::pair{"all", Light::any}};
    for (const auto& [name, light] : switches) {
        if (!values.on(name))
            continue;
        if (request.light != Light::asSaved)
            values.complain("expected only one of --visible, --moonshine and --all");
        request.light = light;
    }
    constexpr Range elevation{-90, 90, "degrees from -90 to 90"};
    request.minElevation = values.number("min-elevation", elevation);
    request.maxSun = values.number("max-sun", elevation);
    request.horizon = values.text("horizon");
    request.minDuration = values.number("min-duration", {0, 1e9, "seconds, 0 or more"}).value_or(0);
    request.thorough = values.on("thorough");
    request.entryOrder = values.oneOf("order", "time", {"time", "entry"}) == "entry";
}

void takeBrightness(Values& values, Request& request)
{
    request.brighter = values.number("brighter", {-10, 29, "a magnitude from -10 to 29"});
    request.darkSky = values.on("dark-sky");
    request.byMagnitude = values.oneOf("sort", "time", {"time", "magnitude"}) == "magnitude";
    if (request.byMagnitude && request.entryOrder)
        values.complain("expected either --order entry or --sort magnitude");
}

void takeEvents(Values& values, Request& request)
{
    constexpr Range declination{-90, 90, ""};
    request.kinds = values.all("kind");
    for (const std::string& kind : request.kinds)
        values.checkChoice("kind", kind, {"sun", "moon", "place", "flare", "iridium"});
    request.place = values.angles("place", declination, "RA,DEC in degrees, as 68.98,16.51");
    request.mirror = values.angles("mirror", {-180, 180, ""}, "YAW,PITCH in degrees, as 0,-40");
    request.normal = values.angles("normal", declination, "RA,DEC in degrees, as 68.98,16.51");
    request.maxDistance = values.number("max-distance", {0.001, 20000, "km above 0"});
    request.maxMagnitude = values.number("max-magnitude", {-10, 29, "a magnitude from -10 to 29"});
    const auto has = [&](const char* kind) {
        return std::find(request.kinds.begin(), request.kinds.end(), kind) != request.kinds.end();
    };
    if (request.mirror && request.normal)
        values.complain("expected either --mirror or --normal");
    if (has("place") && !request.place)
        values.complain("--kind place: expected --place RA,DEC as well");
    if (has("flare") && !request.mirror && !request.normal)
        values.complain("--kind flare: expected --mirror YAW,PITCH or --normal RA,DEC as well");
}

void takeSteps(Values& values, Request& request)
{
    request.step = values.number("step", {0.001, longestStepSeconds, "seconds, 0.001 or more"}).value_or(60.0);
    request.frequency = values.number("frequency", {1, 1e12, "Hz, 1 or more"});
    request.length = values.number("length", {0.001, 1e5, "metres above 0"});
    request.frame = values.oneOf("frame", request.frame, {"true-of-date", "mean-of-date", "j2000", "earth-fixed"});
    request.numeric = values.on("numeric");
}

/// Times and places, the first place to the first time.
void takeSightings(Values& values, Request& request)
{
    constexpr Range declination{-90, 90, ""};
    const std::vector<std::string> times = values.all("at");
    const auto places = values.inOrder({"azel", "radec"});
    for (std::size_t i = 0; i < std::min(times.size(), places.size()); ++i) {
        const auto& [name, place] = places[i];
        const bool equatorial = name == "radec";
        const char* expected = equatorial ? "RA,DEC in degrees, as 68.98,16.51" : "AZ,EL in degrees, as 205,38";
        const auto angles = values.anglesOf(name.c_str(), place, declination, expected);
        request.sightings.push_back({times[i], angles.value_or(Angles()), equatorial});
    }
    if (times.size() != places.size())
        values.complain("expected one place, --azel AZ,EL or --radec RA,DEC, for each --at TIME");
    if (request.direction && times.size() > 1)
        values.complain("expected --direction with a single --at only; several tell the direction themselves");
}

void takeSighting(Values& values, Request& request)
{
    constexpr Range declination{-90, 90, ""};
    request.azel = values.angles("azel", declination, "AZ,EL in degrees, as 205,38");
    request.radec = values.angles("radec", declination, "RA,DEC in degrees, as 68.98,16.51");
    request.radius = values.number("radius", {0.001, 180, "degrees above 0"}).value_or(request.radius);
    request.window = values.number("window", {0.001, 1440, "minutes above 0"}).value_or(request.window);
    request.direction = values.number("direction", {-360, 360, "degrees from -360 to 360"});
    const bool several = values.all("at").size() > 1;
    if (several ? !request.azel && !request.radec : request.azel.has_value() == request.radec.has_value())
        values.complain("expected either --azel AZ,EL or --radec RA,DEC");
    if (values.on("at"))
        takeSightings(values, request);
}

void takeReports(Values& values, Request& request)
{
    request.reports = values.arguments;
    if (request.reports.empty())
        values.complain("expected a file of observations, - for standard input");
    const auto code = values.number("code", {1, 7, "a form of angles from 1 to 7"});
    if (code && *code != std::floor(*code))
        values.complain("--code: expected a whole number from 1 to 7");
    request.angleCode = static_cast<int>(code.value_or(0));
    request.geometric = values.on("geometric");
    request.initial = values.on("initial");
    request.hold = values.all("hold");
    for (const std::string& element : request.hold)
        values.checkChoice("hold", element,
                           {"inclination", "node", "eccentricity", "perigee", "anomaly", "motion", "drag"});
}

void takeSatellites(Values& values, const TaskWords& task, Request& request)
{
    if (task.task == Task::report || task.task == Task::fit)
        takeReports(values, request);
    if (task.task == Task::report)
        return;
    request.satellites = task.task == Task::contacts ? values.arguments : values.all("satellite");
    if (task.task == Task::contacts && request.satellites.size() != 2)
        values.complain("expected two satellites: vorlix contacts A B");
    if (task.task == Task::fit && request.satellites.size() != (request.initial ? 0 : 1))
        values.complain("expected either --satellite with the one to start from, or --initial");
    const bool arguments = task.task == Task::contacts || task.task == Task::fit || task.task == Task::identify;
    if (!arguments && !values.arguments.empty())
        values.complain(inQuotes(values.arguments[0]) +
                        ": expected an option, or --satellite in front of a satellite");
    for (const std::string& which : request.satellites)
        if (QString::fromStdString(which).trimmed().isEmpty())
            values.complain("--satellite: expected a name, a catalogue number or a designator");
}

void takePicture(Values& values, Request& request)
{
    if (values.arguments.size() != 1)
        values.complain("expected one picture");
    else
        request.picture = values.arguments[0];
    request.exposure = values.number("exposure", {0.001, 86400, "seconds up to 86400"});
    request.clockOffset = values.number("clock-offset", {-1e9, 1e9, "seconds"}).value_or(0.0);
    if (!values.on("streak"))
        return;
    request.streak = commaNumbers(values.text("streak"));
    if (request.streak.size() != 4)
        values.complain("--streak: expected X1,Y1,X2,Y2 in pixels");
}

void takeInstant(Values& values, Request& request)
{
    request.at = values.text("at");
    if (request.at.empty())
        values.complain("expected --at TIME");
}

void takeField(Values& values, Request& request)
{
    request.size = values.angles("size", {0.001, 120, ""}, "WIDTH,HEIGHT in degrees, as 3.2,2.1");
    if (request.size && !(request.size->first >= 0.001 && request.size->first <= 120.0))
        values.complain("--size: expected a width from 0.001 to 120 degrees");
    request.angle = values.number("angle", {-360, 360, "degrees from -360 to 360"}).value_or(0.0);
    request.exposure = values.number("exposure", {0.001, 86400, "seconds up to 86400"});
    request.free = values.on("free");
    if (request.exposure)
        request.days = *request.exposure / 86400.0;
}

std::string noTask(const std::string& word)
{
    std::vector<std::string> names;
    for (const TaskWords& task : allTasks())
        names.emplace_back(task.name);
    return "vorlix: " + inQuotes(word) + " is no task; expected " + listed(names) + "; the nearest is " +
           nearestOf(word, names);
}

}  // namespace

ReadWords readWords(const std::vector<std::string>& words)
{
    const std::string first = words.empty() ? std::string("--help") : words[0];
    if (first == "--help" || first == "-h" || first == "help")
        return {{}, {}, commandHelp()};
    if (first == "--version" || first == "-v")
        return {{}, {}, "vorlix 11.8\n"};
    for (const TaskWords& task : allTasks()) {
        if (first != task.name)
            continue;
        Values values(task, {words.begin() + 1, words.end()});
        if (values.complaint.empty() && values.on("help"))
            return {{}, {}, taskHelp(task)};
        ReadWords read;
        read.request.task = task.task;
        takeCommon(values, task, read.request);
        const unsigned bit = bitOf(task.task);
        takeSatellites(values, task, read.request);
        if (task.task != Task::convert && task.task != Task::report)
            takeWhereAndWhen(values, read.request);
        takeLight(values, read.request);
        takeSteps(values, read.request);
        takeBrightness(values, read.request);
        if (bit == bitOf(Task::events))
            takeEvents(values, read.request);
        if (bit == bitOf(Task::match))
            takeInstant(values, read.request);
        if (bit == bitOf(Task::match) || bit == bitOf(Task::field))
            takeSighting(values, read.request);
        if (bit == bitOf(Task::identify))
            takePicture(values, read.request);
        if (bit == bitOf(Task::field))
            takeField(values, read.request);
        read.complaint = values.complaint;
        return read;
    }
    return {{}, noTask(first), {}};
}
