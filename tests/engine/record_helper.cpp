#include "engine/record_helper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <sstream>

#include "astro/angles.h"
#include "engine/flares.h"
#include "engine/position.h"
#include "orbit/mean_motion.h"

namespace {

double number(const std::string& line, std::size_t column, std::size_t width)
{
    return std::stod(line.substr(column - 1, width));
}

/// A field such as " 38550-4": decimal point in front, power of ten behind.
double powerField(const std::string& line, std::size_t column)
{
    const std::string sign = line.substr(column - 1, 1) == "-" ? "-" : "";
    return std::stod(sign + "0." + line.substr(column, 5) + "e" + line.substr(column + 5, 2));
}

/// Modified Julian Date of the year and the day of the year in a two-digit year of this century or the last.
double epochOf(const std::string& line)
{
    const int yy = static_cast<int>(number(line, 19, 2));
    const int before = (yy < 57 ? 2000 : 1900) + yy - 1;
    const int newYear = 365 * before + before / 4 - before / 100 + before / 400 - 678576;
    return newYear + number(line, 21, 12);
}

void fill(WinpData& in, int k, const std::string& one, const std::string& two)
{
    in.aflg[k] = 1;
    in.norad[k] = static_cast<int>(number(one, 3, 5));
    in.mjdep[k] = epochOf(one);
    in.ndot[k] = number(one, 34, 10);
    in.n6dot[k] = powerField(one, 45);
    in.bstar[k] = powerField(one, 54);
    in.inc[k] = number(two, 9, 8);
    in.ra[k] = number(two, 18, 8);
    in.ecc[k] = std::stod("0." + two.substr(26, 7));
    in.aper[k] = number(two, 35, 8);
    in.m0[k] = number(two, 44, 8);
    in.n0[k] = number(two, 53, 11);
    in.a[k] = getsax(1, in.n0[k], in.ecc[k], in.inc[k]);
}

void loadElements(WinpData& in, int slot, const char* file, int norad)
{
    std::ifstream elements(std::string(TEST_DATA "/elements/") + file);
    std::string one;
    std::string two;
    while (std::getline(elements, one))
        if (one.rfind("1 ", 0) == 0 && number(one, 3, 5) == norad && std::getline(elements, two))
            return fill(in, slot, one, two);
    ADD_FAILURE() << file << " has no " << norad;
}

/// The words are: list, name, latitude, longitude, height, number, least elevation, highest Sun, lit.
WinpData recordOf(const Section& section)
{
    const std::vector<std::string>& head = section.head;
    WinpData in = recordWith({std::stoi(head[5])}, section.siteAt(2));
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.dur = 3.1;
    in.satel = std::stod(head[6]);
    in.sunel = std::stod(head[7]);
    in.visflg = std::stoi(head[8]);
    return in;
}

Pass passOf(const std::vector<std::string>& row)
{
    Pass pass;
    for (std::size_t k = 0; k < 3; ++k) {
        pass.tm[k] = std::stod(row[3 * k]);
        pass.b[k] = std::stod(row[3 * k + 1]);
        pass.a[k] = std::stod(row[3 * k + 2]);
    }
    return pass;
}

}  // namespace

WinpData recordAt(const Site& site)
{
    WinpData in;
    setDefaults(&in);
    in.lat = site.lat;
    in.lng = site.lng;
    in.height = site.height;
    in.yrepoch = 0;
    in.refrc = false;
    in.atmx = false;
    in.sgpsat = noSlot;
    return in;
}

WinpData recordWith(std::initializer_list<int> norads, const Site& site, const char* file)
{
    WinpData in = recordAt(site);
    for (const int norad : norads)
        loadElements(in, in.satn++, file, norad);
    return in;
}

SatPosData positionAt(double t, WinpData& in, int slot, int vis)
{
    SatPosData sp;
    in.sgpsat = noSlot;  // copies of a record share the one analytic state
    GetSatPos(t, &in, &sp, slot, vis);
    return sp;
}

Vec3 direction(double around, double up)
{
    return polcar(Vec3(1, around * radPerDeg, up * radPerDeg));
}

double angleBetween(const Vec3& a, const Vec3& b)
{
    return std::atan2(abs(a * b), dot(a, b)) * degPerRad;
}

Site Section::siteAt(std::size_t word) const
{
    return {std::stod(head[word]), std::stod(head[word + 1]), std::stod(head[word + 2])};
}

std::vector<Section> sectionsOf(const char* file)
{
    std::vector<Section> sections;
    std::ifstream lines(std::string(TEST_DATA "/passes/") + file);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream stream(line);
        const std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
        if (words[0] == "site" || words[0] == "list")
            sections.push_back({words, {}});
        else if (words[0] != "#")
            sections.back().rows.push_back(words);
    }
    EXPECT_FALSE(sections.empty()) << file;
    return sections;
}

std::vector<ReferenceList> referenceLists()
{
    std::vector<ReferenceList> lists;
    for (const Section& section : sectionsOf("passes_2018.txt")) {
        lists.push_back({section.head[1] + ' ' + section.head[5] + " lit " + section.head[8], recordOf(section), {}});
        for (const std::vector<std::string>& row : section.rows)
            lists.back().passes.push_back(passOf(row));
    }
    return lists;
}

ReferenceList stationOverVienna()
{
    return referenceLists()[1];
}

int EventSearch::in(WinpData& record, int flag)
{
    return GetIrid(&record, 0, flag, tm, a, b);
}
