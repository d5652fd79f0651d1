// Which parts of the display a plot has to draw anew.
#pragma once

#include <bitset>
#include <cstddef>
#include <vector>

#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>

/// The size of the display of maps.
constexpr QSize displaySize(860, 501);

/// The square tiles of the display that hold a change, with a margin of one pixel.
class ChangedTiles
{
public:
    void add(const QRect& box);
    void add(const QPoint& pixel) { add(QRect(pixel, QSize(1, 1))); }
    void add(const ChangedTiles& others) { tiles |= others.tiles; }
    void addAll() { tiles.set(); }
    void clear() { tiles.reset(); }
    bool isEmpty() const { return tiles.none(); }

    /// The tiles as rectangles, with the gaps between near ones.
    QRegion region() const;

    /// Whether the borders of tiles are borders of pixels on a screen with this scale. They are at all quarters; at
    /// others a part painted anew would not fit the rest.
    static bool fit(double scale) { return scale * side == static_cast<int>(scale * side); }

private:
    static constexpr int side = 8;
    static constexpr int columns = (displaySize.width() + side - 1) / side;
    static constexpr int rows = (displaySize.height() + side - 1) / side;

    void addRuns(std::vector<QRect>& runs, int row) const;
    static constexpr std::size_t index(int row, int column)
    {
        return static_cast<std::size_t>(row) * columns + static_cast<std::size_t>(column);
    }
    bool has(int column, int row) const { return tiles[index(row, column)]; }

    std::bitset<static_cast<std::size_t>(columns* rows)> tiles;
};
