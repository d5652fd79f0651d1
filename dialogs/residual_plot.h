// The residuals of a fit as a picture: along the track against across it, and both over time.
#pragma once

#include "observing/fit.h"

#include <QWidget>
#include <vector>

class QPainter;

class ResidualPlot : public QWidget
{
    Q_OBJECT

public:
    explicit ResidualPlot(QWidget* parent = nullptr);

    struct Point
    {
        double mjd = 0;
        double along = 0;  // arc seconds
        double across = 0;
        bool used = true;
    };

    void setPoints(const std::vector<Point>& shown);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawAgainstEachOther(QPainter& painter, const QRectF& box) const;
    void drawOverTime(QPainter& painter, const QRectF& box) const;

    std::vector<Point> points;
    double reach = 1;  // arc seconds from the centre to an edge
};
