// What is on show as a picture file, on the clipboard, and on pages.

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

#include "record/wout_data.h"
#include "view/view_fixture.h"

namespace {

/// Pages of a PDF as this library writes it: their objects are not packed.
qsizetype pagesOf(const QByteArray& pdf)
{
    return pdf.startsWith("%PDF-") ? pdf.count("/Type /Page\n") : 0;
}

}  // namespace

class TakeAlongTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        windows::observeAllFromVienna();
        windows::select("ISS");
    }
    void cleanup() { close(); }

    void aPictureIsWhatIsOnShow()
    {
        view->vCalcAOS();
        const QImage page = view->pictureOnShow(), whole = view->textPixmap().toImage();
        QCOMPARE(page, whole.copy(page.rect()));
        QImage rest = whole;
        for (int y = 0; y < page.height(); ++y)
            std::fill_n(reinterpret_cast<QRgb*>(rest.scanLine(y)), page.width(), 0xffffffff);
        QImage blank(whole.size(), whole.format());
        blank.fill(Qt::white);
        QCOMPARE(rest, blank);  // no letter is cut

        view->vRefreshP();
        view->vZoom(1.5);
        const QString name = place->path("map.png");
        QVERIFY(view->vSavePicture(name));
        QCOMPARE(QImage(name).size(), QSize(1082, 752));
        const QImage saved = QImage(name).convertToFormat(QImage::Format_RGB32);
        QVERIFY(saved == shownImage().copy(saved.rect()).convertToFormat(QImage::Format_RGB32));
        view->vCopyPicture();
        QCOMPARE(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), saved);
    }

    /// Block by block as dark as on the screen.
    void aDrawingLooksLikeThePicture()
    {
        view->vCalcAOS();
        for (const char* what : {"report", "map", "sky"}) {
            indata->skymap = QString(what) == "sky";
            if (QString(what) != "report")
                view->vRefreshP();
            const QString name = place->path(QString("%1.svg").arg(what));
            QVERIFY(view->vSavePicture(name));
            const QImage shown = view->pictureOnShow().convertToFormat(QImage::Format_RGB32);
            QImage drawn(shown.size(), QImage::Format_RGB32);
            QSvgRenderer svg(name);
            QCOMPARE(svg.viewBox().size(), shown.size());
            QPainter painter(&drawn);
            svg.render(&painter);
            painter.end();
            constexpr int side = 20, close = 30;
            for (int y = 0; y + side < shown.height(); y += side)
                for (int x = 0; x + side < shown.width(); x += side) {
                    const QRect block(x, y, side, side);
                    const int a = qGray(shown.copy(block).scaled(1, 1, {}, Qt::SmoothTransformation).pixel(0, 0));
                    const int b = qGray(drawn.copy(block).scaled(1, 1, {}, Qt::SmoothTransformation).pixel(0, 0));
                    QVERIFY2(std::abs(a - b) < close,
                             qPrintable(QString("%1 %2,%3: %4 %5").arg(what).arg(x).arg(y).arg(a).arg(b)));
                }
        }
    }

    void aFileThatCannotBeWrittenIsTold()
    {
        for (const bool pdf : {true, false}) {
            bool written = true;
            const QString name = place->path("nowhere/file");
            const QStringList boxes =
                windows::told([&] { written = pdf ? view->vPrintToPdf(name) : view->vSavePicture(name); });
            QVERIFY(!written && boxes.value(0).contains(name));
        }
    }

    void aLongReportTakesMorePages()
    {
        outdata->nlines = 0;
        for (const auto& [lines, pages] : {std::pair{20, 1}, {160, 3}}) {
            while (outdata->nlines < lines)
                PutNxtLn(outdata, "a line");
            view->showtxt(true);
            QVERIFY(view->vPrintToPdf(place->path("report.pdf")));
            QCOMPARE(pagesOf(place->read("report.pdf")), pages);
        }
        view->vRefreshP();
        const QImage shown = shownImage();
        QVERIFY(view->vPrintToPdf(place->path("map.pdf")));
        QCOMPARE(pagesOf(place->read("map.pdf")), 1);
        QCOMPARE(shownImage(), shown);
    }
};

QTEST_MAIN(TakeAlongTest)
#include "take_along_test.moc"
