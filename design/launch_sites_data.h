// Launch sites of the world; geographic coordinates in degrees, north and east positive.
#pragma once

#include <array>

struct LaunchSite
{
    const char* name;
    double latitude, longitude;
};

// The index of a site is kept in the record, so new sites go to the end.
// clang-format off
constexpr std::array launchSites{
    LaunchSite{"User",                     0,         0},
    LaunchSite{"Kennedy Space Center",    28.6272,  -80.6208},
    LaunchSite{"Baikonur",                45.92,     63.3423},
    LaunchSite{"Kourou",                   5.237,   -52.775},
    LaunchSite{"Vandenberg",              34.7523, -120.6155},
    LaunchSite{"Plesetsk",                62.855,    40.867},
    LaunchSite{"Svobodny",                51.35,    128.133},
    LaunchSite{"Tanegashima",             30.38,    130.97},
    LaunchSite{"Kagoshima",               31.23,    131.08},
    LaunchSite{"Sriharikota",             13.576,    80.293},
    LaunchSite{"Xichang",                 28.25,    102.02},
    LaunchSite{"Tai-yuan",                37.8,     111.5},
    LaunchSite{"Jiuquan",                 40.9581,  100.2912},
    LaunchSite{"Wallops Island",          37.85,    -75.47},
    LaunchSite{"Israeli Launch Complex",  31.52,     34.45},
    LaunchSite{"Alcantara",               -2.4,     -44.4},
    LaunchSite{"Woomera",                -31.12,    136.53},
    LaunchSite{"Sea Launch",               0,      -154},
    LaunchSite{"Wallops Island",          37.84,    -75.48},
    LaunchSite{"Barents Sea",             69.5,      34.2},
    LaunchSite{"Kwajalein",                8.99,    167.72},
};
// clang-format on
static_assert(launchSites.size() == 21);
