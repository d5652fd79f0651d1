#include "verification_helper.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "astro/angles.h"

namespace {

/// The number in columns `from` (counted from 1) to `to`, of which the text before it may be a part.
double column(const std::string& line, std::size_t from, std::size_t to, const std::string& before = "")
{
    return std::stod(before + line.substr(from - 1, to - from + 1));
}

/// Days from 1950 January 0.0, by way of the Julian Date.
double epochOf(const std::string& line1)
{
    const int yy = std::stoi(line1.substr(18, 2));
    const int year = yy < 57 ? 2000 + yy : 1900 + yy;
    const int days = 365 * (year - 1950) + (year - 1949) / 4;
    const double jd = 2433281.5 + days + column(line1, 21, 32);
    return jd - 2433281.5;
}

VerificationElements elementsOf(const std::string& line1, const std::string& line2)
{
    std::string eccentricity = line2.substr(26, 7);
    std::replace(eccentricity.begin(), eccentricity.end(), ' ', '0');
    const std::string sign = line1.substr(53, 1);
    VerificationElements set{.norad = std::stoi(line2.substr(2, 5)),
                             .epoch = epochOf(line1),
                             .bstar = column(line1, 55, 59, sign + ".") * std::pow(10.0, column(line1, 60, 61)),
                             .ecco = std::stod("." + eccentricity),
                             .argpo = column(line2, 35, 42) * radPerDeg,
                             .inclo = column(line2, 9, 16) * radPerDeg,
                             .mo = column(line2, 44, 51) * radPerDeg,
                             .no = column(line2, 53, 63) * twoPi / 1440.0,
                             .nodeo = column(line2, 18, 25) * radPerDeg};
    if (line2.size() > 69)
        std::istringstream(line2.substr(69)) >> set.start >> set.stop >> set.step;
    return set;
}

std::vector<VerificationElements> setsOf(const std::string& file)
{
    std::ifstream in(TEST_DATA "/" + file);
    std::vector<VerificationElements> sets;
    std::string line1;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("1 "))
            line1 = line;
        if (line.starts_with("2 "))
            sets.push_back(elementsOf(line1, line));
    }
    return sets;
}

}  // namespace

std::vector<VerificationElements> verificationElements()
{
    return setsOf("sgp4/verification.tle");
}

std::vector<VerificationElements> catalogueElements()
{
    return setsOf("elements/catalogue_2018.txt");
}

VerificationElements setOf(const std::vector<VerificationElements>& sets, int norad)
{
    return *std::find_if(sets.begin(), sets.end(), [=](const auto& set) { return set.norad == norad; });
}

std::vector<VerificationStates> verificationStates(const std::string& file)
{
    std::ifstream in(TEST_DATA "/sgp4/" + file);
    std::vector<VerificationStates> blocks;
    for (std::string line; std::getline(in, line);) {
        std::istringstream text(line);
        VerificationState s{};
        if (line[0] == '#')
            continue;
        if (line.find("xx") != std::string::npos)
            blocks.push_back({std::stoi(line), {}});
        else if (text >> s.t >> s.r[0] >> s.r[1] >> s.r[2] >> s.v[0] >> s.v[1] >> s.v[2])
            blocks.back().rows.push_back(s);
    }
    return blocks;
}

int initVerification(const VerificationElements& set, elsetrec& sat)
{
    return sgp4init(wgs72, true, set.epoch, set.bstar, set.ecco, set.argpo, set.inclo, set.mo, set.no, set.nodeo,
                    sat);
}

elsetrec loadedSet(int norad)
{
    elsetrec sat;
    initVerification(setOf(verificationElements(), norad), sat);
    return sat;
}

void putSet(WinpData* in, const VerificationElements& set)
{
    in->sdp4 = true;
    in->sgpsat = noSlot;
    in->mjdep[0] = set.epoch + 33281.0;
    in->bstar[0] = set.bstar;
    in->ecc[0] = set.ecco;
    in->aper[0] = set.argpo * degPerRad;
    in->inc[0] = set.inclo * degPerRad;
    in->m0[0] = set.mo * degPerRad;
    in->ra[0] = set.nodeo * degPerRad;
    in->n0[0] = set.no * 1440.0 / twoPi;
}
