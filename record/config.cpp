#include "record/config.h"

#include "record/files.h"
#include "record/numbers.h"
#include "record/text.h"

#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace {
constexpr const char* configName = "vorlix.cfg";
constexpr double followSystemHours = 16.0;  // in place of a time zone
constexpr double greatestZoneHours = 15.0;
constexpr double shortestDays = 1.0, longestDays = 14.0;
constexpr int shortestUrl = 6;

double limitedDays(double days)
{
    return days >= shortestDays ? std::min(days, longestDays) : shortestDays;
}

/// The value if it is one of 0, 1, 2, else the other one.
int oneOfThree(int value, int otherwise)
{
    return value >= 0 && value < 3 ? value : otherwise;
}

/// Reads items of one line each. Lines are read whole, however long, so that the reader stays in step.
class ConfigReader
{
public:
    explicit ConfigReader(std::FILE* config) : file(config) {}

    template <std::size_t N>
    std::array<double, N> numbers()
    {
        std::array<double, N> values{};
        const bool complete = next() && numbersOf(line, N, values.data()) == static_cast<int>(N);
        // any text counts as one number, also none
        if (N > 1 && !complete)
            bad = true;
        return values;
    }
    double number() { return numbers<1>()[0]; }
    int integer() { return next() ? wholeNumber(line) : 0; }
    std::string text() { return next() ? std::string(beforeLineEnd(line)) : std::string(); }

    /// A name after any white space. False if the file ends before or within it.
    bool name(std::string& to)
    {
        std::size_t begin = std::string::npos;
        while (begin == std::string::npos) {
            if (!readLine(file, line))
                return false;
            begin = line.find_first_not_of(" \t\n\v\f\r");
        }
        to = beforeLineEnd(std::string_view(line).substr(begin));
        return line.back() == '\n';
    }

    bool damaged() const { return bad || std::ferror(file); }

private:
    bool next()
    {
        if (readLine(file, line))
            return true;
        bad = true;
        return false;
    }

    std::FILE* file;
    std::string line;
    bool bad = false;
};

/// Lines 1 to 20 as they stand in the file.
struct Settings
{
    explicit Settings(ConfigReader& from)
        : tzone(from.number()),
          lat(from.number()),
          lng(from.number()),
          height(from.number()),
          geoname(from.text()),
          fsz(from.integer()),
          mgrid(from.integer()),
          mgrey(from.integer()),
          tlename(from.text()),
          visflg(from.integer()),
          sunel(from.number()),
          satel(from.number()),
          yrepoch(from.number()),
          mfsz(from.integer()),
          bf(from.integer()),
          leftbtn(from.integer()),
          url(from.text()),
          durAndFlux(from.numbers<4>()),
          forces(from.numbers<3>()),
          satn(from.integer())
    {}

    // initialised in this order, which is that of the lines
    double tzone, lat, lng, height;
    std::string geoname;
    int fsz, mgrid, mgrey;
    std::string tlename;
    int visflg;
    double sunel, satel, yrepoch;
    int mfsz, bf, leftbtn;
    std::string url;
    std::array<double, 4> durAndFlux;
    std::array<double, 3> forces;
    int satn;
};

/// Whether a directory, a pipe or the like has the name.
bool isNoFile(const char* name)
{
    const QFileInfo info(QString::fromLatin1(name));
    return info.exists() && !info.isFile();
}

int readNames(WinpData* in, ConfigReader& from, int count)
{
    std::string name;
    for (int i = 0; i < count; ++i) {
        if (!from.name(name))
            return i;
        assignField(in->cfgname[i], name);
    }
    return count;
}

void takePlace(WinpData* in, const Settings& read)
{
    in->tzauto = read.tzone == followSystemHours;
    in->tzone = read.tzone > greatestZoneHours || read.tzone < -greatestZoneHours ? 0.0 : read.tzone;
    in->lat = read.lat;
    in->lng = read.lng;
    in->height = read.height;
    if (!read.geoname.empty())
        assignField(in->geoname, read.geoname);
}

void takeDisplay(WinpData* in, const Settings& read)
{
    in->fsz = read.fsz == 8 ? 8 : 10;
    in->mgrid = oneOfThree(read.mgrid, 1);
    in->mgrey = oneOfThree(read.mgrey, 0);
    in->mfsz = read.mfsz;
    in->bf = read.bf != 0;
    in->leftbtn = read.leftbtn == 1;
}

void takeFilesAndSearch(WinpData* in, const Settings& read)
{
    if (!read.tlename.empty())
        assignField(in->tlename, read.tlename);
    if (read.url.size() >= shortestUrl)
        assignField(in->url, read.url);
    in->visflg = read.visflg;
    in->sunel = read.sunel;
    in->satel = read.satel;
    in->yrepoch = read.yrepoch;
}

void takeDurationAndForces(WinpData* in, const Settings& read)
{
    in->dur = limitedDays(read.durAndFlux[0]);
    in->dF107 = read.durAndFlux[1];
    in->dFB107 = read.durAndFlux[2];
    in->dKp = read.durAndFlux[3];
    in->dCd = read.forces[0];
    in->dCr = read.forces[1];
    in->dAm = read.forces[2];
}

/// Composes the file in memory.
class ConfigText
{
public:
    template <class... Values>
    void line(const char* format, Values... values)
    {
        char buffer[2048];  // four numbers of 310 digits
        std::snprintf(buffer, sizeof buffer, format, values...);
        decdot(buffer);
        text.append(buffer).push_back('\n');
    }
    void textLine(std::string_view words) { text.append(beforeLineEnd(words)).push_back('\n'); }

    const std::string& all() const { return text; }

private:
    std::string text;
};

std::string configText(const WinpData& in)
{
    ConfigText to;
    to.line("%lf ", in.tzauto ? followSystemHours : in.tzone);
    to.line("%lf ", in.lat);
    to.line("%lf ", in.lng);
    to.line("%lf ", in.height);
    to.textLine(fieldText(in.geoname));
    to.line("%d ", in.fsz);
    to.line("%d ", in.mgrid);
    to.line("%d ", in.mgrey);
    to.textLine(fieldText(in.tlename));
    to.line("%d ", in.visflg);
    to.line("%lf ", in.sunel);
    to.line("%lf", in.satel);
    to.line("%lf", in.yrepoch);
    to.line("%d", in.mfsz);
    to.line("%d", in.bf ? 1 : 0);
    to.line("%d ", in.leftbtn ? 1 : 0);
    to.textLine(fieldText(in.url));
    to.line("%g %7.1lf %7.1lf %7.1lf", limitedDays(in.dur), in.dF107, in.dFB107, in.dKp);
    to.line("%13.5le %13.5le %13.5le", in.dCd, in.dCr, in.dAm);
    const int count = std::clamp(in.satn, 0, maxSatellites);
    to.line("%d ", count);
    for (int i = 0; i < count; ++i)
        to.textLine(fieldText(in.fsname[i]));
    return to.all();
}
}  // namespace

int getcfg(WinpData* in)
{
    const FilePtr file = openForReading(configName);
    if (!file)
        return isNoFile(configName) ? 0 : 2;
    ConfigReader from(file.get());
    const Settings read(from);
    const bool plausible = !from.damaged() && read.satn >= 0 && read.satn <= maxSatellites;
    const int names = plausible ? readNames(in, from, read.satn) : 0;
    if (from.damaged())
        return 0;
    takePlace(in, read);
    takeDisplay(in, read);
    takeFilesAndSearch(in, read);
    takeDurationAndForces(in, read);
    in->satn = names;
    return 1;
}

std::string putcfg(const WinpData* in)
{
    return replaceFile(configName, configText(*in));
}
