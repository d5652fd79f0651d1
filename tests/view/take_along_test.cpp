// What is on show as a picture file, on the clipboard, and on pages.

#include <QClipboard>
#include <QGuiApplication>
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
