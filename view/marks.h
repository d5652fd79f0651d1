// What stands on top of a map: markers, circles of visibility, names and the symbol of the Sun.
//
// A plot makes its marks first, as figures at pixels, and compares them with those on the display: only what differs is
// painted.
#pragma once

#include <optional>
#include <vector>

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QPoint>
#include <QRect>
#include <QString>

#include "view/map_labels.h"

class ChangedTiles;
class QFontMetrics;
class QPaintDevice;
class QPainter;

/// Where a name begins that stands beside its marker: on the right, or on the left where the picture ends; moved up or
/// down so that no letter is cut. `letters` is the box of the name about its origin.
QPoint nameBeside(const QPoint& marker, const QRect& letters, const QRect& picture);

/// What stands for a satellite.
struct Mark
{
    enum class Figure
    {
        none,
        disk,   // on the map: a circle about the point
        square  // on the sky
    };

    QPoint at;
    QColor colour;
    Figure figure = Figure::none;
    QString name;                // empty for none
    QRect nameBox;               // around the name, about its origin; filled by `measure`
    std::vector<QPoint> circle;  // of visibility
    QPainterPath area;           // inside of it, to be filled

    QPoint nameOrigin() const;
};

/// The star of single pixels over the subsolar point.
struct SunMark
{
    QPoint at;
    QColor rays, core;

    bool operator==(const SunMark&) const = default;
};

/// All marks of one plot, in the order of drawing.
struct Marks
{
    std::vector<Mark> satellites;
    std::optional<SunMark> sun;
    std::optional<QColor> plate;   // behind markers and names
    QPainterPath field;            // of the areas
    int opacity = 0;               // of the areas, of 255
    std::vector<MapLabel> labels;  // over the areas
    QColor labelColour;
};

/// The font of what is written on a map, a sky or a picture beside its legend.
QFont nameFont();

/// The box of a name about its origin, with room for letters that reach beyond.
QRect nameBoxOf(const QString& name, const QFontMetrics& metrics);

/// Fills the boxes of the names, from marks of an earlier plot where the names are the same.
void measure(Marks& marks, const Marks& earlier, const QPaintDevice* device);

/// Adds where the display changes if the marks on it give way to others.
void addChanges(ChangedTiles& changed, const Marks& before, const Marks& after);

void paint(QPainter& painter, const Marks& marks);
