#include "engine/scan/list_cases_helper.h"

#include <QCryptographicHash>

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

#include "app/record/files.h"
#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "app/record/wout_data.h"
#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "engine/scan/all_satellites.h"
#include "engine/scan/entries.h"
#include "engine/scan/iridium_scan.h"
#include "engine/scan/matching.h"
#include "engine/scan/next_satellites.h"

namespace {

constexpr double startDay = 58138.0;  // 2018-01-20
constexpr double fullSpanDays = 3.1;
constexpr double numericSpanDays = 0.4;
constexpr const char* elementsName = "elements.txt";
constexpr const char* saveName = "list.txt";

struct ListSite
{
    const char* name;
    double lat, lng, height;
};

constexpr std::array sites{
    ListSite{"vienna", 48.2, 16.37, 180.0},
    ListSite{"capetown", -33.93, 18.48, 15.0},
    ListSite{"svalbard", 78.23, 15.41, 465.0},
};

void allPasses(WinpData& in)
{
    in.visflg = 0;
    in.sunel = 91.0;
}

void moonshine(WinpData& in)
{
    in.moonflg = 1;
}

void sunTransits(WinpData& in)
{
    allPasses(in);
    in.occflg = 1;
    in.iridflg = event::transit;
    in.maxdst = 0.0;
}

void moonTransits(WinpData& in)
{
    allPasses(in);
    in.occflg = 2;
    in.iridflg = event::transit;
    in.maxdst = 150.0;
}

void occultations(WinpData& in)
{
    allPasses(in);
    in.occflg = 3;
    in.iridflg = event::transit;
    in.occra = 5.1430;
    in.occdec = -8.12;
    in.maxdst = 400.0;
}

void knownSurface(WinpData& in)
{
    in.flarflg = 1;
    in.flarmod = 1;
    in.iridflg = event::flare;
    in.occra = 30.0;
    in.occdec = -40.0;
    in.maxdst = 800.0;
}

void inertialSurface(WinpData& in)
{
    knownSurface(in);
    in.flarmod = 2;
    in.occra = 12.3;
    in.occdec = 20.3;
}

void iridiumFlares(WinpData& in)
{
    in.iridflg = event::iridium;
    in.flarflg = 1;
    in.flarmod = 1;
    in.occra = 0.0;
    in.occdec = -40.0;
    in.sunel = 91.0;
    in.visflg = 0;
    in.irmag = 5.0;
    in.ops = 0;
    in.irsol = true;
}

void iridiumMoonshine(WinpData& in)
{
    iridiumFlares(in);
    in.moonflg = 1;
    in.chlen = 1.0;
    in.irmag = 12.0;
    in.irsol = false;
}

void relative(WinpData& in)
{
    in.rlm = 1;
}

void relativeAll(WinpData& in)
{
    allPasses(in);
    in.rlm = 1;
}

void brightness(WinpData& in)
{
    in.chlen = 2.5;
    in.eclflg = true;
    in.moonflg = 1;
    in.visflg = 0;
    in.yrepoch = 0.0;
}

void iersValues(WinpData& in)
{
    in.IERSflg = true;
    in.Ut1Utc = 0.216;
    in.UtcTai = -37;
    in.IERSxp = 0.06;
    in.IERSyp = 0.25;
}

void passJumps(WinpData& in)
{
    allPasses(in);
    in.pasjmp = 1;
}

void belowHorizon(WinpData& in)
{
    in.satel = -3.0;
}

void unknownSurface(WinpData& in)
{
    allPasses(in);
    in.flarflg = 1;
    in.flarmod = -1;
}

struct ListSettings
{
    const char* name;
    void (*apply)(WinpData& in);
};

enum SettingsIndex
{
    setVisible,
    setAll,
    setMoonshine,
    setSunTransits,
    setMoonTransits,
    setOccultations,
    setSurface,
    setInertial,
    setIridium,
    setIridiumMoonshine,
    setRelative,
    setRelativeAll,
    setBrightness,
    setIers,
    setPassJumps,
    setBelowHorizon,
    setUnknownSurface
};

constexpr std::array allSettings{
    ListSettings{"visible", [](WinpData&) {}},
    ListSettings{"all", allPasses},
    ListSettings{"moonshine", moonshine},
    ListSettings{"suntransits", sunTransits},
    ListSettings{"moontransits", moonTransits},
    ListSettings{"occultations", occultations},
    ListSettings{"surface", knownSurface},
    ListSettings{"inertial", inertialSurface},
    ListSettings{"iridium", iridiumFlares},
    ListSettings{"iridiummoon", iridiumMoonshine},
    ListSettings{"relative", relative},
    ListSettings{"relativeall", relativeAll},
    ListSettings{"brightness", brightness},
    ListSettings{"iers", iersValues},
    ListSettings{"passjumps", passJumps},
    ListSettings{"belowhorizon", belowHorizon},
    ListSettings{"unknownsurface", unknownSurface},
};

constexpr const char* catalogue = "catalogue_2018.txt";
constexpr const char* iridiumFile = "iridium_2018.txt";
constexpr const char* mixedFile = "mixed.txt";

constexpr std::array kindNames{"scan", "flares", "aoslists", "searches", "next", "match"};

void addCases(std::vector<ListCase>& cases, ListKind kind, const char* elements, std::initializer_list<int> settings)
{
    for (const int s : settings)
        for (int site = 0; site < static_cast<int>(sites.size()); ++site) {
            std::string what = kindNames[static_cast<std::size_t>(kind)];
            what += elements == mixedFile ? "-mixed-" : "-";
            what += allSettings[static_cast<std::size_t>(s)].name;
            cases.push_back({what + "-" + sites[static_cast<std::size_t>(site)].name, kind, elements, s, site});
        }
}

std::vector<ListCase> makeCases()
{
    std::vector<ListCase> cases;
    addCases(cases, ListKind::scan, catalogue,
             {setVisible, setAll, setMoonshine, setSunTransits, setMoonTransits, setOccultations, setSurface,
              setInertial});
    addCases(cases, ListKind::flares, iridiumFile, {setIridium, setIridiumMoonshine});
    addCases(
        cases, ListKind::aosLists, catalogue,
        {setVisible, setAll, setMoonshine, setSunTransits, setMoonTransits, setSurface, setRelative, setRelativeAll});
    addCases(cases, ListKind::searches, catalogue,
             {setVisible, setAll, setMoonshine, setMoonTransits, setSurface, setIridium, setRelative, setBrightness,
              setIers, setPassJumps, setBelowHorizon, setUnknownSurface});
    addCases(cases, ListKind::next, catalogue, {setVisible, setAll});
    addCases(cases, ListKind::match, catalogue, {setVisible, setAll});
    addCases(cases, ListKind::scan, mixedFile, {setVisible, setAll, setMoonTransits});
    addCases(cases, ListKind::searches, mixedFile, {setAll, setBrightness});
    return cases;
}

std::string pathOf(const ListCase& c)
{
    const char* folder = c.elements == mixedFile ? TEST_DATA "/scan/" : TEST_DATA "/elements/";
    return folder + c.elements;
}

/// Every `stride`-th entry; of files of three lines for each.
void thinElements(const ListCase& c, int stride)
{
    constexpr int linesOfEntry = 3;
    std::ifstream from(pathOf(c));
    std::ofstream to(elementsName);
    const int keepOneOf = c.elements == mixedFile ? 1 : stride;
    int number = 0;
    for (std::string line; std::getline(from, line); ++number)
        if (number / linesOfEntry % keepOneOf == 0)
            to << line << '\n';
}

std::unique_ptr<WinpData> recordOf(const ListCase& c, double span)
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    const ListSite& site = sites[static_cast<std::size_t>(c.site)];
    in->lat = site.lat;
    in->lng = site.lng;
    in->height = site.height;
    in->year = 2018;
    in->month = 1;
    in->day = 20;
    in->mjd = startDay;
    in->tzone = 1.0;
    in->dur = span;
    assignField(in->geoname, site.name);
    assignField(in->tlename, elementsName);
    assignField(in->savename, saveName);
    allSettings[static_cast<std::size_t>(c.settings)].apply(*in);
    return in;
}

class Text
{
public:
    void add(std::string_view piece) { all += piece; }
    void add(double x)
    {
        char number[32];
        std::snprintf(number, sizeof number, " %a", x);
        all += number;
    }
    template <class... Numbers>
    void row(const char* name, Numbers... x)
    {
        all += name;
        (add(static_cast<double>(x)), ...);
        all += '\n';
    }
    std::string all;
};

void addFile(Text& text, const char* name)
{
    std::ostringstream content;
    content << std::ifstream(name).rdbuf();
    text.add(content.str());
    std::remove(name);
}

void addReport(Text& text, const WoutData& out)
{
    for (int line = 0; line < out.nlines; ++line) {
        text.add(lineText(out, line));
        text.add(isTableLine(out, line) ? "~\n" : "\n");
    }
}

void addState(Text& text, const WinpData& in, int k)
{
    text.row("current", in.cstm[k], in.csr0[k], in.csr1[k], in.csr2[k], in.csv0[k], in.csv1[k], in.csv2[k]);
}

void addPlace(Text& text, const SatPosData& sp, int k)
{
    text.row("place", sp.lat[k], sp.lng[k], sp.hgt[k], sp.ra[k], sp.dec[k], sp.az[k], sp.el[k], sp.dst[k],
             sp.rrate[k]);
    text.row("state", sp.rsat[0], sp.rsat[1], sp.rsat[2], sp.vsat[0], sp.vsat[1], sp.vsat[2], sp.osunel, sp.sslng);
}

void addPositions(Text& text, const SatPosData& sp, int k)
{
    addPlace(text, sp, k);
    text.row("light", sp.sunel[k], sp.moonel[k], sp.occlat[k], sp.occlng[k], sp.beta[k], sp.sunaz[k]);
    text.row("scene", sp.osunel, sp.osunaz, sp.omoonel, sp.omoonaz, sp.moonrad, sp.moonph, sp.sslat, sp.sslng,
             sp.sunel1, sp.sunel2, sp.mag, sp.nvis);
}

/// What is left in the records by a scan.
void addSelection(Text& text, const WinpData& in)
{
    for (int k = 0; k < in.satn; ++k) {
        text.add(fieldText(in.fsname[k]));
        text.row("", in.mjdep[k], in.a[k], in.n0[k], in.epr0[k], in.epv2[k]);
        addState(text, in, k);
    }
    text.add(fieldText(in.cfgname[workSlot]));
    text.add(fieldText(in.fsname[workSlot]));
    text.row(" record", in.satn, in.prs, in.rlm, in.newsave, in.sunel, in.maxdst, in.sgpsat, in.occra, in.occdec,
             in.irsolp, in.flrang, in.moondst, in.norad[workSlot], in.mjdep[workSlot], in.lat, in.lng, in.height,
             in.ecltyp, in.smang, in.eclmag, in.eclpow);
    addState(text, in, workSlot);
}

void addSearch(Text& text, const WinpData& in, int result, const Pass& p)
{
    text.row("pass", result, p.tm[0], p.tm[1], p.tm[2], p.a[0], p.a[1], p.a[2], p.b[0], p.b[1], p.b[2]);
    if (result == 0)
        text.add("none\n");
    for (int k = 0; k < in.satn; ++k) {
        addPositions(text, *satpos, k);
        addState(text, in, k);
    }
    text.row("record", in.sgpsat, in.occra, in.occdec, in.flrang, in.moondst, in.ecltyp, in.smang, in.eclmag,
             in.eclpow, in.lat, in.lng, in.height);
}

/// Three passes forward, and two backward from the end.
void addSearches(Text& text, WinpData& in)
{
    const double end = startDay + in.dur;
    double t = startDay;
    for (int count = 0; count < 3 && t <= end; ++count) {
        Pass pass;
        const int result = nextpass(&in, 0, t, end, pass.tm, pass.a, pass.b);
        addSearch(text, in, result, pass);
        if (result == 0)
            break;
        t = timeAfterPass(in, 0, pass);
    }
    t = end;
    for (int count = 0; count < 2 && t >= startDay; ++count) {
        Pass pass;
        const int result = lastpass(&in, 0, t, startDay, pass.tm, pass.a, pass.b);
        addSearch(text, in, result, pass);
        if (result == 0)
            break;
        t = pass.tm[2] - oneMinuteDays;
    }
}

/// Each entry in turn becomes the prime satellite; in relative mode the one before it is the second.
template <class Do>
void forEachEntry(WinpData& in, Text& text, Do&& perform)
{
    const FilePtr file = openForReading(in.tlename);
    if (!file)
        return;
    for (Entries entries(&in, file.get()); entries.next();) {
        const bool second = in.rlm != 0 && in.satn > 0;
        if (second)
            ShiftElm(&in, 1, 0);
        ShiftElm(&in, 0, workSlot);
        in.satn = second ? 2 : 1;
        text.add(fieldText(in.fsname[0]));
        text.add("\n");
        perform();
    }
}

void addAosLists(Text& text, WinpData& in)
{
    const auto out = std::make_unique<WoutData>();
    forEachEntry(in, text, [&] {
        aospass(&in, out.get());
        addReport(text, *out);
        for (int k = 0; k < in.naos; ++k)
            text.add(in.aostm[k]);
        text.row(" naos", in.naos);
    });
}

}  // namespace

const std::vector<ListCase>& listCases()
{
    static const std::vector<ListCase> cases = makeCases();
    return cases;
}

std::string runListCase(const ListCase& c, int stride, double fixedSpan)
{
    thinElements(c, stride);
    const double span = fixedSpan > 0 ? fixedSpan : c.elements == mixedFile ? numericSpanDays : fullSpanDays;
    const auto in = recordOf(c, span);
    const auto out = std::make_unique<WoutData>();
    *satpos = SatPosData{};
    Text text;
    switch (c.kind) {
    case ListKind::scan:
    case ListKind::flares:
        text.row("result", AllSatAos(in.get()));
        if (c.kind == ListKind::flares) {
            Iriddspy(in.get(), out.get());
            addReport(text, *out);
        }
        addFile(text, saveName);
        addSelection(text, *in);
        addPlace(text, *satpos, in->prs);
        break;
    case ListKind::aosLists:
        addAosLists(text, *in);
        break;
    case ListKind::searches:
        forEachEntry(*in, text, [&] { addSearches(text, *in); });
        break;
    case ListKind::next:
        for (const double hours : {0.0, 5.5, 18.25, 40.0}) {
            text.row("found", nextSatellites(in.get(), startDay + hours / 24.0));
            addSelection(text, *in);
        }
        break;
    case ListKind::match:
        in->rdf = 0;
        in->az = 200.0;
        in->el = 40.0;
        in->mxa = 15.0;
        in->tm = 10.0;
        text.row("result", SatMatch(in.get(), out.get()));
        addReport(text, *out);
        addSelection(text, *in);
        break;
    }
    std::remove(elementsName);
    return text.all;
}

std::string digestOf(const std::string& text)
{
    const QByteArray bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}
