// The slots of the commands for observers.

#include "app/vorlix_app.h"

#include "view/vorlix_view.h"

void VorlixApp::slotInputStation()
{
    showStatus(tr("Set the observing station..."));
    view->vStation();
    showStatus(tr("Ready."));
}

void VorlixApp::slotInputHorizon()
{
    showStatus(tr("Set the horizon of the place..."));
    view->vHorizon();
    showStatus(tr("Ready."));
}

void VorlixApp::slotFileObservation()
{
    showStatus(tr("Saving an observation..."));
    view->vSaveObservation();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcBrightest()
{
    showStatus(tr("Searching the brightest passes..."));
    slotStopTime();
    view->vBrightest();
    showStatus(tr("Ready."));
}

void VorlixApp::slotSettMagnitudes()
{
    showStatus(tr("Set the source of magnitudes..."));
    view->vMagnitudes();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcField()
{
    showStatus(tr("Searching passes through a field..."));
    slotStopTime();
    view->vFieldPasses();
    showStatus(tr("Ready."));
}

void VorlixApp::slotCalcPicture()
{
    showStatus(tr("Searching the satellites in the picture..."));
    slotStopTime();
    view->vPictureSatellites();
    showStatus(tr("Ready."));
}

void VorlixApp::slotManvFit()
{
    showStatus(tr("Fitting elements to observations..."));
    slotStopTime();
    view->vFitElements();
    showStatus(tr("Ready."));
}
