#include "cli/session.h"

#include "cli/words.h"
#include "design/launch_sites_data.h"
#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/night.h"
#include "observing/horizon_file.h"
#include "record/config.h"
#include "record/further_settings.h"
#include "record/text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

namespace {

constexpr double trackDays = 0.1;    // of tracks and states, a turn or more of a low satellite
constexpr double nextDays = 0.1;     // how far ahead the next satellites are looked for
constexpr long long nextCount = 10;  // and how many of them
constexpr double minutesPerDay = 1440.0;

Problem wrongWords(const Request& request, const std::string& what)
{
    return {status::wrongWords, std::string("vorlix ") + wordsOf(request.task).name + ": " + what};
}

/// The saved configuration over the defaults; the working directory is as before afterwards.
int readConfig(WinpData* in, const QString& home)
{
    const QString before = QDir::currentPath();
    if (!QDir::setCurrent(home))
        return 2;
    const int result = getcfg(in);
    QDir::setCurrent(before);
    return result;
}

bool sameName(const QString& one, const std::string& other)
{
    return one.trimmed().compare(QString::fromStdString(other).trimmed(), Qt::CaseInsensitive) == 0;
}

/// "sites/NAME" of vorlix.ini: latitude, longitude and height with commas between them.
std::optional<ListSite> furtherSite(const std::string& name)
{
    QSettings settings = openFurtherSettings();
    settings.beginGroup(QStringLiteral("sites"));
    for (const QString& key : settings.childKeys()) {
        const QStringList parts = settings.value(key).toStringList().join(QLatin1Char(',')).split(QLatin1Char(','));
        if (sameName(key, name) && parts.size() >= 2)
            return ListSite{key.toStdString(), parts[0].toDouble(), parts[1].toDouble(),
                            parts.size() > 2 ? parts[2].toDouble() : 0.0};
    }
    return std::nullopt;
}

ListSite savedSite(const WinpData& in)
{
    return {fieldQString(in.geoname).trimmed().toStdString(), in.lat, in.lng, in.height};
}

std::optional<ListSite> siteByName(const std::string& name, const WinpData& in)
{
    if (sameName(fieldQString(in.geoname), name))
        return savedSite(in);
    if (auto site = furtherSite(name))
        return site;
    for (const LaunchSite& site : launchSites)
        if (&site != &launchSites[0] && sameName(QString::fromLatin1(site.name), name))
            return ListSite{site.name, site.latitude, site.longitude, 0.0};
    return std::nullopt;
}

std::vector<std::string> siteNames(const WinpData& in)
{
    std::vector<std::string> names{savedSite(in).name};
    QSettings settings = openFurtherSettings();
    settings.beginGroup(QStringLiteral("sites"));
    for (const QString& key : settings.childKeys())
        names.push_back(key.toStdString());
    for (const LaunchSite& site : launchSites)
        if (&site != &launchSites[0])
            names.emplace_back(site.name);
    return names;
}

bool needsSite(const Request& request)
{
    const bool above = request.task == Task::track || request.task == Task::state || request.task == Task::contacts;
    return request.task != Task::convert && request.task != Task::report && request.task != Task::identify &&
           (!above || request.from == "tonight");
}

Problem findSite(Session& session, bool saved)
{
    const Request& request = session.request;
    WinpData& in = *session.record;
    if (request.site) {
        session.site = *request.site;
    } else if (!request.siteName.empty()) {
        const auto site = siteByName(request.siteName, in);
        if (!site)
            return wrongWords(request, "--site-name " + inQuotes(request.siteName) +
                                           " is not known; expected a saved or a launch site, the nearest is \"" +
                                           nearestOf(request.siteName, siteNames(in)) + '"');
        session.site = *site;
    } else if (saved) {
        session.site = savedSite(in);
    } else if (needsSite(request)) {
        return wrongWords(request, "no site is saved; expected --site LAT,LON[,HEIGHT]");
    }
    in.lat = session.site.latitude;
    in.lng = session.site.longitude;
    in.height = session.site.height;
    assignField(in.geoname, session.site.name);
    return {};
}

void setLight(WinpData& in, const Request& request)
{
    Light light = request.light;
    if (light == Light::asSaved && request.task == Task::contacts)
        light = Light::any;
    if (light != Light::asSaved) {
        in.visflg = light == Light::any ? 0 : 1;
        in.moonflg = light == Light::moonlit ? 1 : 0;
    }
    if (light == Light::any)
        in.sunel = anySunElevationDeg;
    in.sunel = request.maxSun.value_or(in.sunel);
    in.satel = request.minElevation.value_or(in.satel);
}

/// A text of a time to its instant.
Problem readTime(const Session& session, const char* name, const std::string& text, double& to)
{
    const auto time = instantOf(text, session.zoneHours, session.now);
    if (!time)
        return wrongWords(session.request, std::string("--") + name + " " + inQuotes(text) +
                                               ": expected a time of 1900 to 2199 as 2018-01-20T17:04:59Z, or now" +
                                               (std::strcmp(name, "from") == 0 ? ", or tonight" : ""));
    to = *time;
    return {};
}

Problem findClock(Session& session)
{
    session.now = systemMjd();
    if (!session.request.clock.empty())
        if (Problem problem = readTime(session, "clock", session.request.clock, session.now))
            return problem;
    const auto zone = zoneHoursOf(session.request.zone, session.now);
    if (!zone)
        return wrongWords(session.request, "--zone " + inQuotes(session.request.zone) +
                                               ": expected Z, +01:00, hours, local or a name as Europe/Vienna");
    session.zoneHours = *zone;
    return {};
}

double defaultDays(const Session& session)
{
    switch (session.request.task) {
    case Task::look:
    case Task::now:
        return 0.0;
    case Task::track:
    case Task::state:
        return trackDays;
    case Task::next:
        return nextDays;
    case Task::field:
        return 60.0 / 86400.0;
    default:
        return session.record->dur;
    }
}

Problem findInterval(Session& session)
{
    const Request& request = session.request;
    session.from = session.now;
    double night = -1.0;
    if (request.from == "tonight") {
        const auto found = nightAt(session.now, {session.site.latitude, session.site.longitude, session.site.height});
        if (!found)
            return {status::nothingFound, "vorlix: the Sun does not set within a day at this site"};
        session.from = found->sunset;
        night = found->sunrise - found->sunset;
    } else if (!request.from.empty()) {
        if (Problem problem = readTime(session, "from", request.from, session.from))
            return problem;
    }
    session.to = session.from + request.days.value_or(night >= 0.0 ? night : defaultDays(session));
    if (!request.to.empty())
        if (Problem problem = readTime(session, "to", request.to, session.to))
            return problem;
    if (session.to < session.from)
        return wrongWords(request, "the interval ends before it begins; expected --to after --from");
    return {};
}

Problem findSighting(Session& session)
{
    for (const Sighting& sighting : session.request.sightings)
        if (Problem problem = readTime(session, "at", sighting.at, session.seenAt.emplace_back()))
            return problem;
    const auto [first, last] = std::minmax_element(session.seenAt.begin(), session.seenAt.end());
    session.now = session.seenAt.front();
    session.from = *first - session.request.window / minutesPerDay;
    session.to = *last + session.request.window / minutesPerDay;
    return {};
}

/// Standard input becomes a file without a name, which its number names.
Problem holdInput(ElementFile& file, std::FILE* input)
{
    file.held.reset(std::tmpfile());
    bool good = file.held && input;
    char block[65536];
    for (std::size_t n; good && (n = std::fread(block, 1, sizeof block, input)) > 0;)
        good = std::fwrite(block, 1, n, file.held.get()) == n;
    if (!good || std::ferror(input) || std::fflush(file.held.get()) != 0)
        return {status::unreadable, "vorlix: standard input cannot be read"};
    file.path = "/dev/fd/" + std::to_string(::fileno(file.held.get()));
    return {};
}

Problem openFiles(Session& session, const Channels& channels)
{
    if (session.request.task == Task::report || session.request.initial)
        return {};
    std::vector<std::string> names = session.request.files;
    const bool saved = names.empty();
    if (saved)
        names.emplace_back(fieldText(session.record->tlename));
    for (const std::string& name : names) {
        ElementFile file{name, name, nullptr};
        if (saved)
            file.path = QDir(channels.home).absoluteFilePath(QFile::decodeName(name.c_str())).toStdString();
        if (name == "-" && !saved)
            if (Problem problem = holdInput(file, channels.input))
                return problem;
        if (!openForReading(file.path.c_str()))
            return {status::unreadable, "vorlix: the element file " + inQuotes(name) + " cannot be read"};
        session.files.push_back(std::move(file));
    }
    return {};
}

Problem readHorizonOf(Session& session)
{
    const std::string& name = session.request.horizon;
    if (name.empty())
        return {};
    const HorizonText text = readHorizonFile(QFile::decodeName(name.c_str()));
    session.horizon = text.line;
    return text.line
               ? Problem{}
               : Problem{status::unreadable, "vorlix: no horizon from " + inQuotes(name) + ": " + text.complaint};
}

/// What the answer goes to must not be what is read.
Problem checkOutput(const Session& session)
{
    if (session.request.output.empty())
        return {};
    const QFileInfo output(QString::fromStdString(session.request.output));
    const auto is = [&output](const std::string& path) {
        return output.exists() &&
               output.canonicalFilePath() == QFileInfo(QString::fromStdString(path)).canonicalFilePath();
    };
    for (const ElementFile& file : session.files)
        if (is(file.path))
            return wrongWords(session.request, "--output is an element file that is read; expected another name");
    if (std::any_of(session.request.reports.begin(), session.request.reports.end(), is) ||
        is(session.request.horizon))
        return wrongWords(session.request, "--output is a file that is read; expected another name");
    return {};
}

}  // namespace

Problem prepare(Session& session, const Channels& channels)
{
    if (session.request.task == Task::next && !session.request.limit)
        session.request.limit = nextCount;
    session.record = std::make_unique<WinpData>();
    WinpData* in = session.record.get();
    setDefaults(in);
    setFurtherSettingsFolder(channels.home);
    const int config = session.request.withoutConfig ? 2 : readConfig(in, channels.home);
    if (config == 0)
        channels.err("vorlix: the saved configuration is damaged and is not used\n");
    in->models = session.request.corrections;
    in->satn = 1;
    in->prs = 0;
    setLight(*in, session.request);
    in->chlen = session.request.length.value_or(0.0);
    Problem problem = findSite(session, config == 1);
    if (!problem)
        problem = findClock(session);
    if (!problem)
        problem = session.request.task == Task::match ? findSighting(session) : findInterval(session);
    if (!problem)
        problem = openFiles(session, channels);
    if (!problem)
        problem = readHorizonOf(session);
    in->mjd = session.from;
    return problem ? problem : checkOutput(session);
}
