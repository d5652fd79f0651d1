// The painters of the report: running text, and the pass table whose rows can be clicked.

#include "view/vorlix_view.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>
#include <QToolTip>

#include "record/keep.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "view/painting.h"

int epos[120] = {};

namespace {

constexpr int leftMargin = 10;
constexpr int rowGap = 2;  // a row answers from a little above its letters on
constexpr int rowsWithPosition = sizeof epos / sizeof *epos;

QFont reportFont()
{
    return QFont("helvetica", fsz);
}

/// The pencil that writes a report.
class ReportPainter
{
public:
    ReportPainter(QPainter& on, const QColor& ink) : painter(on), metrics(prepare(ink)), cell(widthOf('M')) {}

    int ascent() const { return metrics.ascent(); }

    /// Paints the characters, one to a cell of the grid.
    void paintOnGrid(QStringView line, int y)
    {
        int x = leftMargin;
        for (const char32_t c : line.toUcs4()) {
            paint(c, x, y);
            x += cell;
        }
    }

    /// Paints the characters side by side; what follows a tab stands in the tab's column of the grid, where the
    /// characters that are left out before the line count too.
    void paintSideBySide(QStringView line, int leftOut, int y)
    {
        int x = leftMargin;
        int column = leftMargin + leftOut * cell;
        for (const char32_t c : line.toUcs4()) {
            paint(c, x, y);
            x = c == U'\t' ? column : x + widthOf(c);
            column = c == U'\t' ? x + cell : column + cell;
        }
    }

private:
    QFontMetrics prepare(const QColor& ink)
    {
        painter.setFont(reportFont());
        painter.setPen(ink);
        return painter.fontMetrics();
    }

    int widthOf(char32_t c) const { return metrics.horizontalAdvance(QString::fromUcs4(&c, 1)); }

    void paint(char32_t c, int x, int y)
    {
        if (c != U'\t')
            painter.drawText(x, y, QString::fromUcs4(&c, 1));
    }

    QPainter& painter;
    QFontMetrics metrics;
    int cell;
};

}  // namespace

void VorlixView::showtxt(bool fixed)
{
    dsplmd = filled::text;
    indata->dspmd = 0;
    paintReport({fixed, 0});
}

void VorlixView::showSattxt()
{
    dsplmd = filled::passTable;
    paintReport({true, 1});
}

void VorlixView::paintReport(const ReportStyle& style)
{
    setCursor(Qt::ArrowCursor);
    pointedRow = -1;
    shownReport = *outdata;
    shownStyle = style;
    paintPage();
    update();
    goHome();
}

/// The page is as high as the display has room for text; an enlarged one ends below its last line.
QSize VorlixView::pageSize() const
{
    if (zoom == 1.0)
        return textSize;
    const QFontMetrics metrics(reportFont());
    const int height = shownReport.nlines * metrics.ascent() + metrics.height();
    return {textSize.width(), std::min(height, textSize.height())};
}

/// What the lines take up, with a margin on the right as on the left.
QSize VorlixView::reportSize() const
{
    const QFontMetrics metrics(reportFont());
    const int cell = metrics.horizontalAdvance(u'M');
    int width = 0;
    for (int i = 0; i < shownReport.nlines; ++i) {
        const QString line = textQString(lineText(shownReport, i));
        const bool cells =
            line.contains(u'\t') || (shownStyle.fixed && layoutOf(shownReport, i) == LineLayout::table);
        width = std::max(width, cells ? static_cast<int>(line.size()) * cell : metrics.horizontalAdvance(line));
    }
    const int height = shownReport.nlines * metrics.ascent() + metrics.height();
    return QSize(width + 2 * leftMargin, height).boundedTo(textSize);
}

void VorlixView::paintPage()
{
    if (zoom != 1.0)
        txtPix = pixmapOf(pageSize(), scale);
    txtPix.fill(inTheDark ? Qt::black : Qt::white);
    QPainter painter(&txtPix);
    paintLines(painter, 0, shownReport.nlines, inTheDark ? Qt::white : Qt::black);
    lineHeight = painter.fontMetrics().ascent();
    int rows = 0;
    for (int i = 0; i < shownReport.nlines && shownStyle.first > 0; ++i)
        if (selectable(shownReport, i) && rows < rowsWithPosition)
            epos[rows++] = i * lineHeight - rowGap;
}

/// The lines from `first` on up to `end`, from the top.
void VorlixView::paintLines(QPainter& painter, int first, int end, const QColor& ink) const
{
    ReportPainter page(painter, ink);
    int y = 0;
    for (int i = first; i < end; ++i) {
        y += page.ascent();
        const std::string_view line = lineText(shownReport, i);
        const QString letters = textQString(line.substr(std::min(shownStyle.first, line.size())));
        if (shownStyle.fixed && layoutOf(shownReport, i) == LineLayout::table)
            page.paintOnGrid(letters, y);
        else
            page.paintSideBySide(letters, static_cast<int>(shownStyle.first), y);
    }
}

int passRowAt(int y, int rows)
{
    int row = -1;
    for (int k = 0; k < std::min(rows, rowsWithPosition); ++k) {
        if (epos[k] < y)
            row = k;
    }
    return row;
}

/// Around its letters, of which some reach below the line.
QRect VorlixView::rowOnShow(int row) const
{
    constexpr int belowLine = 2;
    return {0, epos[row] + rowGap + belowLine, textSize.width(), lineHeight};
}

/// Takes note of the row under the pointer, -1 for none: its ground and the shape of the pointer say that it answers to
/// a click, a tool tip what the first time.
void VorlixView::pointAtRow(int row, const QPoint& pointer)
{
    if (row == pointedRow)
        return;
    markRow(row);
    setCursor(row >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    if (row < 0 || std::exchange(rowsTold, true))
        return;
    QToolTip::showText(pointer,
                       indata->leftbtn ? tr("A click on a row shows the details of the pass.")
                                       : tr("A click with the right button on a row shows the details of the pass."),
                       viewport());
}

void VorlixView::markRow(int row)
{
    for (const int changed : {std::exchange(pointedRow, row), row})
        if (changed >= 0)
            viewport()->update(zoomed(rowOnShow(changed)));
    if (row >= 0 && QAccessible::isActive()) {
        QAccessibleEvent chosen(this, QAccessible::Focus);
        chosen.setChild(row);
        QAccessible::updateAccessibility(&chosen);
    }
}

bool VorlixView::hasRows() const
{
    return indata->dspmd == -1 && indata->naos > 0;
}

QRect VorlixView::markNextRow(int rows)
{
    const int last = std::min(indata->naos, rowsWithPosition) - 1;
    const int start = rows > 0 ? -1 : last + 1;
    markRow(std::clamp((pointedRow >= 0 ? pointedRow : start) + rows, 0, last));
    return zoomed(rowOnShow(pointedRow)).boundingRect();
}

void VorlixView::openMarkedRow()
{
    if (pointedRow >= 0)
        showPassDetails(epos[pointedRow] + 1);
}

void VorlixView::showPassDetails(int y)
{
    const Keep kind(indata->iridflg, indata->iridflg == event::iridium ? event::plain : indata->iridflg);
    if (indata->naos < 1)
        return;
    const int row = passRowAt(y, indata->naos);
    // a click above the first row shows the row of the last click, as far as this table has one
    indata->aossel = row >= 0 ? row : std::min(indata->aossel, indata->naos - 1);
    openPassDetails();
}
