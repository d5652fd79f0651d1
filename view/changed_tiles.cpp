#include "view/changed_tiles.h"

#include <vector>

namespace {

/// So many unchanged tiles between two changed ones cost less to paint than another rectangle.
constexpr int bridgedTiles = 8;

}  // namespace

void ChangedTiles::add(const QRect& box)
{
    const QRect onDisplay = box.adjusted(-1, -1, 1, 1) & QRect(QPoint(0, 0), displaySize);
    if (onDisplay.isEmpty())
        return;
    for (int row = onDisplay.top() / side; row <= onDisplay.bottom() / side; ++row)
        for (int column = onDisplay.left() / side; column <= onDisplay.right() / side; ++column)
            tiles.set(index(row, column));
}

void ChangedTiles::addRuns(std::vector<QRect>& runs, int row) const
{
    const auto add = [&runs, row](int first, int end) {
        const QRect run(first * side, row * side, (end - first) * side, side);
        runs.push_back(run & QRect(QPoint(0, 0), displaySize));
    };
    int first = 0;
    int end = 0;  // behind the last tile of the open run
    for (int column = 0; column < columns; ++column) {
        if (!has(column, row))
            continue;
        if (end > 0 && column - end > bridgedTiles)
            add(first, end);
        if (end == 0 || column - end > bridgedTiles)
            first = column;
        end = column + 1;
    }
    if (end > 0)
        add(first, end);
}

QRegion ChangedTiles::region() const
{
    std::vector<QRect> runs;  // in the order that a region asks for
    for (int row = 0; row < rows; ++row)
        addRuns(runs, row);
    QRegion region;
    region.setRects(runs.data(), static_cast<int>(runs.size()));
    return region;
}
