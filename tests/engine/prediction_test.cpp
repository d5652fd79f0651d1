#include "engine/prediction.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <thread>

#include "astro/angles.h"
#include "engine/aos_list.h"
#include "engine/epoch_state.h"
#include "engine/flares.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/record_helper.h"
#include "orbit/sgp4.h"

namespace {

constexpr double firstDay = 58138.0;

/// The station and a record of each propagator, over sites and with settings that all differ from the defaults.
std::vector<WinpData> variousRecords()
{
    std::vector<WinpData> records;
    std::mt19937 dice(17);
    for (const int norad : {25544, 27386, 25732})
        for (int propagator = 0; propagator < 3; ++propagator) {
            WinpData in = recordWith({norad}, {static_cast<double>(dice() % 120) - 60.0, 33.0, 900.0});
            in.aflg[0] = propagator != 1;
            EpochState(&in, 0, true);
            in.numflg[0] = propagator == 2;
            in.sgpsat = noSlot;
            in.wgs = dice() % 2;
            in.satel = static_cast<double>(dice() % 40);
            in.sunel = dice() % 2 ? -3.0 : 91.0;
            in.visflg = dice() % 2;
            in.moonflg = dice() % 2;
            in.IERSflg = dice() % 2;
            in.Ut1Utc = 0.4;
            in.UtcTai = -37;
            in.IERSxp = 0.2;
            in.yrepoch = 1950.0;
            in.chlen = 3.0;
            in.eclflg = dice() % 2;
            in.refrc = dice() % 2;
            in.Am[0] = 0.5;
            records.push_back(in);
        }
    return records;
}

bool sameBits(const Pass& a, const Pass& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

std::vector<Pass> passesByRecord(WinpData in, double until)
{
    std::vector<Pass> found;
    Pass pass;
    for (double t = firstDay; nextpass(&in, 0, t, until, pass.tm, pass.a, pass.b); t = timeAfterPass(in, 0, pass))
        found.push_back(pass);
    return found;
}

}  // namespace

TEST(Prediction, GivesTheFiguresOfTheRecords)
{
    for (const WinpData& in : variousRecords()) {
        WinpData record = in;
        const double t = firstDay + 0.3;
        const SatPosData sp = positionAt(t, record);
        const elsetrec before = satrec;
        SatPosData* const positions = satpos;
        const Position p = predictPosition(orbitOf(in, 0), t, siteOf(in), modelsOf(in));
        predictNextPass(orbitOf(in, 0), siteOf(in), firstDay, firstDay + 0.1);
        EXPECT_EQ(std::memcmp(&before, &satrec, sizeof before), 0);
        EXPECT_EQ(positions, satpos);

        const double wanted[] = {sp.lat[0],
                                 sp.lng[0],
                                 sp.hgt[0],
                                 sp.el[0],
                                 sp.az[0],
                                 sp.dst[0],
                                 sp.rrate[0],
                                 sp.sunel[0],
                                 sp.moonel[0],
                                 sp.beta[0],
                                 sp.osunel,
                                 sp.sslat,
                                 sp.sslng,
                                 DmsDegF(sp.ra[0]),
                                 DmsDegF(sp.dec[0]),
                                 sp.rsat[0],
                                 sp.vsat[2],
                                 sp.mag,
                                 ElvRefr(&record, sp.el[0])};
        const double found[] = {p.lat,
                                p.lng,
                                p.height,
                                p.elevation,
                                p.azimuth,
                                p.range,
                                p.rangeRate,
                                p.sunElevation,
                                p.moonElevation,
                                p.beta,
                                p.observerSun,
                                p.subSolarLat,
                                p.subSolarLng,
                                p.ra,
                                p.dec,
                                p.r[0],
                                p.v[2],
                                p.magnitude.value_or(0.0),
                                p.apparentElevation};
        for (std::size_t k = 0; k < std::size(wanted); ++k)
            EXPECT_EQ(found[k], wanted[k]) << k;
        EXPECT_EQ(p.eclipse ? p.eclipse->distanceDeg : 0.0, record.smang);
    }
}

TEST(Prediction, TellsThatTheModelFailed)
{
    Orbit orbit = orbitOf(recordWith({25544}), 0);
    EXPECT_TRUE(predictPosition(orbit, firstDay, vienna).found);
    orbit.elements.n0 = -1.0;
    EXPECT_FALSE(predictPosition(orbit, firstDay, vienna).found);
}

TEST(Prediction, FindsThePassesOfTheRecordsInSeveralThreads)
{
    const std::vector<WinpData> records = variousRecords();
    std::vector<std::vector<Pass>> found(records.size());
    std::vector<std::thread> threads;
    for (std::size_t k = 0; k < records.size(); ++k)
        threads.emplace_back([&, k] {
            const WinpData& in = records[k];
            found[k] =
                predictPasses(orbitOf(in, 0), siteOf(in), firstDay, firstDay + 0.7, conditionsOf(in), modelsOf(in));
        });
    for (std::thread& thread : threads)
        thread.join();
    std::size_t total = 0;
    for (std::size_t k = 0; k < records.size(); ++k) {
        const std::vector<Pass> wanted = passesByRecord(records[k], firstDay + 0.7);
        total += wanted.size();
        EXPECT_TRUE(std::equal(found[k].begin(), found[k].end(), wanted.begin(), wanted.end(), sameBits)) << k;
    }
    EXPECT_GT(total, 10u);
}

TEST(Prediction, FindsTheEventsOfTheRecords)
{
    struct Case
    {
        EventQuery search;
        void (*set)(WinpData&);
        std::size_t least;
    };
    const Case cases[] = {
        {{EventKind::moonTransit, 9000.0}, [](WinpData& in) { in.occflg = 2; }, 1},
        {{EventKind::sunTransit, 0.0}, [](WinpData& in) { in.occflg = 1; }, 0},
        {{EventKind::occultation, 4000.0, 5.5, 7.4},
         [](WinpData& in) { in.occflg = 3, in.occra = DegFDms(5.5), in.occdec = DegFDms(7.4); },
         1},
        {{EventKind::flare, 2000.0, 0, 0, false, 30.0, -40.0},
         [](WinpData& in) { in.flarflg = in.flarmod = 1, in.occra = 30.0, in.occdec = -40.0; },
         1},
        {{.kind = EventKind::mirrorFlare, .faintest = 4.0},
         [](WinpData& in) { putMirrors(&in), in.irmag = 4.0, in.chlen = 0; },
         1},
    };
    for (const Case& row : cases) {
        WinpData in = recordWith({25777}, vienna, "iridium_2018.txt");
        in.visflg = 0;
        in.sunel = 91.0;
        std::vector<Event> found = predictEvents(orbitOf(in, 0), siteOf(in), firstDay, firstDay + 4, row.search,
                                                 conditionsOf(in), modelsOf(in));
        std::erase_if(found, [](const Event& e) { return e.surface == EventSurface::panel; });
        row.set(in);
        in.maxdst = row.search.maxDistance;
        if (row.search.kind != EventKind::mirrorFlare)
            chooseEventKind(&in);
        if (in.maxdst == 0.0)
            in.maxdst = 35.0, in.sunel = 90.0;
        std::size_t k = 0;
        Pass pass;
        for (double t = firstDay; const int result = nextpass(&in, 0, t, firstDay + 4, pass.tm, pass.a, pass.b);
             t = timeAfterPass(in, 0, pass)) {
            if (result != 1)
                continue;
            ASSERT_LT(k, found.size());
            EXPECT_EQ(found[k].mjd, pass.tm[1]);
            EXPECT_EQ(found[k].elevation, pass.a[1]);
            EXPECT_EQ(found[k].magnitude.value_or(0.0) + found[k].distance.value_or(0.0), pass.b[2]);
            ++k;
        }
        EXPECT_EQ(k, found.size());
        EXPECT_GE(k, row.least);
    }
}
