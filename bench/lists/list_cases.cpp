#include "bench/lists/list_cases.h"

#include "record_fields.h"

#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/files.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "scan/all_satellites.h"
#include "scan/entries.h"
#include "scan/iridium_scan.h"
#include "scan/matching.h"
#include "scan/next_satellites.h"

#include <QCryptographicHash>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>

namespace {
constexpr double startDay = 58138.0;  // 2018-01-20
constexpr double fullSpanDays = 3.1;
constexpr double numericSpanDays = 0.4;
constexpr const char* elementsName = "elements.txt";
constexpr const char* saveName = "list.txt";

bool isMixed(const ListCase& c)
{
    return c.elements == "mixed.txt";
}

std::vector<ListCase> readCases()
{
    std::map<std::string, std::string> settings;
    std::vector<std::pair<std::string, std::string>> sites;
    std::vector<ListCase> cases;
    std::ifstream file(BENCH_LISTS "/cases.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string row, name;
        words >> row >> name;
        if (row == "site") {
            sites.emplace_back(name, line.substr(line.find(name) + name.size()));
        } else if (row == "settings") {
            settings[name] = line.substr(line.find(name) + name.size());
        } else if (row == "case") {
            ListCase c;
            c.kind = name;
            words >> c.elements;
            for (std::string chosen; words >> chosen;)
                for (const auto& [site, place] : sites) {
                    c.what = c.kind + (isMixed(c) ? "-mixed-" : "-") + chosen + "-" + site;
                    c.site = site;
                    c.fields = place + settings.at(chosen);
                    cases.push_back(c);
                }
        }
    }
    return cases;
}

/// Every `stride`-th entry; of files of three lines for each.
void thinElements(const ListCase& c, int stride)
{
    constexpr int linesOfEntry = 3;
    std::ifstream from(TEST_DATA + std::string(isMixed(c) ? "/scan/" : "/elements/") + c.elements);
    std::ofstream to(elementsName);
    const int keepOneOf = isMixed(c) ? 1 : stride;
    int number = 0;
    for (std::string line; std::getline(from, line); ++number)
        if (number / linesOfEntry % keepOneOf == 0)
            to << line << '\n';
}

std::unique_ptr<WinpData> recordOf(const ListCase& c, double span)
{
    auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    setFields(*in, "year=2018 month=1 day=20 tzone=1");
    in->mjd = startDay;
    in->dur = span;
    assignField(in->geoname, c.site);
    assignField(in->tlename, elementsName);
    assignField(in->savename, saveName);
    setFields(*in, c.fields);
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
        text.add(layoutOf(out, line) == LineLayout::table ? "~\n" : "\n");
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

void runScan(Text& text, WinpData& in, bool withTable)
{
    text.row("result", AllSatAos(&in));
    if (withTable) {
        const auto out = std::make_unique<WoutData>();
        Iriddspy(&in, out.get());
        addReport(text, *out);
    }
    addFile(text, saveName);
    addSelection(text, in);
    addPlace(text, *satpos, in.prs);
}

void runMatch(Text& text, WinpData& in)
{
    const auto out = std::make_unique<WoutData>();
    setFields(in, "rdf=0 az=200 el=40 mxa=15 tm=10");
    text.row("result", SatMatch(&in, out.get()));
    addReport(text, *out);
    addSelection(text, in);
}

void runNext(Text& text, WinpData& in)
{
    for (const double hours : {0.0, 5.5, 18.25, 40.0}) {
        text.row("found", nextSatellites(&in, startDay + hours / 24.0));
        addSelection(text, in);
    }
}
}  // namespace

const std::vector<ListCase>& listCases()
{
    static const std::vector<ListCase> cases = readCases();
    return cases;
}

std::string runListCase(const ListCase& c, int stride, double fixedSpan)
{
    thinElements(c, stride);
    const double span = fixedSpan > 0 ? fixedSpan : isMixed(c) ? numericSpanDays : fullSpanDays;
    const auto in = recordOf(c, span);
    *satpos = SatPosData{};
    Text text;
    if (c.kind == "scan" || c.kind == "flares")
        runScan(text, *in, c.kind == "flares");
    else if (c.kind == "aoslists")
        addAosLists(text, *in);
    else if (c.kind == "searches")
        forEachEntry(*in, text, [&] { addSearches(text, *in); });
    else if (c.kind == "next")
        runNext(text, *in);
    else if (c.kind == "match")
        runMatch(text, *in);
    std::remove(elementsName);
    return text.all;
}

std::string digestOf(const std::string& text)
{
    const QByteArray bytes = QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size()));
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}
