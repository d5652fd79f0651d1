// The legend as it stands under a map, for the comparison with the next one.
#pragma once

#include <optional>
#include <vector>

#include <QColor>
#include <QFont>
#include <QRect>

#include "view/legend_text.h"

class ChangedTiles;

struct DrawnLegend
{
    QFont font;
    QColor ground;
    QColor plate;  // behind the names
    std::vector<LegendText> texts;
    std::vector<QRect> boxes;  // no pixel of a text lies outside its box
};

/// Adds where the legend changes if one gives way to another; without an earlier one that is all of it.
void addChanges(ChangedTiles& changed, const std::optional<DrawnLegend>& before, const DrawnLegend& after);
