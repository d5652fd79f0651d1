#include "engine/record_helper.h"

#include <cmath>
#include <fstream>
#include <string>

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
    const int year = yy < 57 ? 2000 + yy : 1900 + yy;
    const int before = year - 1;
    const int days = 365 * before + before / 4 - before / 100 + before / 400;
    return days - 678576 + number(line, 21, 12);
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
    in.sgpsat = noSlot;
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
    in.sgpsat = noSlot;
    return in;
}

bool loadElements(WinpData& in, int slot, const char* file, int norad)
{
    std::ifstream elements(std::string(TEST_DATA "/elements/") + file);
    std::string one;
    std::string two;
    while (std::getline(elements, one)) {
        if (one.rfind("1 ", 0) != 0 || one.size() < 69 || static_cast<int>(number(one, 3, 5)) != norad)
            continue;
        if (!std::getline(elements, two) || two.size() < 63)
            return false;
        fill(in, slot, one, two);
        return true;
    }
    return false;
}
