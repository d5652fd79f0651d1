// The slots of the File and Edit menus.

#include "app/vorlix_app.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QInputDialog>
#include <QStatusBar>
#include <cmath>

#include "elements/download.h"
#include "elements/element_sources.h"
#include "record/clock.h"
#include "record/progress.h"
#include "record/winp_data.h"
#include "view/message_boxes.h"
#include "view/vorlix_view.h"

namespace {

QString elementFileFilter()
{
    return VorlixApp::tr("TLE files (*.txt *.TXT *.tle *.TLE);;all files (*.*)");
}

QString messagesFilter()
{
    return VorlixApp::tr("OMM CSV (*.csv)");
}

/// The forms in which elements are saved; the ending of the name tells which.
QString elementSaveFilters()
{
    return VorlixApp::tr("TLE files (*.txt *.TXT *.tle *.TLE)") + QStringLiteral(";;") + messagesFilter() +
           VorlixApp::tr(";;all files (*.*)");
}

constexpr double minutesPerDay = 1440.0;
}  // namespace

void VorlixApp::slotFileOpen()
{
    showStatus(tr("Opening TLE file..."));
    const QString name = QFileDialog::getOpenFileName(this, tr("TLE file dialog"), TLEname, elementFileFilter());
    if (name.isEmpty()) {
        showStatus(tr("*** TLE file not selected ***"));
        return;
    }
    TLEname = name;
    view->setTLEname(TLEname);
    showStatus(tr("Ready."));
}

void VorlixApp::slotFileUpdate()
{
    showStatus(tr("Online TLE file update"));
    if (download->isUpdating()) {
        const QString text = tr("Another online update still in progress.");
        if (warnOrEnd(this, tr("Online Update"), text, tr("&End It")))
            download->cancel();
        return;
    }
    AddressParts parts;
    if (view->vUpdate(parts.host, parts.path, parts.file) != 0)
        return;
    if (!maybeAskAgain(parts.host + parts.path))
        return;
    offerLeftover(parts.file);
    fetch(parts, false);
}

/// Whether to ask a server that has been asked just now.
bool VorlixApp::maybeAskAgain(const QString& address)
{
    const double now = nowMjd();
    if (!askedJustNow(address, now))
        return true;
    const int minutes = static_cast<int>(std::lround((now - lastUpdate(address)->mjd) * minutesPerDay));
    return agrees(
        this, tr("Online Update"),
        tr("This address was asked for elements %1 minutes ago. Services renew them no more often than every "
           "two hours, and may shut out those who ask more often.\n\nAsk again?")
            .arg(minutes));
}

void VorlixApp::fetch(const AddressParts& parts, bool byItself)
{
    askedAddress = parts.host + parts.path;
    askedByItself = byItself;
    if (download->start(parts) != Download::Start::running) {
        const QString why = tr("Cannot write file %1\n%2.").arg(parts.file, download->errorString());
        byItself ? tellAtStart(why.simplified()) : warn(this, tr("HTTP Get"), why);
        return;
    }
    keepLastUpdate(askedAddress, {nowMjd(), false});
    if (!byItself) {
        StartUpdate update = startUpdate();
        update.address = askedAddress;
        update.file = parts.file;
        keepStartUpdate(update);
    }
    showStatus(byItself ? tr("Fetching new elements...") : tr("Ready."));
}

void VorlixApp::slotUpdateAtStart(bool on)
{
    showStatus(tr("Set the update at start..."));
    StartUpdate update = startUpdate();
    update.on = on;
    bool accepted = true;
    if (on)
        update.days = QInputDialog::getDouble(
            this, tr("Update at Start"), tr("Fetch elements at the start of the program that are older than (days):"),
            update.days, 0.1, 365.0, 1, &accepted);
    if (accepted)
        keepStartUpdate(update);
    fileUpdateAtStart->setChecked(accepted ? on : false);
    if (on && accepted && update.address.isEmpty())
        inform(this, tr("Update at Start"),
               tr("It begins with the address of the next \"Online TLE Update\", which has not been used yet."));
    showStatus(tr("Ready."));
}

void VorlixApp::updateAtStart()
{
    const StartUpdate update = startUpdate();
    if (!update.on || download->isUpdating() ||
        !updateDue(update, newestEpoch(QFile::encodeName(update.file).constData()), nowMjd()))
        return;
    AddressParts parts = addressParts(update.address);
    parts.file = update.file;
    fetch(parts, true);
}

void VorlixApp::slotSettSources()
{
    showStatus(tr("Set the sources of elements..."));
    view->vElementSources();
    showStatus(tr("Ready."));
}

void VorlixApp::offerLeftover(const QString& elementFile)
{
    if (elementFile.isEmpty() || download->isUpdating() || !leftover::exists(elementFile))
        return;
    const QString title = tr("Online Update");
    const QString question =
        tr("The program ended during an earlier update. The lines that were to be replaced are in "
           "satwwwsave.tmp and differ from %1.\n\nPut them into this file?");
    if (agrees(this, title, question.arg(elementFile))) {
        const QString why = leftover::restore(elementFile);
        if (!why.isEmpty())
            warn(this, title, nothingWritten(elementFile, why));
    } else {
        inform(this, title, tr("They are kept in %1.").arg(leftover::keep()));
    }
}

void VorlixApp::httpDone(bool error)
{
    if (error && download->isRefused())
        keepLastUpdate(askedAddress, {nowMjd(), true});
    if (askedByItself)
        tellAtStart(error ? tr("No new elements: %1.").arg(download->errorString())
                          : tr("New elements in %1.").arg(download->fileName()));
    else if (error)
        warn(this, tr("HTTP Get"), tr("Error fetching file with HTTP: %1.").arg(download->errorString()));
    else
        inform(this, tr("HTTP Get"), tr("Download complete. File %1.").arg(download->fileName()));
}

void VorlixApp::slotFileSave()
{
    showStatus(tr("Saving AOS times..."));
    slotStopTime();
    view->vFileSave();
    showStatus(tr("Ready."));
}

void VorlixApp::slotFileSaveAs()
{
    showStatus(tr("Saving under new filename..."));
    slotStopTime();
    const QString name =
        QFileDialog::getSaveFileName(this, tr("Select a File Name"), view->getSaveName(), tr("all files (*.*)"));
    if (name.isEmpty()) {
        showStatus(tr("*** Save file not selected ***"));
        return;
    }
    view->setSaveName(name);
    view->vFileSave();
    showStatus(tr("Ready."));
}

/// Adds the ending of the form that was chosen if the name has none; empty if the person changes their mind.
QString VorlixApp::askForExportName()
{
    QString filter;
    const QString name = QFileDialog::getSaveFileName(this, tr("Export"), QString(),
                                                      tr("Comma separated (*.csv);;JSON (*.json);;Calendar (*.ics);;"
                                                         "GeoJSON (*.geojson);;Text (*.txt);;all files (*.*)"),
                                                      &filter);
    const QString ending = filter.section(QStringLiteral("(*"), 1).section(QLatin1Char(')'), 0, 0);
    const bool complete = name.isEmpty() || ending == QLatin1String(".*") || !QFileInfo(name).suffix().isEmpty();
    return complete ? name : withEnding(name, ending, tr("Export"));
}

void VorlixApp::slotFileExport()
{
    showStatus(tr("Exporting the report..."));
    slotStopTime();
    const QString name = askForExportName();
    if (name.isEmpty()) {
        showStatus(tr("*** File not selected ***"));
        return;
    }
    view->vExport(name);
    showStatus(tr("Ready."));
}

void VorlixApp::slotEditCopy()
{
    showStatus(tr("Copying the report..."));
    view->vCopy();
    showStatus(tr("Ready."));
}

void VorlixApp::slotFileTLESave()
{
    showStatus(tr("Saving the TLE's on file..."));
    slotStopTime();
    view->vTLESave();
    showStatus(tr("Ready."));
}

/// A name with its ending; empty if a file of that name is there and the person wants to keep it, since the dialog has
/// asked about the name without the ending only.
QString VorlixApp::withEnding(const QString& name, const QString& ending, const QString& caption)
{
    if (name.endsWith(ending, Qt::CaseInsensitive))
        return name;
    const bool replace =
        !QFile::exists(name + ending) ||
        agrees(this, caption, tr("%1 already exists.\nDo you want to replace it?").arg(name + ending));
    return replace ? name + ending : QString();
}

/// Adds the ending that makes it OMM CSV if that form was chosen; empty if the person changes their mind.
QString VorlixApp::askForElementSaveName()
{
    QString filter;
    const QString name = QFileDialog::getSaveFileName(this, tr("Select a TLE filename"), view->getTSaveName(),
                                                      elementSaveFilters(), &filter);
    if (name.isEmpty() || filter != messagesFilter())
        return name;
    return withEnding(name, QStringLiteral(".csv"), tr("Select a TLE filename"));
}

void VorlixApp::slotFileTLESaveAs()
{
    showStatus(tr("Saving the TLE's under new filename..."));
    slotStopTime();
    const QString name = askForElementSaveName();
    if (name.isEmpty()) {
        showStatus(tr("*** TLE Save File not selected ***"));
        return;
    }
    view->setTSaveName(name);
    view->vTLESave();
    showStatus(tr("Ready."));
}

void VorlixApp::slotFilePicture()
{
    slotStopTime();
    const QString name = QFileDialog::getOpenFileName(
        this, tr("Open Picture"), CFDIR,
        tr("Images ( *.png *.jpg *.bmp);;FITS (*.fits *.fit *.fts *.fz);;all files (*.*)"));
    if (name.isEmpty())
        return;
    CFDIR = QFileInfo(name).absoluteFilePath();
    QString why;
    if (!view->openPicture(name, why)) {  // also beyond what Qt reads, 128 megabytes
        const QString reason = why.isEmpty() ? QString() : '\n' + why;
        inform(this, tr("Vorlix"), tr("Cannot load %1.").arg(name) + reason);
        return;
    }
    for (QAction* action : {viewPicture, viewSize25, viewSize50, viewNormalSize})
        action->setEnabled(true);
    viewPicture->setChecked(true);
    showStatus(tr("Ready."));
}

void VorlixApp::slotFileQuit()
{
    showStatus(tr("Exiting application..."));
    QDir::setCurrent(APPDIR);  // start-up may have moved to the home directory
    slotStopTime();
    view->vQuit();
    QCoreApplication::quit();
}
