// The stations of observers: the one of this program's user, and places by their numbers, as vorlix.ini keeps them.
#pragma once

#include "engine/site.h"
#include "observing/observation.h"

#include <QString>
#include <optional>

/// What the reports of the user's own station have in common.
struct Station
{
    int number = 0;          // of four digits
    double timeError = 0.1;  // seconds
    double angleError = 1;   // arc minutes
    int code = 2;            // of the angles, as IOD counts
    char condition = 'G';    // of the sky
    QString file;            // that reports were added to last
};

/// The group [station]; the defaults where it says nothing.
Station ownStation();
void keepOwnStation(const Station& station);

/// The place of a station: "NUMBER=latitude,longitude,height" in the group [stations], degrees and metres.
std::optional<Site> siteOfStation(int number);
void keepSiteOfStation(int number, const Site& site);
