#include "dialogs/st_horizon_dialog.h"

#include "dialogs/form.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPainter>
#include <QPolygonF>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

namespace {

constexpr int labelPixels = 18;  // below the panorama
constexpr double topDeg = 90.0;  // of the panorama
constexpr double bottomDeg = -5.0;

/// The pixel of a direction in the panorama.
QPointF pixelAt(const QRectF& box, double azimuth, double elevation)
{
    return {box.left() + azimuth / 360.0 * box.width(),
            box.bottom() - (elevation - bottomDeg) / (topDeg - bottomDeg) * box.height()};
}

}  // namespace

HorizonPlot::HorizonPlot(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(480, 150);
    setObjectName(QStringLiteral("horizonPlot"));
    setAccessibleName(tr("Horizon as a picture"));
    setWhatsThis(tr("The panorama from North over East, South and West to North again, up to the zenith. Satellites "
                    "behind the filled part are not listed."));
}

void HorizonPlot::setLine(std::shared_ptr<const HorizonLine> shownLine)
{
    line = std::move(shownLine);
    update();
}

void HorizonPlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -labelPixels);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRect(box);
    for (const double elevation : {0.0, 30.0, 60.0})
        painter.drawLine(pixelAt(box, 0.0, elevation), pixelAt(box, 360.0, elevation));
    if (line) {
        QPolygonF ground{box.bottomLeft()};
        for (const HorizonLine::Point& corner : line->points())
            ground << pixelAt(box, corner.azimuth, std::max(corner.elevation, bottomDeg));
        ground << box.bottomRight();
        painter.setPen(palette().color(QPalette::Text));
        painter.setBrush(QBrush(palette().color(QPalette::Text), Qt::Dense5Pattern));
        painter.drawPolygon(ground);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const QString names[] = {tr("N"), tr("E"), tr("S"), tr("W"), tr("N")};
    for (int k = 0; k < 5; ++k) {
        const double x = std::clamp(box.left() + k * box.width() / 4.0, 8.0, width() - 8.0);
        painter.drawText(QRectF(x - 8.0, box.bottom() + 1.0, 16.0, labelPixels - 1.0), Qt::AlignCenter, names[k]);
    }
}

StHorizonDialog::StHorizonDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Horizon"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    fileEdit = form::addTextEdit(
        rows, "fileEdit", tr("&File:"),
        {tr("A text file of azimuth and elevation in degrees, one pair in a line, azimuth from North through East; "
            "lines of # are comments. Also a list of pairs in brackets. Leave it empty for a plain horizon."),
         tr("Azimuth and elevation in degrees; empty: a plain horizon")});
    QPushButton* browseButton = form::addButton(rows, "browseButton", tr("Bro&wse..."), nullptr,
                                                {tr("Chooses the file with the horizon of your place.")});
    QPushButton* noneButton = form::addButton(rows, "noneButton", tr("&None"), nullptr,
                                              {tr("Goes back to a plain horizon, with the least elevation alone.")});
    column->addLayout(rows);
    plot = new HorizonPlot;
    column->addWidget(plot, 1);
    contentLabel = form::addText(column, "contentLabel", QString());
    contentLabel->setWordWrap(true);
    form::finish(this, column);
    connect(browseButton, &QPushButton::clicked, this, &StHorizonDialog::browse);
    connect(noneButton, &QPushButton::clicked, fileEdit, &QLineEdit::clear);
    connect(fileEdit, &QLineEdit::textChanged, this, &StHorizonDialog::read);
    read();
}

void StHorizonDialog::setFile(const QString& name)
{
    fileEdit->setText(name);
}

QString StHorizonDialog::file() const
{
    return fileEdit->text().trimmed();
}

void StHorizonDialog::browse()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("File with the Horizon"), file());
    if (!name.isEmpty())
        fileEdit->setText(name);
}

void StHorizonDialog::read()
{
    shown = file().isEmpty() ? HorizonText() : readHorizonFile(file());
    plot->setLine(shown.line);
    if (file().isEmpty())
        contentLabel->setText(tr("A plain horizon: the least elevation set under Visibility counts everywhere."));
    else if (!shown.line)
        contentLabel->setText(tr("No horizon: %1.").arg(QString::fromStdString(shown.complaint)));
    else
        contentLabel->setText(
            tr("From %1 to %2 degrees of elevation. Where it is higher than the least elevation, it "
               "takes its place.")
                .arg(shown.line->lowest(), 0, 'f', 1)
                .arg(shown.line->highest(), 0, 'f', 1));
}

void StHorizonDialog::accept()
{
    read();
    if (file().isEmpty() || shown.line)
        QDialog::accept();
    else
        form::say(this, contentLabel->text());
}
