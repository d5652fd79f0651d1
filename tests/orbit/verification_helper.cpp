#include "verification_helper.h"

#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "astro/angles.h"

namespace {

/// The number in columns `from` (counted from 1) to `to`, blanks around it.
double column(const std::string& line, std::size_t from, std::size_t to)
{
    const std::string text = line.substr(from - 1, to - from + 1);
    std::istringstream in(text);
    in.imbue(std::locale::classic());
    double x = 0;
    in >> x;
    return x;
}

/// Days from 1950 January 0.0, by way of the Julian Date.
double epochOf(const std::string& line1)
{
    const int yy = static_cast<int>(column(line1, 19, 20));
    const int year = yy < 57 ? 2000 + yy : 1900 + yy;
    const int days = 365 * (year - 1950) + (year - 1949) / 4;
    const double jd = 2433281.5 + days + column(line1, 21, 32);
    return jd - 2433281.5;
}

double digitsAfterPoint(std::string digits)
{
    for (char& c : digits)
        if (c == ' ')
            c = '0';
    return column("0." + digits, 1, digits.size() + 2);
}

VerificationElements elementsOf(const std::string& line1, const std::string& line2)
{
    const double bstar = digitsAfterPoint(line1.substr(54, 5)) * std::pow(10.0, column(line1, 60, 61));
    VerificationElements set{.norad = static_cast<int>(column(line2, 3, 7)),
                             .epoch = epochOf(line1),
                             .bstar = line1[53] == '-' ? -bstar : bstar,
                             .ecco = digitsAfterPoint(line2.substr(26, 7)),
                             .argpo = column(line2, 35, 42) * radPerDeg,
                             .inclo = column(line2, 9, 16) * radPerDeg,
                             .mo = column(line2, 44, 51) * radPerDeg,
                             .no = column(line2, 53, 63) * twoPi / 1440.0,
                             .nodeo = column(line2, 18, 25) * radPerDeg,
                             .start = 0,
                             .stop = 0,
                             .step = 0};
    std::istringstream span(line2.substr(69));
    if (!(span >> set.start >> set.stop >> set.step))
        throw std::runtime_error("no span in " + line2);
    return set;
}

std::ifstream openFigures(const std::string& file)
{
    std::ifstream in(std::string(TEST_DATA "/sgp4/") + file);
    if (!in)
        throw std::runtime_error("cannot read " + file);
    return in;
}

/// The sets of a file; `span` follows the second lines where the file gives none.
std::vector<VerificationElements> setsOf(const std::string& file, const std::string& span)
{
    std::ifstream in = openFigures(file);
    std::vector<VerificationElements> sets;
    std::string line1;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("1 "))
            line1 = line;
        if (line.starts_with("2 "))
            sets.push_back(elementsOf(line1, line + span));
    }
    return sets;
}

}  // namespace

std::vector<VerificationElements> verificationElements()
{
    return setsOf("verification.tle", "");
}

std::vector<VerificationElements> catalogueElements()
{
    return setsOf("../elements/catalogue_2018.txt", " 0 1440 1");
}

std::vector<VerificationStates> verificationStates(const std::string& file)
{
    std::ifstream in = openFigures(file);
    std::vector<VerificationStates> blocks;
    for (std::string line; std::getline(in, line);) {
        std::istringstream text(line);
        VerificationState s{};
        if (line[0] == '#')
            continue;
        if (line.find("xx") != std::string::npos)
            blocks.push_back({static_cast<int>(column(line, 1, line.size())), {}});
        else if (text >> s.t >> s.r[0] >> s.r[1] >> s.r[2] >> s.v[0] >> s.v[1] >> s.v[2])
            blocks.back().rows.push_back(s);
    }
    return blocks;
}

VerificationElements verificationSet(int norad)
{
    for (const VerificationElements& set : verificationElements())
        if (set.norad == norad)
            return set;
    throw std::runtime_error("no set " + std::to_string(norad));
}

int initVerification(const VerificationElements& set, elsetrec& sat)
{
    return sgp4init(wgs72, true, set.epoch, set.bstar, set.ecco, set.argpo, set.inclo, set.mo, set.no, set.nodeo,
                    sat);
}
