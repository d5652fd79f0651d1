// The yardstick for the pass search: its steps and nothing else, as a whole process.
//
//   plain_loop [FILE] [DAYS]
//
// Every entry of an element file, all passes above 10 degrees from 2018-01-20 on as seen from Vienna, whatever the Sun
// does. At each instant one SGP4, one turn by the sidereal time and one elevation, all of it straight from the
// definitions; the instants are those of the search of the program: the same coarse steps, bisections and scan of the
// maximum. Says how many passes and instants there were.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "astro/angles.h"
#include "bench/process_time.h"
#include "orbit/sgp4.h"
#include "record/files.h"
#include "record/text.h"
#include "record/vector_registers.h"
#include "record/winp_data.h"
#include "scan/entries.h"

namespace {

constexpr double startDay = 58138.0;  // 2018-01-20
constexpr double latDeg = 48.2, lngDeg = 16.37, heightKm = 0.18;
constexpr double horizonDeg = 10.0;

constexpr double minuteDays = 0.0006944444444444445;
constexpr double halfMinuteDays = 0.00034722222222222224;
constexpr double secondDays = 1.157407407e-5;
constexpr double hourDays = 0.041666666666666664;
constexpr double coarseStepDays = 0.0069;
constexpr double farBelowDeg = -25.0;
constexpr double fastRevPerDay = 14.0;

/// The observer on the ellipsoid.
struct Site
{
    double x, z, sinLat, cosLat;

    Site()
    {
        constexpr double radiusKm = 6378.137, e2 = 0.0066943799901413165;
        sinLat = std::sin(latDeg * radPerDeg);
        cosLat = std::cos(latDeg * radPerDeg);
        const double N = radiusKm / std::sqrt(1.0 - e2 * sinLat * sinLat);
        x = (N + heightKm) * cosLat;
        z = (N * (1.0 - e2) + heightKm) * sinLat;
    }
};

class PlainLoop
{
public:
    PlainLoop(const WinpData& in, int k) : epoch(in.mjdep[k]), fast(in.n0[k] > fastRevPerDay)
    {
        sgp4init(wgs72, true, epoch - 33281.0, in.bstar[k], in.ecc[k], in.aper[k] * radPerDeg, in.inc[k] * radPerDeg,
                 in.m0[k] * radPerDeg, in.n0[k] * twoPi / 1440.0, in.ra[k] * radPerDeg, set);
    }

    long passes = 0;
    long instants = 0;

    void findAll(double t, double end)
    {
        while (t <= end && findPass(t, end)) {
            ++passes;
            t = tm[2] + minuteDays + (fast ? hourDays : 0.0);
        }
    }

private:
    double elevation(double t)
    {
        ++instants;
        double r[3] = {}, v[3] = {};
        if (sgp4(wgs72, set, (t - epoch) * 1440.0, r, v) != 0)
            return -90.0;
        const double turn = sidereal(t);
        const double c = std::cos(turn), s = std::sin(turn);
        const double x = c * r[0] + s * r[1] - site.x;
        const double y = -s * r[0] + c * r[1];
        const double z = r[2] - site.z;
        const double up = site.cosLat * x + site.sinLat * z;
        return std::asin(up / std::sqrt(x * x + y * y + z * z)) * degPerRad;
    }

    /// Local sidereal time: IAU 1982.
    static double sidereal(double t)
    {
        const double day = std::floor(t);
        const double T = (day - 51544.5) / 36525.0;
        const double hours =
            6.697374558 + 1.0027379093 * (t - day) * 24.0 + (8640184.812866 + 0.093104 * T) * T / 3600.0;
        return std::fmod(hours, 24.0) * 15.0 * radPerDeg + lngDeg * radPerDeg;
    }

    bool findPass(double t0, double end)
    {
        bool inside = false, over = false;
        for (double t = t0; t <= end && !over;) {
            const double el = elevation(t);
            over = inside && el < horizonDeg;
            if (over)
                tm[2] = t;
            else if (el >= horizonDeg) {
                if (!inside)
                    tm[0] = t;
                if (!inside || el > highest) {
                    highest = el;
                    tm[1] = t;
                }
                inside = true;
            }
            t += el < farBelowDeg ? coarseStepDays : minuteDays;
        }
        if (!inside)
            return false;
        if (!over)
            tm[2] = end;
        if (tm[0] > t0)
            bisect(0, true);
        if (tm[2] > t0 && tm[2] < end)
            bisect(2, false);
        if (!(tm[1] > tm[2]) && !(tm[0] > tm[1]))
            refine();
        return true;
    }

    void bisect(int index, bool wanted)
    {
        double h = halfMinuteDays;
        double trial = tm[index] - h;
        for (int round = 0; round < 6; ++round) {
            const bool met = (elevation(trial) >= horizonDeg) == wanted;
            if (met)
                tm[index] = trial;
            h /= 2.0;
            trial += met ? -h : h;
        }
    }

    void refine()
    {
        const double middle = tm[1];
        const double before = elevation(middle - secondDays);
        const double after = elevation(middle + secondDays);
        if (before == after)
            return;
        const double from = before > after ? std::max(tm[0], middle - minuteDays) : middle;
        const double to = before > after ? middle : std::min(tm[2], middle + minuteDays);
        double best = -100.0;
        double t = from;
        for (int second = 0; second <= 60 && t <= to; ++second, t += secondDays) {
            const double el = elevation(t);
            if (el > highest) {
                highest = best = el;
                tm[1] = t;
            }
            if (el < best)
                return;
        }
    }

    elsetrec set{};
    double epoch;
    bool fast;
    Site site;
    double tm[3] = {};
    double highest = 0;
};

}  // namespace

int main(int count, char** words)
{
    const auto in = std::make_unique<WinpData>();
    setDefaults(in.get());
    assignField(in->tlename, count > 1 ? words[1] : TEST_DATA "/elements/catalogue_2018.txt");
    const double days = count > 2 ? std::atof(words[2]) : 3.1;
    const FilePtr file = openForReading(in->tlename);
    if (!file)
        return 1;
    long passes = 0, instants = 0;
    int entriesRead = 0;
    for (Entries entries(in.get(), file.get()); entries.next(); ++entriesRead) {
        releaseVectorRegisters();
        PlainLoop loop(*in, workSlot);
        loop.findAll(startDay, startDay + days);
        passes += loop.passes;
        instants += loop.instants;
    }
    std::printf("entries %d passes %ld instants %ld cpu %.4f\n", entriesRead, passes, instants, cpuSeconds());
    return 0;
}
