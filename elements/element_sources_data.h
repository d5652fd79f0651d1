// The groups of elements that a public service gives away.
#pragma once

#include <array>

/// What stands before the name of a group.
inline constexpr char sourceAddress[] = "https://celestrak.org/NORAD/elements/gp.php?";

/// A group: its name for people, and the query for it.
struct SourceRow
{
    const char* name;
    const char* group;
};

inline constexpr std::array sourceRows{
    SourceRow{"Last 30 days' launches", "GROUP=last-30-days"},
    SourceRow{"Space stations", "GROUP=stations"},
    SourceRow{"100 brightest", "GROUP=visual"},
    SourceRow{"Active satellites", "GROUP=active"},
    SourceRow{"Analyst satellites", "GROUP=analyst"},
    SourceRow{"Debris COSMOS 1408", "GROUP=cosmos-1408-debris"},
    SourceRow{"Debris FENGYUN 1C", "GROUP=fengyun-1c-debris"},
    SourceRow{"Debris IRIDIUM 33", "GROUP=iridium-33-debris"},
    SourceRow{"Debris COSMOS 2251", "GROUP=cosmos-2251-debris"},
    SourceRow{"Weather", "GROUP=weather"},
    SourceRow{"Earth resources", "GROUP=resource"},
    SourceRow{"Search and rescue", "GROUP=sarsat"},
    SourceRow{"Disaster monitoring", "GROUP=dmc"},
    SourceRow{"ARGOS data collection", "GROUP=argos"},
    SourceRow{"Active geosynchronous", "GROUP=geo"},
    SourceRow{"Intelsat", "GROUP=intelsat"},
    SourceRow{"Eutelsat", "GROUP=eutelsat"},
    SourceRow{"Telesat", "GROUP=telesat"},
    SourceRow{"Starlink", "GROUP=starlink"},
    SourceRow{"OneWeb", "GROUP=oneweb"},
    SourceRow{"Kuiper", "GROUP=kuiper"},
    SourceRow{"Iridium NEXT", "GROUP=iridium-NEXT"},
    SourceRow{"Orbcomm", "GROUP=orbcomm"},
    SourceRow{"Globalstar", "GROUP=globalstar"},
    SourceRow{"Amateur radio", "GROUP=amateur"},
    SourceRow{"GNSS (all)", "GROUP=gnss"},
    SourceRow{"GPS operational", "GROUP=gps-ops"},
    SourceRow{"GLONASS operational", "GROUP=glo-ops"},
    SourceRow{"Galileo", "GROUP=galileo"},
    SourceRow{"BeiDou", "GROUP=beidou"},
    SourceRow{"Navy navigation (NNSS)", "GROUP=nnss"},
    SourceRow{"Russian LEO navigation", "GROUP=musson"},
    SourceRow{"Space and Earth science", "GROUP=science"},
};
