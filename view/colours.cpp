#include "view/colours.h"

namespace {

constexpr QColor white(255, 255, 255), black(0, 0, 0), red(255, 0, 0), blue(0, 0, 255), green(0, 255, 0),
    yellow(255, 255, 0), magenta(255, 0, 255), brown(200, 100, 50), lightGreen(30, 240, 120);

constexpr QColor grey(int level)
{
    return {level, level, level};
}

/// What does not depend on the background.
MapColours commonColours()
{
    MapColours c;
    c.grid = {130, 160, 180};
    c.strongLine = lightGreen;
    c.coast = c.horizon = c.northMark = brown;
    c.observer = {0, 255, 255};
    c.sunRays = yellow;
    c.legend = {0, 50, 200};
    c.text = c.photoText = white;
    c.dark = black;
    c.moonlit = c.photoPoint = yellow;
    c.alert = c.photoAlert = red;
    return c;
}

}  // namespace

MapColours coloursOf(int mgrey)
{
    MapColours c = commonColours();
    const bool onBlack = mgrey != 0 && mgrey != 1;
    c.ground = onBlack ? black : mgrey == 0 ? white : grey(200);
    c.night = grey(onBlack ? 65 : mgrey == 0 ? 223 : 150);
    c.contrast = c.sunCore = mgrey == 2 ? white : black;
    c.plate = mgrey == 2 ? black : white;
    c.satellites = {c.contrast, red, blue, green, yellow, magenta, blue, green, yellow, magenta};
    if (mgrey == 2)
        c.stars = {grey(255), grey(200), grey(150), grey(100)};
    else
        c.stars = {grey(0), grey(50), grey(100), grey(150)};
    c.bodies = {yellow, red, c.contrast, brown, blue, red, green, yellow};
    c.darkLimb = mgrey == 2 ? lightGreen : c.contrast;
    return c;
}
