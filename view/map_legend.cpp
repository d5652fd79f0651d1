// The five columns under the map.

#include "view/vorlix_view.h"

#include <QPainter>

#include "engine/satpos_data.h"
#include "view/legend_text.h"
#include "view/painting.h"

namespace {

constexpr int columnX[] = {10, 150, 300, 430, 590};
constexpr int rowBelowAscent[] = {367, 389, 411};

}  // namespace

void VorlixView::drawLegend(const PlotScene& scene)
{
    QPainter painter(&mapPix);
    painter.drawPixmap(0, legendTop, legendPix);
    painter.setFont(legendFont(*indata));
    // names stand out in the colours of their markers on the map
    painter.setBackground(indata->mgrey == 2 ? QColor(0, 0, 0) : QColor(255, 255, 255));
    const int ascent = painter.fontMetrics().ascent();
    for (const LegendText& text : legendTexts(indata, satps, scene)) {
        painter.setPen(text.colour);
        painter.setBackgroundMode(text.label ? Qt::OpaqueMode : Qt::TransparentMode);
        painter.drawText(columnX[text.column], ascent + rowBelowAscent[text.row], text.text);
    }
}
