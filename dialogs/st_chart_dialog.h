// The window with the chart of a pass.
#pragma once

#include <QDialog>
#include <QWidget>
#include <optional>

#include "dialogs/pass_chart_drawing.h"

class QLabel;

/// The drawing as a widget that tells which point the pointer or the arrow keys mean.
class PassChartView : public QWidget
{
    Q_OBJECT

public:
    explicit PassChartView(const PassChart& shown, QWidget* parent = nullptr);

    QSize sizeHint() const override { return (passChartSize * 0.8).toSize(); }
    std::optional<std::size_t> marked() const { return mark; }
    void setMark(std::optional<std::size_t> index);

Q_SIGNALS:
    void read(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double scale() const;
    QPointF corner() const;

    const PassChart& chart;
    std::optional<std::size_t> mark;
};

class StChartDialog : public QDialog
{
    Q_OBJECT

public:
    explicit StChartDialog(PassChart shown, QWidget* parent = nullptr);

    /// As SVG if the name ends so, else as PNG, `passChartSize` times two. @return  false with the file unchanged
    static bool save(const PassChart& chart, const QString& name, QString& why);
    /// As a page of PDF.
    static bool print(const PassChart& chart, const QString& name, QString& why);

private Q_SLOTS:
    void savePicture();
    void printChart();
    void printToPdf();

private:
    QString askName(const QString& caption, const QString& filter, const QString& ending);

    const PassChart chart;
    PassChartView* plot = nullptr;
    QLabel* readingLabel = nullptr;
};
