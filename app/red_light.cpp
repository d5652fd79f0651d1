#include "app/red_light.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QWidget>

namespace {

/// How light a pixel looks, 0 to 255. A pure colour counts for more than its luminance, or blue would vanish.
int lightness(QRgb pixel)
{
    const int pure = std::max({qRed(pixel), qGreen(pixel), qBlue(pixel)}) * 3 / 5;
    return std::max(qGray(pixel), pure);
}

QPalette darkPalette()
{
    constexpr QColor text(230, 230, 230), window(24, 24, 24), base(8, 8, 8), button(40, 40, 40), faint(110, 110, 110);
    QPalette dark(text, button, QColor(90, 90, 90), QColor(4, 4, 4), QColor(60, 60, 60), text, Qt::white, base,
                  window);
    dark.setColor(QPalette::Highlight, QColor(120, 120, 120));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::AlternateBase, window);
    dark.setColor(QPalette::ToolTipBase, window);
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::PlaceholderText, faint);
    dark.setColor(QPalette::Link, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, faint);
    return dark;
}

void cover(QWidget* window, int level)
{
    if (!qobject_cast<RedGlass*>(window->graphicsEffect()))
        window->setGraphicsEffect(new RedGlass(window, level));
}

}  // namespace

/// What would be seen without the glass; the ground of a window is not part of the source.
QImage RedGlass::sourceImage(QPoint& corner) const
{
    const QPixmap seen = sourcePixmap(Qt::DeviceCoordinates, &corner, NoPad);
    QImage picture(seen.size(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(seen.devicePixelRatio());
    picture.fill(window->testAttribute(Qt::WA_TranslucentBackground) ? QColor(Qt::transparent)
                                                                     : window->palette().color(QPalette::Window));
    QPainter(&picture).drawPixmap(0, 0, seen);
    return picture.convertToFormat(QImage::Format_ARGB32);
}

void RedGlass::draw(QPainter* painter)
{
    QPoint corner;
    QImage picture = sourceImage(corner);
    for (int y = 0; y < picture.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::transform(row, row + picture.width(), row,
                       [this](QRgb pixel) { return qRgba(lightness(pixel) * brightest / 255, 0, 0, qAlpha(pixel)); });
    }
    const QTransform world = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawImage(corner, picture);
    painter->setWorldTransform(world);
}

void RedLight::turn(bool on, int level)
{
    if (on == lit)
        return;
    lit = on;
    brightest = std::clamp(level, faintest, 255);
    if (on) {
        before = QApplication::palette();
        nativeBefore = !QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs);
        QApplication::setPalette(darkPalette());
        qApp->installEventFilter(this);
    } else {
        QApplication::setPalette(before);
        qApp->removeEventFilter(this);
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, on || !nativeBefore);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (on)
            cover(window, brightest);
        else if (qobject_cast<RedGlass*>(window->graphicsEffect()))
            window->setGraphicsEffect(nullptr);
    }
}

/// A window is covered before it is seen for the first time.
bool RedLight::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Polish || event->type() == QEvent::Show) {
        auto* const widget = qobject_cast<QWidget*>(watched);
        if (widget && widget->isWindow())
            cover(widget, brightest);
    }
    return false;
}
