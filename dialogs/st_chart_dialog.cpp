#include "dialogs/st_chart_dialog.h"

#include <QAccessible>
#include <QBuffer>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "dialogs/form.h"

namespace {

/// As large as the device holds it, in the middle.
void drawOnPage(QPagedPaintDevice& device, const PassChart& chart)
{
    QPainter painter(&device);
    const QRectF page(0, 0, device.width(), device.height());
    const double fit = std::min(page.width() / passChartSize.width(), page.height() / passChartSize.height());
    painter.translate((page.width() - fit * passChartSize.width()) / 2, 0);
    painter.scale(fit, fit);
    drawPassChart(painter, chart, {});
}

QByteArray asSvg(const PassChart& chart)
{
    QBuffer bytes;
    QSvgGenerator svg;
    svg.setOutputDevice(&bytes);
    svg.setSize(passChartSize.toSize());
    svg.setViewBox(QRectF(QPointF(), passChartSize));
    svg.setTitle(chart.title);
    QPainter painter(&svg);
    drawPassChart(painter, chart, {});
    painter.end();
    return bytes.data();
}

QByteArray asPng(const PassChart& chart)
{
    constexpr int sharp = 2;
    QImage picture(passChartSize.toSize() * sharp, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.scale(sharp, sharp);
    drawPassChart(painter, chart, {});
    painter.end();
    QBuffer bytes;
    picture.save(&bytes, "PNG");
    return bytes.data();
}

bool written(const QString& name, const QByteArray& bytes, QString& why)
{
    QSaveFile file(name);
    if (!bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    why = file.errorString();
    return false;
}

}  // namespace

PassChartView::PassChartView(const PassChart& shown, QWidget* parent) : QWidget(parent), chart(shown)
{
    setObjectName(QStringLiteral("passChart"));
    setMinimumSize((passChartSize * 0.6).toSize());
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Chart of the pass"));
    setWhatsThis(tr("The way of the satellite over the sky, North up and East on the left, with a mark at each full "
                    "minute; solid in sunlight, dotted in the shadow of the Earth. Below it elevation, magnitude and "
                    "range over time. The line below tells the values under the pointer; Left, Right, Home and End "
                    "move from point to point."));
}

double PassChartView::scale() const
{
    return std::min(width() / passChartSize.width(), height() / passChartSize.height());
}

QPointF PassChartView::corner() const
{
    return {(width() - scale() * passChartSize.width()) / 2, 0};
}

void PassChartView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.translate(corner());
    painter.scale(scale(), scale());
    drawPassChart(painter, chart, {palette().color(QPalette::Base), palette().color(QPalette::Text)}, mark);
}

void PassChartView::setMark(std::optional<std::size_t> index)
{
    if (!index || index == mark)
        return;
    mark = index;
    update();
    const QString text = chartReading(chart, chart.points[*mark]);
    setAccessibleDescription(text);
    Q_EMIT read(text);
}

void PassChartView::mouseMoveEvent(QMouseEvent* event)
{
    setMark(chartPointAt(chart, (event->position() - corner()) / scale()));
}

void PassChartView::keyPressEvent(QKeyEvent* event)
{
    if (chart.points.empty())
        return;
    const std::size_t here = mark.value_or(chart.highest), last = chart.points.size() - 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return setMark(here > 0 ? here - 1 : 0);
    case Qt::Key_Right:
        return setMark(std::min(here + 1, last));
    case Qt::Key_Home:
        return setMark(0);
    case Qt::Key_End:
        return setMark(last);
    default:
        QWidget::keyPressEvent(event);
    }
}

StChartDialog::StChartDialog(PassChart shown, QWidget* parent) : QDialog(parent), chart(std::move(shown))
{
    setWindowTitle(tr("Chart"));
    auto* column = new QVBoxLayout;
    plot = new PassChartView(chart);
    column->addWidget(plot, 1);
    readingLabel = form::addText(column, "readingLabel", QString());
    auto* buttons = new QHBoxLayout;
    QPushButton* save = form::addButton(buttons, "saveButton", tr("&Save Picture..."), "Alt+S",
                                        {tr("Saves the chart as a picture, PNG or SVG by the ending of the name.")});
    QPushButton* print = form::addButton(buttons, "printButton", tr("&Print..."), "Alt+P", {tr("Prints the chart.")});
    QPushButton* pdf =
        form::addButton(buttons, "pdfButton", tr("Print to P&DF..."), "Alt+D", {tr("Prints the chart into a file.")});
    form::addClose(this, buttons, {tr("Closes the window.")});
    form::finish(this, column, buttons);
    for (QPushButton* button : {save, print, pdf})
        button->setEnabled(!chart.points.empty());
    connect(plot, &PassChartView::read, readingLabel, &QLabel::setText);
    connect(save, &QPushButton::clicked, this, &StChartDialog::savePicture);
    connect(print, &QPushButton::clicked, this, &StChartDialog::printChart);
    connect(pdf, &QPushButton::clicked, this, &StChartDialog::printToPdf);
    if (!chart.points.empty())
        plot->setMark(chart.highest);
    plot->setFocus();
}

bool StChartDialog::save(const PassChart& chart, const QString& name, QString& why)
{
    const bool svg = name.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
    return written(name, svg ? asSvg(chart) : asPng(chart), why);
}

bool StChartDialog::print(const PassChart& chart, const QString& name, QString& why)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&bytes);
        writer.setTitle(chart.title);
        writer.setPageSize(QPageSize(QPageSize::A4));
        drawOnPage(writer, chart);
    }
    return written(name, bytes.data(), why);
}

/// A name with an ending; empty if there is none.
QString StChartDialog::askName(const QString& caption, const QString& filter, const QString& ending)
{
    QFileDialog ask(this, caption, QString(), filter);
    ask.setAcceptMode(QFileDialog::AcceptSave);
    ask.setDefaultSuffix(ending);
    ask.selectFile(QStringLiteral("pass.") + ending);
    return ask.exec() == QDialog::Accepted ? ask.selectedFiles().value(0) : QString();
}

void StChartDialog::savePicture()
{
    const QString name = askName(tr("Save Picture"), tr("Pictures (*.png *.svg)"), QStringLiteral("png"));
    QString why;
    if (!name.isEmpty() && !save(chart, name, why))
        form::say(this, tr("Nothing was written to %1\n%2").arg(name, why));
}

void StChartDialog::printToPdf()
{
    const QString name = askName(tr("Print to PDF"), tr("PDF (*.pdf)"), QStringLiteral("pdf"));
    QString why;
    if (!name.isEmpty() && !print(chart, name, why))
        form::say(this, tr("Nothing was written to %1\n%2").arg(name, why));
}

void StChartDialog::printChart()
{
    QPrinter printer;
    QPrintDialog ask(&printer, this);
    if (ask.exec() == QDialog::Accepted)
        drawOnPage(printer, chart);
}
