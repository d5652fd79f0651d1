// The five columns under the map.

#include "view/vorlix_view.h"

#include <algorithm>

#include <QFontMetrics>
#include <QPainter>

#include "engine/satpos_data.h"
#include "view/painting.h"

namespace {

constexpr int columnX[] = {10, 150, 300, 430, 590};
constexpr int rowBelowAscent[] = {367, 389, 411};
constexpr QRect wholeLegend(QPoint(0, legendTop), QPoint(displaySize.width() - 1, displaySize.height() - 1));

QPoint originOf(const LegendText& text, const QFontMetrics& metrics)
{
    return {columnX[text.column], metrics.ascent() + rowBelowAscent[text.row]};
}

/// Around the letters and, behind a name, the ground.
QRect boxOf(const LegendText& text, const QFontMetrics& metrics)
{
    constexpr int overhang = 2;
    const QRect ground(0, -metrics.ascent(), metrics.horizontalAdvance(text.text), metrics.height());
    const QRect box = metrics.boundingRect(text.text) | ground;
    return box.adjusted(-overhang, -overhang, overhang, overhang).translated(originOf(text, metrics));
}

bool sameStyle(const std::optional<DrawnLegend>& before, const DrawnLegend& after)
{
    return before && before->font == after.font && before->ground == after.ground && before->plate == after.plate;
}

bool sameText(const std::optional<DrawnLegend>& before, const DrawnLegend& after, std::size_t i)
{
    return sameStyle(before, after) && i < before->texts.size() && i < after.texts.size() &&
           before->texts[i] == after.texts[i];
}

void measure(DrawnLegend& legend, const std::optional<DrawnLegend>& before, const QFontMetrics& metrics)
{
    for (std::size_t i = 0; i < legend.texts.size(); ++i)
        legend.boxes.push_back(sameText(before, legend, i) ? before->boxes[i] : boxOf(legend.texts[i], metrics));
}

/// Names that do not fit beside the border of the legend end in three dots.
void shortenNames(std::vector<LegendText>& texts, const QFontMetrics& metrics)
{
    for (LegendText& text : texts) {
        const int room = mapPicture.width() - columnX[text.column];
        if (text.label && metrics.horizontalAdvance(text.text.trimmed()) > room)
            text.text = metrics.elidedText(text.text.trimmed(), Qt::ElideRight, room);
    }
}

void write(QPainter& painter, const LegendText& text)
{
    painter.setPen(text.colour);
    painter.setBackgroundMode(text.label ? Qt::OpaqueMode : Qt::TransparentMode);
    painter.drawText(originOf(text, painter.fontMetrics()), text.text);
}

}  // namespace

void addChanges(ChangedTiles& changed, const std::optional<DrawnLegend>& before, const DrawnLegend& after)
{
    if (!sameStyle(before, after)) {
        changed.add(wholeLegend);
        return;
    }
    const std::size_t count = std::max(before->texts.size(), after.texts.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (sameText(before, after, i))
            continue;
        if (i < before->boxes.size())
            changed.add(before->boxes[i]);
        if (i < after.boxes.size())
            changed.add(after.boxes[i]);
    }
}

void VorlixView::drawLegend(const PlotScene& scene)
{
    // names stand out in the colours of their markers on the map
    DrawnLegend now{
        legendFont(*indata), scene.colours.legend, scene.colours.plate, legendTexts(indata, satps, scene), {}};
    const QFontMetrics metrics(now.font, &mapPix);
    shortenNames(now.texts, metrics);
    measure(now, legend, metrics);
    ChangedTiles changed;
    addChanges(changed, legend, now);
    if (!ChangedTiles::fit(scale))
        changed.addAll();
    legend = std::move(now);
    stale.add(changed);
    QPainter painter(&mapPix);
    writeLegend(painter, *legend, changed.region());
}

/// As far as it lies in the region.
void VorlixView::writeLegend(QPainter& painter, const DrawnLegend& drawn, const QRegion& part) const
{
    const QRegion region = part & wholeLegend;
    painter.save();
    for (const QRect& rect : region)
        painter.fillRect(rect, drawn.ground);
    painter.setClipRegion(region);
    painter.setFont(drawn.font);
    painter.setBackground(drawn.plate);
    for (std::size_t i = 0; i < drawn.texts.size(); ++i) {
        if (region.intersects(drawn.boxes[i]))
            write(painter, drawn.texts[i]);
    }
    painter.restore();
}
