#include "engine/scan/all_satellites.h"

#include "app/record/clock.h"
#include "app/record/files.h"
#include "app/record/keep.h"
#include "app/record/numbers.h"
#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "elements/element_file.h"
#include "engine/aos_list.h"
#include "engine/flares.h"
#include "engine/pass_search.h"
#include "engine/scan/entries.h"
#include "engine/scan/save_lines.h"
#include "engine/sun_moon_transit.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr double faintestLimitMag = 29.0;
constexpr int hitResult = 1;  // of nextpass: a pass or an event
constexpr int transitTextRoom = 64;
constexpr int lineRoom = 256;

struct Band
{
    double lowKm, highKm;
};
constexpr Band operationalMeanKm{7157.0, 7157.6};        // semi-major axes of SGP4 elements
constexpr Band operationalOsculatingKm{7150.0, 7159.9};  // of all others

bool refused(const WinpData& in)
{
    if (in.iridflg == event::iridium)
        return in.irmag > faintestLimitMag;
    return in.iridflg > event::plain && in.maxdst == 0.0;
}

void write(const TextWriter& line)
{
    std::fwrite(line.text().data(), 1, line.text().size(), outptr);
}

void writeHeading(const WinpData& in)
{
    char text[4 * lineRoom];
    TextWriter heading(text);
    heading.add("Geographic Location: ").add(fieldText(in.geoname)).add("\n");
    heading.addFormatted(" Lat.: %g   Long.: %g   Height: %g \n\n", in.lat, in.lng, in.height);
    heading.addFormatted(" min.Sat.Elev.: %g   max.Sun Elev.: %g", in.satel, in.sunel);
    if (in.visflg)
        heading.add(in.moonflg ? "   Moonshine passes only" : "   visible passes only");
    heading.addFormatted("\n Year: %4i  +++ Timezone: %g +++ \n", in.year, in.tzone);
    if (heldSpan(in.dur) != in.dur)
        heading.addFormatted(" *** Time span held to %g days ***\n", heldSpan(in.dur));
    heading.add(std::string(71, '='));
    heading.add(in.iridflg > event::plain
                    ? "\n    Event Time (Azim.,Elev.)\n"
                    : "\n  Start (Azim.,Elev.)    Maximum (Azim.,MaxElev.)     End (Azim.,Elev.)\n");
    write(heading);
}

const char* mirrorName(const WinpData& in)
{
    if (in.irsolp)
        return mirrors[3].name;
    if (in.occra < 0.0)
        return mirrors[1].name;
    return in.occra > 0.0 ? mirrors[2].name : mirrors[0].name;
}

void addIridiumFlare(TextWriter& line, const WinpData& in, const Pass& pass)
{
    line.add("  Iridium Flare  ").add(mirrorName(in)).add(pass.a[0] > pass.a[2] ? "->S" : "->N");
    line.addFormatted("  mag %5.1lf", pass.b[2]);
}

void addDistantEvent(TextWriter& line, const WinpData& in, const Pass& pass)
{
    if (in.iridflg == event::flare && in.flarmod == 1)
        line.addFormatted("  Flare  Y: %g  P: %g", in.occra, in.occdec);
    else if (in.iridflg == event::flare)
        line.addFormatted("  Flare  R.A.: %g  Dec.: %g", in.occra, in.occdec);
    else if (in.occflg == 1)
        line.add("  Sun Transit");
    else if (in.occflg == 2)
        line.add("  Moon Transit");
    else
        line.addFormatted("  Occ. R.A.: %g  Dec.: %g", in.occra, in.occdec);
    line.addFormatted("  dist:%7.1lf km", pass.b[2]);
}

/// The scan of a file: one satellite after the other in the prime slot, whose content is parked meanwhile.
class Scan
{
public:
    Scan(WinpData* record, double distanceBefore)
        : in(record),
          nothingSelected(record->satn < 1),
          automatic(transitsOfDisk(*record) && distanceBefore <= 0.0),
          hitsJoinSelection(transitsOfDisk(*record) && distanceBefore == 0.0),
          start(startMjd(record)),
          end(start + heldSpan(record->dur))
    {
        if (nothingSelected)
            in->satn = 1;
        ShiftElm(in, parkedSlot, in->prs);
    }
    ~Scan()
    {
        if (nothingSelected)
            in->satn = 0;
        ShiftElm(in, in->prs, parkedSlot);
    }
    Scan(const Scan&) = delete;
    Scan& operator=(const Scan&) = delete;

    void satellite();

private:
    void round();
    bool addEvent(TextWriter& line, const Pass& pass);
    void writeLine(TextWriter& line);
    void joinSelection();

    WinpData* in;
    bool nothingSelected;
    bool automatic;
    bool hitsJoinSelection;
    double start, end;
    bool firstLine = true;  // of the present satellite
};

/// The entry in the work slot; with solar panel flares in a second round as well.
void Scan::satellite()
{
    ShiftElm(in, in->prs, workSlot);
    firstLine = true;
    in->irsolp = false;
    round();
    if (in->iridflg != event::iridium || !in->irsol)
        return;
    in->irsolp = true;
    round();
    in->irsolp = false;
}

void Scan::round()
{
    if (in->iridflg == event::iridium && in->ops && !operationalOrbit(*in, in->prs))
        return;
    double t = start;
    Pass pass;
    while (t <= end) {
        const int result = nextpass(in, in->prs, t, end, pass.tm, pass.a, pass.b);
        if (result == 0)
            return;
        char text[lineRoom];
        TextWriter line(text);
        bool hit = result == hitResult;
        if (in->iridflg == event::plain)
            addPassStamps(line, *in, pass);
        else if (hit)
            hit = addEvent(line, pass);
        if (hit)
            writeLine(line);
        const double next = timeAfterPass(*in, in->prs, pass);
        if (!(next > t))  // a time too far off for steps of a minute
            return;
        t = next;
    }
}

/// False if the automatic width drops the event.
bool Scan::addEvent(TextWriter& line, const Pass& pass)
{
    addEventStamp(line, *in, pass);
    if (in->iridflg == event::iridium)
        addIridiumFlare(line, *in, pass);
    else
        addDistantEvent(line, *in, pass);
    if (!transitsOfDisk(*in))
        return true;
    int result = hitResult;
    char width[transitTextRoom] = {};  // not part of these lines
    SunMoonTr(in, pass.tm[1], in->prs, pass.b[2], automatic, result, width);
    return result == hitResult;
}

void Scan::writeLine(TextWriter& line)
{
    const bool doubtful = in->iridflg == event::iridium && !operationalOrbit(*in, in->prs);
    line.add(doubtful ? " ? " : "   ").add(fieldText(in->fsname[in->prs])).add("\n");
    if (firstLine)
        std::fputs("\n", outptr);
    firstLine = false;
    write(line);
    if (hitsJoinSelection)
        joinSelection();
}

/// With nothing selected before, the satellite takes the parked place and so becomes the prime one.
void Scan::joinSelection()
{
    if (nothingSelected) {
        ShiftElm(in, parkedSlot, in->prs);
        nothingSelected = false;
    } else if (in->satn < maxSatellites) {
        ShiftElm(in, in->satn, in->prs);
        ++in->satn;
    }
}

void scanFile(WinpData* in, std::FILE* elements, double distanceBefore)
{
    const Keep absolute(in->rlm, 0);
    const Keep keptSunLimit(in->sunel);
    if (in->iridflg == event::transit && in->occflg == 1)
        in->sunel = anySunElevationDeg;
    writeHeading(*in);
    Scan scan(in, distanceBefore);
    for (Entries entries(in, elements); entries.next();)
        scan.satellite();
}

constexpr const char* sortFileName = "vorlix.tmp";
constexpr std::size_t shortestLine = 2;  // line feeds not counted
constexpr std::size_t linesPerGroup = 5;
constexpr char noMonth = 'X';

struct PassLine
{
    std::array<char, 18> key{};
    std::string text;
};

struct SaveFileLines
{
    std::vector<std::string> headings;
    std::vector<PassLine> passes;
};

SaveFileLines readLines(std::FILE* file)
{
    SaveFileLines lines;
    for (std::string text; nextSaveLine(file, text);) {
        if (text.size() < shortestLine)
            continue;
        if (isHeading(text)) {
            lines.headings.push_back(text);
        } else if (text.size() >= passStampLength) {
            PassLine line;
            CpMMM(line.key.data(), text.c_str());
            line.text = text;
            lines.passes.push_back(line);
        }
    }
    return lines;
}

/// By month, day and time; lines of no month stay in their order, behind all others.
bool earlier(const PassLine& one, const PassLine& other)
{
    if (one.key[0] != other.key[0] || one.key[0] == noMonth)
        return one.key[0] < other.key[0];
    return std::memcmp(one.key.data(), other.key.data(), one.key.size()) < 0;
}

void writeSorted(std::FILE* file, const SaveFileLines& lines)
{
    const auto put = [file](const std::string& text) {
        std::fwrite(text.data(), 1, text.size(), file);
        std::fputc('\n', file);
    };
    for (const std::string& heading : lines.headings)
        put(heading);
    for (std::size_t i = 0; i < lines.passes.size(); ++i) {
        if (i % linesPerGroup == 0)
            put("");
        put(lines.passes[i].text);
    }
}

/// The sorted copy; deleted at the end of the scope.
class SortFile
{
public:
    SortFile() : file(std::fopen(sortFileName, "w+")) {}
    ~SortFile()
    {
        if (file)
            std::remove(sortFileName);
    }
    SortFile(const SortFile&) = delete;
    SortFile& operator=(const SortFile&) = delete;

    std::FILE* get() const { return file.get(); }

    /// Whether everything written so far is on the disk.
    bool complete() const { return std::fflush(file.get()) == 0 && !std::ferror(file.get()); }

    void copyTo(std::FILE* target) const
    {
        std::rewind(file.get());
        char block[4096];
        for (std::size_t n; (n = std::fread(block, 1, sizeof block, file.get())) > 0;)
            std::fwrite(block, 1, n, target);
    }

private:
    FilePtr file;
};

}  // namespace

bool operationalOrbit(const WinpData& in, int isat)
{
    const Band band = in.aflg[isat] ? operationalMeanKm : operationalOsculatingKm;
    return in.a[isat] >= band.lowKm && in.a[isat] <= band.highKm;
}

int AllSatAos(WinpData* in)
{
    // The file is started anew only once there is something to write: a refused search must not cost the old list.
    if (!FilePtr(std::fopen(in->savename, "a")))
        return 1;
    const char* mode = takeSaveMode(in);
    const FilePtr elements = openElementFile(in->tlename);
    if (!elements)
        return 2;
    const Keep keptDistance(in->maxdst);
    if (automaticWidth(*in))
        in->maxdst = automaticWidthKm;
    if (refused(*in))
        return -1;
    {
        const ReportFile file(in->savename, mode);
        if (!file)
            return 1;
        scanFile(in, elements.get(), keptDistance.before);
    }
    SortAos(in);
    return 0;
}

void SortAos(WinpData* in)
{
    SaveFileLines lines;
    {
        const ReportFile file(in->savename, "r");
        if (!file)
            return;
        lines = readLines(outptr);
    }
    if (lines.passes.size() < 2)
        return;
    std::error_code missing;
    if (std::filesystem::equivalent(in->savename, sortFileName, missing))
        return;  // the list itself would be overwritten
    std::stable_sort(lines.passes.begin(), lines.passes.end(), earlier);
    const SortFile sorted;
    if (!sorted.get())
        return;
    writeSorted(sorted.get(), lines);
    if (!sorted.complete())
        return;
    const ReportFile file(in->savename, "w");
    if (file)
        sorted.copyTo(outptr);
}
