// The colours of maps, skies, disks, pictures and their legend.
#pragma once

#include <QColor>
#include <array>

#include "record/winp_data.h"

/// The colours of Sun, Moon and planets on the sky.
struct BodyColours
{
    QColor sun, sunCore, moon, mercury, venus, mars, jupiter, saturn;
};

/// The colours of one drawing. A text stands on one of the grounds named here.
struct MapColours
{
    QColor ground;  // of map, sky and disk
    QColor night;
    QColor contrast;  // what stands out best from the ground
    QColor grid, strongLine, coast;
    QColor observer;
    QColor plate;  // behind the names of the legend
    std::array<QColor, maxSatellites> satellites;
    QColor sunRays, sunCore;  // of the symbol of the Sun

    std::array<QColor, 4> stars;  // that are single points, from the brightest to the faintest
    QColor horizon;
    BodyColours bodies;

    QColor darkLimb;  // of the Moon
    QColor northMark;

    QColor legend;      // ground of it
    QColor text;        // on it,
    QColor dark;        // of a satellite in the dark, unseen or decayed,
    QColor moonlit;     // in the dark while the Moon shines on it,
    QColor alert;       // and of what a person should notice
    QColor photoText;   // on a picture,
    QColor photoPoint;  // of a point on it
    QColor photoAlert;
};

/// For the background `mgrey` of the record: 0 white, 1 grey, otherwise black.
MapColours coloursOf(int mgrey);
