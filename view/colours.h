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

/// The colours of one drawing.
struct MapColours
{
    /// Texts on a map stand on plates, and there are more of them: degrees, azimuths, rings of altitude, lines of
    /// constellations, the name of a disk; areas from which a satellite is seen are filled.
    bool readable = false;
    QColor ground;  // of map, sky and disk
    QColor night;
    QColor contrast;  // what stands out best from the ground
    QColor grid, strongLine, coast;
    QColor observer;
    QColor plate;  // behind the names of the legend, and behind texts on a readable map
    std::array<QColor, maxSatellites> satellites;
    QColor sunRays, sunCore;  // of the symbol of the Sun

    std::array<QColor, 4> stars;  // that are single points, from the brightest to the faintest
    QColor horizon;
    BodyColours bodies;

    QColor darkLimb;  // of the Moon
    QColor northMark;

    QColor labels;      // of degrees, rings and disks
    QColor figures;     // lines of the constellations
    int footprint = 0;  // opacity of an area in the colour of its satellite, of 255

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

/// The set in which each text has a contrast of 4.5 to 1 and more.
MapColours readableColoursOf(int mgrey);

/// The same over the picture of the Earth, and over a photograph.
MapColours readableColoursOnPicture();

/// Of a drawing that is to be seen in one colour, light on black: with what readable colours add, if `readable`; over the
/// picture of the Earth, if `onPicture`.
MapColours nightColours(bool readable, bool onPicture);

/// The contrast of two opaque colours, 1 to 21 (WCAG 2.1).
double contrast(const QColor& a, const QColor& b);
