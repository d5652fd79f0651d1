#include "dialogs/st_pass_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"
#include "record/text.h"
#include "record/winp_data.h"
#include "reports/pass_details.h"

namespace {

constexpr int mostShownSteps = 6250;

/// The whole listing of the chosen pass, and the pole of its track.
QString listing(const HorizonLine* horizon)
{
    QString all;
    QString lines;
    double t = 0.0;
    for (int step = 0; step < mostShownSteps && vsGetPassDTxt(t, lines, false, horizon) == 1; ++step)
        all += lines;
    vsGetPassDTxt(t, lines, true);
    return all + lines;
}

}  // namespace

StPassDialog::StPassDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Pass Details"));
    auto* column = new QVBoxLayout;
    passEdit = form::addTextView(
        column, "passEdit", tr("Pass Details"),
        {tr("The pass step by step: where the satellite stands at each time, and the apparent pole of its track.")});
    passEdit->setLineWrapMode(QTextEdit::NoWrap);
    auto* buttons = new QHBoxLayout;
    chartButton =
        form::addButton(buttons, "chartButton", tr("C&hart"), "Alt+H",
                        {tr("Draws the pass over the sky of your place, with elevation, magnitude and range "
                            "over time. The chart can be saved and printed."),
                         tr("Draws the pass.")});
    chartButton->hide();
    saveButton =
        form::addButton(buttons, "saveButton", tr("&Save"), "Alt+S",
                        {tr("The angles will be without the degree sign. Longitude and latitude are always in "
                            "decimal degrees and with 5 decimal points. This should make further processing "
                            "by other programs easier."),
                         tr("Saves the Pass Details information on the Vorlix Save-File.")});
    gtrackButton =
        form::addButton(buttons, "gtrackButton", tr("&G-Track"), nullptr,
                        {tr("Time, latitude and longitude will be copied to the save file. They can then be "
                            "used by other programs for producing map overlays etc."),
                         tr("Copy groundtrack on save file.")});
    closeButton = form::addClose(this, buttons, {tr("Closes the window.")});
    form::finish(this, column, buttons);

    constexpr int marginPixels = 10, rightMarginPixels = 12, buttonRowPixels = 48;
    layout()->setContentsMargins(marginPixels, marginPixels, rightMarginPixels, 0);
    layout()->setSpacing(0);
    buttons->setSpacing(marginPixels / 2);
    buttons->addStrut(buttonRowPixels);
    resize(491, 477);

    connect(saveButton, &QPushButton::clicked, this, &StPassDialog::saveSlot);
    connect(gtrackButton, &QPushButton::clicked, this, &StPassDialog::gtrackSlot);
}

void StPassDialog::setParams(int size)
{
    form::fillTextView(passEdit, listing(horizon.get()), size);  // proportional: the headings count on narrow blanks
    closeButton->setFocus();
}

void StPassDialog::offerChart(const std::function<void()>& show)
{
    chartButton->show();
    connect(chartButton, &QPushButton::clicked, this, show);
}

void StPassDialog::saveSlot()
{
    save(passform::save);
}

void StPassDialog::gtrackSlot()
{
    save(passform::groundTrack);
}

void StPassDialog::save(int mode)
{
    std::string why;
    if (vsSavePassDt(mode, &why, horizon.get()))
        form::say(this, tr("Saved on File ") + fieldQString(indata->savename));
    else if (!why.empty())
        form::say(this, tr("Nothing was written to %1\n%2").arg(fieldQString(indata->savename), textQString(why)));
}
