// Commands around files: names, saving, the address of an update.

#include "view/vorlix_view.h"

#include <vector>

#include <QInputDialog>

#include "dialogs/st_sources_dialog.h"
#include "elements/download.h"
#include "elements/element_sources.h"
#include "elements/selection.h"
#include "elements/writer.h"
#include "record/keep.h"
#include "record/progress.h"
#include "record/text.h"
#include "reports/orbit_track.h"
#include "reports/save_forms.h"
#include "view/message_boxes.h"

namespace {

/// Name and number of the satellites in these slots, one in a line.
QString namesOf(const std::vector<int>& slotNumbers)
{
    QString names;
    for (const int i : slotNumbers)
        names += QStringLiteral("\n%1 (%2)").arg(vsSatName(i + 1).trimmed()).arg(indata->norad[i]);
    return names;
}

bool agreesToShorten(QWidget* parent, const std::vector<int>& slotNumbers)
{
    const QString text =
        VorlixView::tr("Two Line Elements have no room for these catalogue numbers:%1\n\n"
                       "Save them with the last five digits only? Otherwise these satellites are left "
                       "out. A file of the form OMM CSV holds them whole.");
    return agrees(parent, VorlixView::tr("TLE File Save"), text.arg(namesOf(slotNumbers)));
}

/// Whether a track of so many lines is to be written: a long one is asked about, too long a one refused.
bool agreesToLength(QWidget* parent, double lines)
{
    constexpr double manyLines = 100'000;
    const QString title = VorlixView::tr("Save Orbit Track");
    const QString length = VorlixView::tr("The track would have %1 lines.").arg(lines, 0, 'f', 0);
    if (lines > mostTrackLines) {
        const QString text =
            VorlixView::tr("%1\n\nNo more than %2 are written. Choose a longer time step or a shorter "
                           "time interval.");
        inform(parent, title, text.arg(length).arg(mostTrackLines, 0, 'f', 0));
        return false;
    }
    return lines <= manyLines || agrees(parent, title, VorlixView::tr("%1\n\nWrite it?").arg(length));
}

/// What the message of a save says behind the name of the file.
QString remark(const std::vector<int>& leftOutSlots)
{
    return leftOutSlots.empty() ? QString() : VorlixView::tr("\n\nLeft out:") + namesOf(leftOutSlots);
}

/// What follows in a box that a file could not be written.
QString reasonLines(const std::string& why)
{
    return why.empty() ? QString() : VorlixView::tr("\n\nNothing was written: %1").arg(textQString(why));
}

/// Asks for a line of text, in a window wide enough for a usual address. Empty if it was cancelled.
QString askForLine(QWidget* parent, const QString& label, const QString& proposed, bool& accepted)
{
    QInputDialog dialog(parent);
    dialog.setWindowTitle(VorlixView::tr("Online Update"));
    dialog.setLabelText(label);
    dialog.setTextValue(proposed);
    dialog.resize(dialog.fontMetrics().averageCharWidth() * 80, dialog.sizeHint().height());
    accepted = dialog.exec() == QDialog::Accepted;
    return accepted ? dialog.textValue() : QString();
}

}  // namespace

QString VorlixView::getTLEname() const
{
    const QString name = fieldQString(indata->tlename);
    return name.startsWith(QLatin1Char('*')) ? QString() : name;
}

void VorlixView::setTLEname(const QString& name)
{
    QsToChar(name, indata->tlename, sizeof indata->tlename - 1);
}

QString VorlixView::getSaveName()
{
    vsFileName(indata->savename);
    return fieldQString(indata->savename);
}

void VorlixView::setSaveName(const QString& name)
{
    QsToChar(name, indata->savename, sizeof indata->savename - 1);
    indata->newsave = 1;
}

QString VorlixView::getTSaveName()
{
    vsFileName(indata->tlesave);
    return fieldQString(indata->tlesave);
}

void VorlixView::setTSaveName(const QString& name)
{
    QsToChar(name, indata->tlesave, sizeof indata->tlesave - 1);
    indata->newtle = 1;
}

void VorlixView::vFileSave()
{
    if (indata->satn < 1 && indata->iridflg != event::iridium)
        return sayNoSatellite(this);
    vsFileName(indata->savename);
    const Keep toFile(indata->tofile, 1);
    if (indata->iridflg == event::iridium) {
        CmIridium();
        return;
    }
    if (const auto form = formOfName(fieldText(indata->savename)))
        return saveListInForm(*form);
    std::string why;
    if (!listPasses(&why))
        return;
    if (!why.empty())
        return warn(this, tr("Vorlix"), nothingWritten(fieldQString(indata->savename), textQString(why)));
    inform(this, tr("Vorlix"), tr("Saved on File ") + fieldQString(indata->savename));
}

void VorlixView::vOrbitTrack()
{
    if (indata->satn < 1)
        return sayNoSatellite(this);
    vsFileName(indata->savename);
    if (!agreesToLength(this, trackLines(*indata)))
        return;
    int result = 0;
    std::string why;
    {
        const WaitCursor wait;
        result = saveOrbitTrack(indata, &why);
    }
    if (result == calculationCancelled)
        return;
    if (result != 0)
        inform(this, tr("Save Orbit Track"), tr("*** Problems with the output file") + reasonLines(why));
    else if (indata->iridflg != event::iridium)
        inform(this, tr("Vorlix"), tr("Track saved on file ") + fieldQString(indata->savename));
}

void VorlixView::vTLESave()
{
    if (indata->satn < 1)
        return sayNoSatellite(this);
    vsFileName(indata->tlesave);
    const LeftOut out = leftOut(*indata);
    const bool shorten = !out.numbers.empty() && agreesToShorten(this, out.numbers);
    std::string why;
    const int result = SaveTle(indata, shorten, &why);
    if (result == 1)
        inform(this, tr("TLE File Save"), tr("Nothing saved.") + remark(out.numbers) + remark(out.numeric));
    else if (result == 0)
        inform(this, tr("Vorlix"),
               tr("TLE's saved on file ") + fieldQString(indata->tlesave) +
                   remark(shorten ? std::vector<int>() : out.numbers) + remark(out.numeric));
    else
        inform(this, tr("TLE File Save"),
               tr("*** ERROR *** while opening or writing TLE Save File") + reasonLines(why));
}

void VorlixView::vElementSources()
{
    StSourcesDialog dialog(this);
    dialog.setSources(elementSources(), fieldQString(indata->url));
    if (dialog.exec() != QDialog::Accepted)
        return;
    keepElementSources(dialog.sources());
    AddressParts parts;
    if (!dialog.chosen().isEmpty() && !takeAddress(indata, dialog.chosen(), parts))
        warn(this, tr("Element Sources"), tr("The marked line has no address."));
}

int VorlixView::vUpdate(QString& host, QString& path, QString& file)
{
    bool accepted = false;
    const QString address =
        askForLine(this, tr("URL for TLE file to be downloaded:"), proposedAddress(indata), accepted).trimmed();
    if (accepted && !isAddressStorable(address)) {
        warn(this, tr("Online Update"),
             tr("The address is too long: %1 characters are the most.").arg(longestAddress));
        return 1;
    }
    QString name = fileNameOfAddress(address);
    if (accepted && name.isEmpty() && address.contains(QLatin1Char('/')))
        name =
            askForLine(this, tr("Name of the file that takes the elements:"), suggestedFileName(address), accepted);
    if (accepted && !name.isEmpty() && !isFileName(name)) {
        warn(this, tr("Online Update"), tr("No file can bear the name %1.").arg(name));
        return 1;
    }
    AddressParts parts;
    if (!accepted || !takeAddress(indata, address, parts))
        return 1;
    host = parts.host;
    path = parts.path;
    file = name.isEmpty() ? parts.file : besideElementFile(name);
    return 0;
}
