#include "view/painting.h"

#include <cmath>

QPixmap pixmapOf(const QSize& size, double scale)
{
    const auto pixels = [scale](int side) { return static_cast<int>(std::ceil(side * scale)); };
    QPixmap pixmap(pixels(size.width()), pixels(size.height()));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

void copyPart(QPainter& painter, const QPixmap& from, const QRect& part)
{
    const double scale = from.devicePixelRatio();
    if (scale == 1.0) {
        const QRect source = part & from.rect();
        painter.drawPixmap(source, from, source);
        return;
    }
    const auto pixel = [scale](int x) { return qRound(x * scale); };
    const QRect pixels(QPoint(pixel(part.left()), pixel(part.top())),
                       QPoint(pixel(part.left() + part.width()) - 1, pixel(part.top() + part.height()) - 1));
    const QRect source = pixels & from.rect();
    painter.drawPixmap(QRectF(QPointF(source.topLeft()) / scale, QSizeF(source.size()) / scale), from, source);
}
