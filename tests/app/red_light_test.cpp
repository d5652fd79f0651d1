// Red light: the pixels of every window on the screen.

#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QToolTip>
#include <algorithm>

#include "app/app_helper.h"
#include "app/red_light.h"
#include "record/further_settings.h"

namespace {

QImage onScreen(QWidget* window)
{
    QTest::qWait(30);  // paints
    return window->screen()->grabWindow(window->winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

}  // namespace

class RedLightTest : public AppTest
{
    Q_OBJECT

    /// Nothing but red up to the level, of which something can be read.
    void isRed(const char* what, const QImage& picture, int level = RedLight::usual)
    {
        int brightest = 0, others = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QRgb pixel = picture.pixel(x, y);
                brightest = std::max(brightest, qRed(pixel));
                others = std::max({others, qGreen(pixel), qBlue(pixel)});
            }
        const QString found = QString("%1: red %2, others %3").arg(what).arg(brightest).arg(others);
        if (qEnvironmentVariableIsSet("VORLIX_PICTURES"))
            picture.save(qEnvironmentVariable("VORLIX_PICTURES") + "/" + what + ".png");
        QVERIFY2(others == 0 && brightest <= level && brightest > level / 2, qPrintable(found));
    }

    Answer grabs(const char* what)
    {
        return [this, what](QDialog* dialog) {
            isRed(what, onScreen(dialog));
        };
    }

private Q_SLOTS:
    void init()
    {
        prepare();
        start();
        show();
        windows::observeAllFromVienna();
        windows::select("ISS");
    }
    void cleanup() { close(); }

    void nothingElseIsSeen()
    {
        choose("Ctrl+A");
        const QImage report = onScreen(app.get());
        choose("viewRed");
        isRed("report", onScreen(app.get()));
        choose("viewText");
        for (const auto& [what, sky, projection] :
             {std::tuple{"map", 0, 0}, {"hemisphere", 0, 1}, {"earth", 0, 3}, {"sky", 1, 0}}) {
            indata->skymap = sky;
            (sky ? indata->skyprj : indata->mapprj) = projection;
            canvas()->vRefreshP();
            isRed(what, onScreen(app.get()));
        }
        indata->skymap = 0;
        choose("plotForward");  // paints parts
        isRed("step", onScreen(app.get()));
        choose("inputDate", {grabs("date")});
        choose("viewVisibility", {grabs("visibility")});
        choose("helpQuick", {grabs("help")});
        auto* menu = app->findChild<QMenu*>("viewMenu");
        menu->popup(app->pos());
        isRed("menu", onScreen(menu));
        menu->close();

        QImage photo(600, 400, QImage::Format_RGB32);
        photo.fill(QColor(20, 200, 255));
        canvas()->vPicture(photo);
        canvas()->vPicSwitch(true);
        isRed("picture", onScreen(app.get()));
        canvas()->vPicSwitch(false);
        choose("viewText");
        choose("viewRed");
        QCOMPARE(onScreen(app.get()), report);
    }

    void staysForTheNextTime()
    {
        openFurtherSettings().setValue(redLevelKey, 90);
        choose("viewRed");
        app.reset();
        start();
        show();
        QVERIFY(action("viewRed")->isChecked());
        isRed("level", onScreen(app.get()), 90);
    }
};

QTEST_MAIN(RedLightTest)
#include "red_light_test.moc"
