#include "view/marks.h"

#include <algorithm>
#include <array>

#include <QFontMetrics>
#include <QPainter>

#include "view/changed_tiles.h"
#include "view/painting.h"

namespace {

constexpr int reachOfMark = 2;
constexpr int overhang = 1;  // of letters beyond the box of their name

void addFigure(ChangedTiles& changed, const Mark& mark)
{
    if (mark.figure != Mark::Figure::none)
        changed.add(QRect(mark.at - QPoint(reachOfMark, reachOfMark), mark.at + QPoint(reachOfMark, reachOfMark)));
    if (!mark.name.isEmpty())
        changed.add(mark.nameBox.translated(mark.nameOrigin()));
}

void addCircle(ChangedTiles& changed, const Mark& mark)
{
    for (const QPoint& p : mark.circle)
        changed.add(p);
}

/// From one second to the next most points of a circle stay where they are.
void addCircleSteps(ChangedTiles& changed, const Mark& before, const Mark& after)
{
    for (std::size_t j = 0; j < after.circle.size(); ++j) {
        if (before.circle[j] == after.circle[j])
            continue;
        changed.add(before.circle[j]);
        changed.add(after.circle[j]);
    }
}

void addChanges(ChangedTiles& changed, const Mark& before, const Mark& after)
{
    const bool sameFigure = before.at == after.at && before.colour == after.colour && before.figure == after.figure &&
                            before.name == after.name;
    if (!sameFigure) {
        addFigure(changed, before);
        addFigure(changed, after);
    }
    if (before.colour == after.colour && before.circle.size() == after.circle.size()) {
        addCircleSteps(changed, before, after);
        return;
    }
    addCircle(changed, before);
    addCircle(changed, after);
}

void addSun(ChangedTiles& changed, const std::optional<SunMark>& sun)
{
    if (sun)
        changed.add(QRect(sun->at - QPoint(2, 2), sun->at + QPoint(2, 2)));
}

/// A square on the sky, else a circle, with a point in the middle.
void paintFigure(QPainter& painter, const Mark& mark)
{
    if (mark.figure == Mark::Figure::none)
        return;
    if (mark.figure == Mark::Figure::disk)
        painter.drawEllipse(boxAbout(mark.at, reachOfMark));
    else
        painter.drawRect(boxAbout(mark.at, reachOfMark));
    painter.drawPoint(mark.at);
}

void paintAreas(QPainter& painter, const Marks& marks)
{
    if (marks.opacity == 0)
        return;
    painter.save();
    painter.setClipPath(marks.field, Qt::IntersectClip);
    for (const Mark& mark : marks.satellites) {
        QColor shade = mark.colour;
        shade.setAlpha(marks.opacity);
        painter.fillPath(mark.area, shade);
    }
    painter.restore();
    writeLabels(painter, marks.labels, marks.labelColour, marks.plate.value_or(Qt::black));
}

void paintSun(QPainter& painter, const SunMark& sun)
{
    static constexpr std::array<QPoint, 16> rays{QPoint{-2, -2}, {-2, 0}, {-2, 2}, {-1, -1}, {-1, 0}, {-1, 1},
                                                 {0, -2},        {0, -1}, {0, 1},  {0, 2},   {1, -1}, {1, 0},
                                                 {1, 1},         {2, -2}, {2, 0},  {2, 2}};
    painter.setPen(sun.rays);
    for (const QPoint& ray : rays)
        painter.drawPoint(sun.at + ray);
    painter.setPen(sun.core);
    painter.drawPoint(sun.at);
}

}  // namespace

QPoint nameBeside(const QPoint& marker, const QRect& letters, const QRect& picture)
{
    constexpr int gap = 2;
    constexpr int halfCapital = 4;
    const int y = std::clamp(marker.y() + halfCapital, picture.top() - letters.top(),
                             std::max(picture.top() - letters.top(), picture.bottom() - letters.bottom()));
    const int right = marker.x() + reachOfMark + gap - letters.left();
    if (right + letters.right() <= picture.right())
        return {right, y};
    return {marker.x() - reachOfMark - gap - letters.right(), y};
}

QPoint Mark::nameOrigin() const
{
    return nameBeside(at, nameBox, mapPicture);
}

QRect nameBoxOf(const QString& name, const QFontMetrics& metrics)
{
    return metrics.boundingRect(name).adjusted(-overhang, -overhang, overhang, overhang);
}

QFont nameFont()
{
    return QFont("Helvetica", 8, QFont::Normal);
}

void measure(Marks& marks, const Marks& earlier, const QPaintDevice* device)
{
    const QFontMetrics metrics(nameFont(), device);
    for (std::size_t i = 0; i < marks.satellites.size(); ++i) {
        Mark& mark = marks.satellites[i];
        const bool known = i < earlier.satellites.size() && earlier.satellites[i].name == mark.name;
        if (known)
            mark.nameBox = earlier.satellites[i].nameBox;
        else
            mark.nameBox = nameBoxOf(mark.name, metrics);
    }
}

void addChanges(ChangedTiles& changed, const Marks& before, const Marks& after)
{
    static const Mark none;
    const std::size_t count = std::max(before.satellites.size(), after.satellites.size());
    for (std::size_t i = 0; i < count; ++i)
        addChanges(changed, i < before.satellites.size() ? before.satellites[i] : none,
                   i < after.satellites.size() ? after.satellites[i] : none);
    if (before.sun != after.sun) {
        addSun(changed, before.sun);
        addSun(changed, after.sun);
    }
}

void paint(QPainter& painter, const Marks& marks)
{
    painter.setFont(nameFont());
    paintAreas(painter, marks);
    if (marks.plate) {
        painter.setBackground(*marks.plate);
        painter.setBackgroundMode(Qt::OpaqueMode);
    }
    for (const Mark& mark : marks.satellites) {
        painter.setPen(mark.colour);
        if (marks.plate && mark.figure != Mark::Figure::none)
            painter.fillRect(QRect(mark.at, mark.at).adjusted(-3, -3, 3, 3), *marks.plate);
        paintFigure(painter, mark);
        painter.drawPoints(mark.circle.data(), static_cast<int>(mark.circle.size()));
        if (!mark.name.isEmpty())
            painter.drawText(mark.nameOrigin(), mark.name);
    }
    if (marks.sun)
        paintSun(painter, *marks.sun);
}
