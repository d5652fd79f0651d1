// The light of an observing site: every window of the program in one red, on black.
#pragma once

#include <QGraphicsEffect>
#include <QImage>
#include <QObject>
#include <QPalette>

class QWidget;

/// Shows each pixel of a window in red alone, as bright as it is light, up to a brightest red.
class RedGlass : public QGraphicsEffect
{
    Q_OBJECT

public:
    /// `level` is the brightest red that is shown, 0 to 255. The window must outlive the glass.
    RedGlass(const QWidget* over, int level) : window(over), brightest(level) {}

protected:
    void draw(QPainter* painter) override;

private:
    QImage sourceImage(QPoint& corner) const;

    const QWidget* window;
    int brightest;
};

/// Lays that glass over all windows of the program, those to come included, and gives them a dark palette. What other
/// programs draw stays as it is: the frames of windows, pointers, dialogs of the desktop, which are not used meanwhile.
class RedLight : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~RedLight() override { turn(false); }

    /// A `level` from `faintest` to 255.
    void turn(bool on, int level = usual);
    static constexpr int faintest = 40, usual = 200;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    bool lit = false;
    int brightest = usual;
    QPalette before;
    bool nativeBefore = true;  // whether dialogs of the desktop were used
};
