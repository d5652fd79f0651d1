// What is on show in words, for those who do not see it.

#include "view/vorlix_view.h"

#include <algorithm>

#include <QAccessible>

#include "engine/pass_search.h"
#include "engine/position.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "view/legend_text.h"

namespace {

QString number(double value)
{
    return QString::number(value, 'f', 1);
}

QString lightOf(const SatPosData& sp, int slot)
{
    return sp.sunel[slot] < 0 ? VorlixView::tr("in shadow") : VorlixView::tr("in sunlight");
}

}  // namespace

bool VorlixView::showsText() const
{
    return indata->dspmd < 1;
}

QString VorlixView::spokenName() const
{
    if (showsText())
        return hasRows() ? tr("Table of passes") : tr("Report");
    if (indata->picflg)
        return tr("Picture");
    if (diskWanted())
        return indata->occflg == 1 ? tr("Disk of the Sun") : tr("Disk of the Moon");
    return indata->skymap ? tr("Sky map") : tr("World map");
}

QString VorlixView::spokenText() const
{
    if (!showsText())
        return indata->picflg ? QString() : spokenPlot();
    QStringList lines;
    for (int i = 0; i < shownReport.nlines; ++i)
        lines << textQString(lineText(shownReport, i)).mid(static_cast<qsizetype>(shownStyle.first)).trimmed();
    return lines.join(u'\n');
}

/// Where the prime satellite stands by the last plot.
QString VorlixView::spokenPlot() const
{
    if (!legend || legend->texts.empty())
        return {};
    const QString time = legend->texts.front().text.simplified();
    if (indata->satn < 1)
        return tr("%1, no satellite").arg(time);
    const int prime = std::clamp(indata->prs, 0, maxSatellites - 1);
    const SatPosData& sp = *satps;
    QStringList parts{fieldQString(indata->fsname[prime]).trimmed()};
    const bool fromItself = indata->skymap && indata->satsky;
    if (!fromItself)
        parts << tr("azimuth %1").arg(number(sp.az[prime]))
              << tr("elevation %1").arg(number(ElvRefr(indata, sp.el[prime])))
              << tr("range %1 km").arg(number(sp.dst[prime]));
    parts << tr("latitude %1").arg(number(sp.lat[prime])) << tr("longitude %1").arg(number(sp.lng[prime]))
          << tr("height %1 km").arg(number(sp.hgt[prime]));
    if (!relativeMode(*indata))  // there the field holds something else
        parts << lightOf(sp, prime);
    return parts.join(QStringLiteral(", ")) + QStringLiteral(", ") + time;
}

int VorlixView::rowCount() const
{
    return hasRows() ? std::min(indata->naos, static_cast<int>(std::size(epos))) : 0;
}

QString VorlixView::rowText(int row) const
{
    for (int i = 0; i < shownReport.nlines; ++i)
        if (selectable(shownReport, i) && row-- == 0)
            return textQString(lineText(shownReport, i)).mid(1).simplified();
    return {};
}

QRect VorlixView::rowRect(int row) const
{
    return zoomed(rowOnShow(row)).boundingRect();
}

void VorlixView::openRow(int row)
{
    markRow(row);
    openMarkedRow();
}

/// Tells assistive programs of another display, another report or another plot.
void VorlixView::announce()
{
    if (!QAccessible::isActive())
        return;
    const QString name = spokenName(), text = spokenText();
    const auto send = [this](QAccessible::Event what) {
        QAccessibleEvent event(this, what);
        QAccessible::updateAccessibility(&event);
    };
    if (name != toldName)
        send(QAccessible::NameChanged);
    if (text != toldText && showsText()) {
        QAccessibleTextUpdateEvent event(this, 0, toldText, text);
        QAccessible::updateAccessibility(&event);
    } else if (text != toldText) {
        send(QAccessible::DescriptionChanged);
    }
    toldName = name;
    toldText = text;
}
