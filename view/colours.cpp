#include "view/colours.h"

#include <algorithm>
#include <cmath>

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

/// Light letters on black.
MapColours lightOnBlack()
{
    constexpr QColor pink(255, 120, 110), sky(130, 175, 255), leaf(90, 230, 110), sun(255, 225, 60),
        lilac(255, 130, 255);
    MapColours c;
    c.readable = true;
    c.ground = c.plate = black;
    c.night = grey(60);
    c.contrast = c.sunCore = white;
    c.grid = {80, 110, 130};
    c.strongLine = {40, 150, 90};
    c.coast = c.horizon = {230, 140, 90};
    c.observer = {0, 255, 255};
    c.satellites = {white,          pink,           sky, leaf, sun, lilac, {90, 220, 235}, {190, 220, 120},
                    {255, 175, 90}, {200, 170, 255}};
    c.sunRays = sun;
    c.stars = {grey(255), grey(210), grey(170), grey(130)};
    c.bodies = {sun, pink, white, {255, 175, 90}, sky, pink, leaf, {230, 215, 150}};
    c.darkLimb = leaf;
    c.northMark = {255, 175, 90};
    c.labels = {190, 210, 225};
    c.figures = {70, 95, 140};
    c.footprint = 36;
    return c;
}

/// Dark letters on white or grey.
MapColours darkOn(const QColor& ground)
{
    constexpr QColor wine(160, 0, 0), navy(0, 0, 190), forest(0, 80, 0), earth(100, 65, 0), plum(130, 0, 130);
    MapColours c;
    c.readable = true;
    c.ground = c.plate = ground;
    c.night = ground.darker(130);
    c.contrast = c.sunCore = black;
    c.grid = {110, 135, 155};
    c.strongLine = {0, 130, 80};
    c.coast = c.horizon = {150, 70, 30};
    c.observer = {0, 110, 130};
    c.satellites = {black, wine, navy, forest, earth, plum, {0, 75, 95}, {70, 70, 0}, {130, 45, 0}, {75, 40, 140}};
    c.sunRays = {200, 110, 0};
    c.stars = {grey(0), grey(30), grey(60), grey(90)};
    c.bodies = {earth, wine, black, {130, 45, 0}, navy, wine, forest, {70, 70, 0}};
    c.darkLimb = grey(90);
    c.northMark = {130, 45, 0};
    c.labels = {40, 60, 75};
    c.figures = {125, 145, 190};
    c.footprint = 30;
    return c;
}

MapColours withReadableTexts(MapColours c)
{
    c.legend = {0, 30, 110};
    c.text = c.photoText = white;
    c.dark = {150, 185, 225};
    c.moonlit = c.photoPoint = {255, 225, 60};
    c.alert = c.photoAlert = {255, 160, 150};
    return c;
}

/// Relative luminance.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

MapColours readableColoursOf(int mgrey)
{
    return withReadableTexts(mgrey == 0 ? darkOn(white) : mgrey == 1 ? darkOn(grey(200)) : lightOnBlack());
}

MapColours readableColoursOnPicture()
{
    MapColours c = withReadableTexts(lightOnBlack());
    c.grid = {170, 190, 205};
    c.night = QColor(0, 0, 20, 120);
    return c;
}

MapColours nightColours(bool readable, bool onPicture)
{
    MapColours c = onPicture && readable ? readableColoursOnPicture() : readableColoursOf(2);
    c.readable = readable;
    c.legend = grey(20);
    c.dark = grey(150);
    if (!readable)
        c.night = grey(onPicture ? 65 : 40);
    return c;
}

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
