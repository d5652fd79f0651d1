// A kind of map for what is drawn many times: of each projection, by day and night, with a disk.
#pragma once

#include "app/record/winp_data.h"

struct MapKind
{
    const char* name;
    int mapprj, skymap, skyprj, night;
    bool fromSatellite;
    int occflg;
    bool disk;
};

inline void setMap(const MapKind& kind, WinpData& in)
{
    in.mapprj = kind.mapprj;
    in.skymap = kind.skymap;
    in.skyprj = kind.skyprj;
    in.skaz = 180.0;
    in.mpnight = kind.night;
    in.satsky = kind.fromSatellite;
    in.occflg = kind.occflg;
    in.sunmplt = kind.disk;
}
