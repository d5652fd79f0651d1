// The slots of the commands for how the canvas looks.

#include "app/vorlix_app.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QAction>
#include <QEvent>
#include <QInputDialog>
#include <QScrollArea>

#include "app/age_strip.h"
#include "app/red_light.h"
#include "record/further_settings.h"
#include "view/vorlix_view.h"

namespace {

constexpr std::array steps{1.0, 1.25, 1.5, 2.0, 2.5, 3.0};

int percent(double factor)
{
    return static_cast<int>(std::lround(100.0 * factor));
}

}  // namespace

void VorlixApp::slotViewReadable(bool on)
{
    showStatus(tr("Readable colours."));
    view->vReadable(on);
    openFurtherSettings().setValue(readableKey, on);
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewRed(bool on)
{
    showStatus(tr("Red light."));
    redLight->turn(on, openFurtherSettings().value(redLevelKey, RedLight::usual).toInt());
    view->vNight(on);
    openFurtherSettings().setValue(redKey, on);
    showStatus(tr("Ready."));
}

void VorlixApp::showAges(bool on, double uncertainty)
{
    view->vAges(on, uncertainty);
    ageStrip->setVisible(on);
    ageStrip->tell();
}

/// Asks how sure decay rates are when it is switched on; without an answer it stays off.
void VorlixApp::slotViewAge(bool on)
{
    showStatus(tr("Age of elements."));
    QSettings settings = openFurtherSettings();
    double uncertainty = settings.value(uncertaintyKey, usualDecayUncertainty).toDouble();
    bool accepted = true;
    if (on)
        uncertainty = QInputDialog::getDouble(
            this, tr("Age of Elements"),
            tr("Uncertainty of the decay rate, a share of it (0.1 in quiet times, more while the Sun is active):"),
            uncertainty, 0.01, 10.0, 2, &accepted);
    on = on && accepted;
    viewAge->setChecked(on);
    settings.setValue(ageKey, on);
    settings.setValue(uncertaintyKey, uncertainty);
    showAges(on, uncertainty);
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewLarger()
{
    const auto* const next = std::ranges::upper_bound(steps, view->zoomFactor());
    chooseSize(next == steps.end() ? steps.back() : *next);
}

void VorlixApp::slotViewSmaller()
{
    const auto* const here = std::ranges::lower_bound(steps, view->zoomFactor());
    chooseSize(here == steps.begin() ? steps.front() : *std::prev(here));
}

void VorlixApp::slotViewOriginalSize()
{
    chooseSize(steps.front());
}

void VorlixApp::slotViewFit(bool on)
{
    showStatus(tr("Change the size."));
    openFurtherSettings().setValue(fitKey, on);
    if (on)
        fitToWindow();
    else
        view->vZoom(openFurtherSettings().value(zoomKey, percent(steps.front())).toInt() / 100.0);
    tellSize();
}

/// One of the steps, which ends a size that follows the window.
void VorlixApp::chooseSize(double factor)
{
    showStatus(tr("Change the size."));
    openFurtherSettings().setValue(zoomKey, percent(factor));
    viewFit->setChecked(false);
    view->vZoom(factor);
    tellSize();
}

void VorlixApp::tellSize()
{
    showStatus(tr("Size: %1 %").arg(percent(view->zoomFactor())));
}

void VorlixApp::restoreSize()
{
    if (const int kept = openFurtherSettings().value(zoomKey).toInt(); kept > percent(steps.front()))
        view->vZoom(kept / 100.0);
    viewFit->setChecked(openFurtherSettings().value(fitKey).toBool());
}

void VorlixApp::fitToWindow()
{
    view->vZoom(VorlixView::zoomFor(scrollArea->maximumViewportSize()));
}

bool VorlixApp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == scrollArea && event->type() == QEvent::Resize && viewFit->isChecked())
        fitToWindow();
    return QMainWindow::eventFilter(watched, event);
}
