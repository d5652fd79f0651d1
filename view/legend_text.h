// The texts of the legend under a map: five columns of three rows about the prime satellite.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <vector>

struct PlotScene;
struct SatPosData;
struct WinpData;

/// A text of the legend and where it stands.
struct LegendText
{
    int column;  // 0 to 4: time, position, sky position or event, topocentric place, name and rate
    int row;     // 0 to 2
    QString text;
    QColor colour;
    bool label = false;  // a name, on the background of the map

    bool operator==(const LegendText&) const = default;
};

/// The legend of a plot, in the order of drawing; `sp` holds the positions of its time.
std::vector<LegendText> legendTexts(WinpData* in, SatPosData* sp, const PlotScene& scene);

/// The font of the legend, and of what is written on a picture.
QFont legendFont(const WinpData& in);

/// Civil date and time of a plot; with the fraction of the second if the time step is below one.
QString timeText(const PlotScene& scene, double step);

// The last argument of prpang for packed values.
constexpr int packedHours = -2;
constexpr int packedDegrees = -1;

/// A label and an angle as `prpang` shows it.
QString withAngle(const char* label, int ra4d, int mode, double value);

/// As much of the name of a satellite as map and legend show.
QString shownName(const WinpData& in, int slot);
