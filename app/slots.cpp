// The slots of the other menus, in their order: a message, the timer if the command calculates, one method of the view,
// "Ready.".

#include "app/vorlix_app.h"

#include <QAction>
#include <QFile>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include "dialogs/st_quick_dialog.h"
#include "record/further_settings.h"
#include "record/progress.h"
#include "record/winp_data.h"
#include "view/message_boxes.h"
#include "view/vorlix_view.h"

namespace {

constexpr int realTimeMilliseconds = 980;
constexpr int deltaMilliseconds = 1;

/// So that the frame of the window does not cut its title: room for the title and for the buttons beside it.
void widenForTitle(QMessageBox& box)
{
    constexpr int frameButtonsPixels = 160;
    const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + frameButtonsPixels;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

void VorlixApp::slotInputSelectSat()
{
    showStatus(tr("Select satellite..."));
    view->vSelectSat();
    showStatus(tr("Ready."));
}

void VorlixApp::slotInputRemoveSat()
{
    showStatus(tr("Remove satellite..."));
    view->vRemoveSat();
    showStatus(tr("Ready."));
}

void VorlixApp::slotInputNextSat()
{
    showStatus(tr("Next satellites to pass..."));
    slotStopTime();
    const int found = view->vNextSat();
    if (found == calculationCancelled)
        return;
    if (found < 1) {
        warnWithCancel(this, found < 0 ? tr("Unable to open TLE file") : tr("No suitable satellites found"));
        showStatus(tr("Failed to find next satellites."));
        return;
    }
    slotPlotRT();
    showStatus(tr("Ready."));
}

void VorlixApp::slotInputDate()
{
    showStatus(tr("Input the Date and Time..."));
    const bool cancelled = view->vInputDate() != 0;
    showStatus(cancelled ? tr("Input cancelled.") : tr("Ready."));
}

void VorlixApp::slotInputLocation()
{
    showStatus(tr("Input the location..."));
    const bool cancelled = view->vInputLocation() != 0;
    showStatus(cancelled ? tr("Input cancelled.") : tr("Ready."));
}

void VorlixApp::slotInputIers()
{
    showStatus(tr("Set IERS Parameters..."));
    view->vSetIERS();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcAOS()
{
    showStatus(tr("List satellite passes..."));
    slotStopTime();
    view->vCalcAOS();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcAllSats()
{
    showStatus(tr("List all satellite passes..."));
    slotStopTime();
    view->vAllSat();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcOrbitTrack()
{
    slotStopTime();
    view->vOrbitTrack();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcIridium()
{
    showStatus(tr("List Iridium Flares..."));
    slotStopTime();
    view->vIridium();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcMatch()
{
    showStatus(tr("Find matching satellites..."));
    slotStopTime();
    view->vMatch();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvEdit()
{
    showStatus(tr("Edit orbit elements"));
    slotStopTime();
    view->vEditOrb();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvDeltaV()
{
    showStatus(tr("Delta-V maneuver"));
    slotStopTime();
    view->vDeltaV();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvLaunch()
{
    showStatus(tr("Launch orbit"));
    slotStopTime();
    view->vLaunch();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvRendz()
{
    showStatus(tr("Rendezvous Launch orbit"));
    slotStopTime();
    view->vRendz();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvOrbDet()
{
    showStatus(tr("Orbit determination"));
    slotStopTime();
    view->vOrbDet();
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotRT()
{
    showStatus(tr("Real Time plot"));
    startOrStop(1, realTimeMilliseconds);
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotDelta()
{
    showStatus(tr("Delta Time plot"));
    startOrStop(2, deltaMilliseconds);
    showStatus(tr("Ready."));
}

/// A command of either kind stops a running timer of any kind.
void VorlixApp::startOrStop(int mode, int milliseconds)
{
    if (tmmode != 0) {
        timer->stop();
        tmmode = 0;
    } else {
        tmmode = mode;
        timer->start(milliseconds);
    }
    view->vTmCheck(tmmode);
}

void VorlixApp::slotStopTime()
{
    if (tmmode == 0)
        return;
    tmmode = 0;
    timer->stop();
    view->vTmCheck(0);
}

void VorlixApp::slotTmCheck()
{
    if (tmmode == 1)
        view->RT_Plot();
    if (tmmode == 2 && view->PlotDelta() != 0)
        slotStopTime();
}

void VorlixApp::slotPlotCurrent()
{
    showStatus(tr("Plot current position"));
    slotStopTime();
    view->vCurrent();
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotNext()
{
    showStatus(tr("Next pass"));
    slotStopTime();
    view->vPlotNext();
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotLast()
{
    showStatus(tr("Last pass"));
    slotStopTime();
    view->vPlotLast();
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotForward()
{
    showStatus(tr("Step forward"));
    slotStopTime();
    view->vForward();
    showStatus(tr("Ready."));
}

void VorlixApp::slotPlotBackward()
{
    showStatus(tr("Step backward"));
    slotStopTime();
    view->vBackward();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewRefresh()
{
    showStatus(tr("Refresh screen"));
    scrollHome();
    view->vRefreshP();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewSwitch()
{
    showStatus(tr("Switch prime satellite"));
    view->vSwitch();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewMap()
{
    showStatus(tr("Select world map or sky map parameters."));
    if (view->vMapDialog())
        view->showNewMap(!timer->isActive());
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewText()
{
    showStatus(tr("Show last text display."));
    slotStopTime();
    view->vText();
    scrollHome();
    view->goHome();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewNames(bool on)
{
    showStatus(tr("Show satellite names."));
    view->vNames(on);
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewPicture(bool on)
{
    showStatus(tr("Show loaded picture."));
    slotStopTime();
    view->vPicSwitch(on);
    scrollHome();
    view->goHome();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewVisibility()
{
    showStatus(tr("Set visibility parameters."));
    view->vVisibility();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewStep()
{
    showStatus(tr("Change time step."));
    view->vStep();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewMagnitude()
{
    showStatus(tr("Set apparent magnitude parameter."));
    view->vMag();
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewFontSize()
{
    showStatus(tr("Specify the font size..."));
    bool accepted = false;
    const int size =
        QInputDialog::getInt(this, tr("Font Size"), tr("Specify font size for display"), fntsz, 8, 12, 2, &accepted);
    if (accepted) {
        fntsz = size;
        view->setFont(size);
    }
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewLeft(bool on)
{
    showStatus(tr("Enable left mouse button."));
    view->vLeft(on);
    showStatus(tr("Ready."));
}

void VorlixApp::slotSettThorough(bool on)
{
    showStatus(tr("Thorough search."));
    view->vThorough(on);
    openFurtherSettings().setValue(thoroughKey, on);
    showStatus(tr("Ready."));
}

void VorlixApp::slotSettModels()
{
    showStatus(tr("Set models."));
    view->vModels();
    showStatus(tr("Ready."));
}

void VorlixApp::setPictureSize(int code)
{
    picsize = code;
    view->vImage(code);
}

void VorlixApp::size25()
{
    setPictureSize(3);
}

void VorlixApp::size50()
{
    setPictureSize(2);
}

void VorlixApp::normalSize()
{
    setPictureSize(0);
}

void VorlixApp::slotViewToolBar(bool toggle)
{
    showStatus(tr("Toggle toolbar..."));
    toolBar->setVisible(toggle);
    showStatus(tr("Ready."));
}

void VorlixApp::slotViewStatusBar(bool toggle)
{
    showStatus(tr("Toggle statusbar..."));
    statusBar()->setVisible(toggle);
    showStatus(tr("Ready."));
}

void VorlixApp::slotSettSysConf()
{
    showStatus(tr("Set system parameters."));
    view->vSysConf();
    showStatus(tr("Ready."));
}

void VorlixApp::slotHelpAbout()
{
    QMessageBox box(QMessageBox::Information, tr("About..."), tr("Vorlix\nVersion 11.8"), QMessageBox::Ok, this);
    box.setIconPixmap(windowIcon().pixmap(32, 32));
    widenForTitle(box);
    box.exec();
}

void VorlixApp::slotQuickHelp()
{
    showStatus(tr("Provide general help with Vorlix"));
    StQuickDialog dialog(this);
    QFile manual(":/vorlixHelp.txt");
    if (!manual.open(QIODevice::ReadOnly | QIODevice::Text)) {
        showStatus(tr("*** ERROR ***  unable to open Help file"));
        return;
    }
    while (!manual.atEnd()) {
        QString line = QString::fromUtf8(manual.readLine());
        if (line.endsWith(QLatin1Char('\n')))
            line.chop(1);
        dialog.setHelpLine(line);
        dialog.setHelpLine("\n");
    }
    dialog.setHelpLine("$$$");
    dialog.exec();
    showStatus(tr("Ready."));
}
