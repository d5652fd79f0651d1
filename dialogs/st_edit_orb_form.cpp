// The widgets of the element editor.

#include "dialogs/st_edit_orb_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/epoch_edit.h"

StEditOrbDialog::StEditOrbDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Edit Orbit Elements"));
    auto* left = new QFormLayout;
    addNames(left);
    addAngles(left);
    auto* right = new QFormLayout;
    addShape(right);
    addRates(right);

    auto* content = new QVBoxLayout;
    content->addLayout(form::columns(left, right));
    auto* models = new QHBoxLayout;
    addModels(models);
    content->addLayout(models);
    content->addStretch();
    auto* buttons = new QHBoxLayout;
    addCommands(buttons);
    form::addOkCancel(this, buttons);
    form::finish(this, content, buttons);
    connectEdits();
}

void StEditOrbDialog::addNames(QFormLayout* rows)
{
    nameEdit = form::addTextEdit(rows, "nameEdit", tr("&Satellite Name:"),
                                 {tr("The name of the satellite. 20 characters are kept."), tr("Satellite name")});
    noradEdit =
        form::addWholeEdit(rows, "noradEdit", tr("NORA&D#:"),
                           {tr("The number of the satellite in the catalogue."), tr("NORAD catalogue number")});
    idsnEdit = form::addTextEdit(
        rows, "idsnEdit", tr("International &Launch #:"),
        {tr("This should be entered in its full format e.g. 1998-067A ."), tr("International launch designator")});
    const QString epoch = tr("For hyperbolic orbits the epoch will be taken as the time of perigee.");
    yearEdit = form::addEdit(rows, "yearEdit", tr("&Year of epoch:"), {epoch, tr("Year of epoch")});
    dayEdit = form::addEdit(rows, "dayEdit", tr("Day of Year. &Fraction of day:"), {epoch, tr("Day of the year")});
    doubtEpoch({yearEdit, dayEdit});
}

void StEditOrbDialog::addAngles(QFormLayout* rows)
{
    raEdit = form::addEdit(rows, "raEdit", tr("Right &Ascension (deg):"),
                           {tr("Right ascension of the ascending node, where the satellite crosses the equator "
                               "northward."),
                            tr("Right ascension of the ascending node")});
    aperEdit = form::addEdit(
        rows, "aperEdit", tr("Arg.of &Perigee (deg):"),
        {tr("The angle from the ascending node to the perigee, along the orbit."), tr("Argument of perigee")});
    incEdit = form::addEdit(rows, "incEdit", tr("&Inclination (deg):"),
                            {tr("The angle between the orbit and the equator. Above 90 degrees the orbit is "
                                "retrograde."),
                             tr("Inclination")});
    m0Edit = form::addEdit(rows, "m0Edit", tr("&Mean Anomaly (deg):"),
                           {tr("The Mean Anomaly will be set to 0 for non-elliptic orbits."), tr("Mean anomaly")});
    eccEdit =
        form::addEdit(rows, "eccEdit", tr("&Eccentricity:"),
                      {tr("0 for a circle, below 1 for an ellipse, above 1 for a hyperbola."), tr("Eccentricity")});
}

void StEditOrbDialog::addShape(QFormLayout* rows)
{
    n0Edit =
        form::addEdit(rows, "n0Edit", tr("Mean Motio&n (rev/day):  ||  q (km):"),
                      {tr("Mean Motion for elliptic orbits. Perigee for hyperbolic orbits."), tr("Mean motion")});
    aEdit = form::addEdit(rows, "aEdit", tr("Semimajor A&xis (km):"),
                          {tr("The Semimajor Axis will be ignored for parabolic orbits."), tr("Semimajor axis")});
    const QString heights =
        tr("Used instead of eccentricity, axis and mean motion if Perigee/Apogee is marked. It is "
           "counted from the radius of the equator.");
    periEdit = form::addEdit(rows, "periEdit", tr("Perigee Height (km&):"), {heights, tr("Perigee height")});
    apoEdit = form::addEdit(rows, "apoEdit", tr("Apogee &Height (km):"), {heights, tr("Apogee height")});
}

void StEditOrbDialog::addRates(QFormLayout* rows)
{
    adotEdit = form::addEdit(rows, "adotEdit", tr("adot (&km/day):"),
                             {tr("The change of the semimajor axis in a day. It follows from ndot and the reverse."),
                              tr("Change of the semimajor axis")});
    ndotEdit = form::addEdit(rows, "ndotEdit", tr("ndot &(rev/day^2):"),
                             {tr("Half the change of the mean motion in a day, as element sets state it."),
                              tr("Change of the mean motion")});
    n2dotEdit = form::addEdit(rows, "n2dotEdit", tr("n&2dot (rev/day^3): "),
                              {tr("A sixth of the second derivative of the mean motion, as element sets state it."),
                               tr("Second derivative of the mean motion")});
    bstarEdit =
        form::addEdit(rows, "bstarEdit", tr("&BSTAR:"), {tr("The drag term of the SGP4 model."), tr("Drag term")});
}

void StEditOrbDialog::addModels(QBoxLayout* row)
{
    perapBox =
        form::addBox(row, "perapBox", tr("Perigee&/Apogee"), nullptr,
                     {tr("If marked, the heights of perigee and apogee can be typed, and eccentricity, axis and "
                         "mean motion follow from them."),
                      tr("Enter perigee and apogee")});
    spg4Box = form::addBox(row, "spg4Box", tr("SGP&4 Model"), nullptr,
                           {tr("Orbit model recommended for use with the Two Line Elements supplied by USSPACECOM. "
                               "Deselect this model if you perform Vorlix maneuver calculations."),
                            tr("Use the SGP4 model")});
    numBox = form::addBox(row, "numBox", tr("N&umeric Prop."), nullptr,
                          {tr("If marked the orbit will be integrated numerically. If unmarked the analytical SGP4 "
                              "model or the simple Keplerian orbit model will be used."),
                           tr("Numeric propagation")});
    row->addStretch();
}

QPushButton* StEditOrbDialog::addCommand(QBoxLayout* row, const char* name, const QString& text,
                                         const form::Help& help, void (StEditOrbDialog::*slot)())
{
    QPushButton* button = form::addButton(row, name, text, nullptr, help);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void StEditOrbDialog::addCommands(QBoxLayout* row)
{
    addCommand(row, "refreshButton", tr("&Refresh"),
               {tr("Update all elements in the table to be consistent after some elements have been modified. This "
                   "will also be done automatically if you leave the dialog."),
                tr("Make the elements consistent")},
               &StEditOrbDialog::refreshSlot);
    addCommand(
        row, "stateButton", tr("State &Vec."),
        {tr("Shows the orbit as position and velocity, which can be changed. Without a change the satellite "
            "stays as it is. After a change its elements are computed anew from the state: with the SGP4 model "
            "the mean elements of that state, otherwise those of two bodies. The state on show is that of two "
            "bodies, so an SGP4 satellite moves by some kilometres even if a number changes by little. Force "
            "parameters of a numerically integrated orbit are changed here too."),
         tr("Edit the state vector")},
        &StEditOrbDialog::stateSlot);
    addCommand(row, "adjButton", tr("Ad&just"),
               {tr("Adjust the orbit elements which are read from an older TLE file to fit new observations. This "
                   "could be useful for satellite constellations which are maintained but not for quickly decaying "
                   "orbits."),
                tr("Adjust elements read from a file")},
               &StEditOrbDialog::adjSlot);
    addCommand(row, "geoButton", tr("&GEO"),
               {tr("Generates the orbit elements for a geostationary satellite of know geographic longitude."),
                tr("Geostationary orbit")},
               &StEditOrbDialog::geoSlot);
    addCommand(row, "timeButton", tr("Edit &Time"),
               {tr("Opens a dialog in which the epoch can be given as a date and a time in UT."),
                tr("Edit the epoch as a date")},
               &StEditOrbDialog::timeSlot);
    addCommand(row, "nwsButton", tr("Ne&w"),
               {tr("Stores this satellite and starts a new one with empty elements."), tr("New satellite")},
               &StEditOrbDialog::nwsSlot);
}

void StEditOrbDialog::connectEdits()
{
    connect(n0Edit, &QLineEdit::textChanged, this, &StEditOrbDialog::n0Slot);
    connect(aEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::smaxSlot);
    connect(ndotEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::ndotSlot);
    connect(adotEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::adotSlot);
    connect(periEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::perSlot);
    connect(apoEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::apoSlot);
    connect(incEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::eccincSlot);
    connect(eccEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::eccSlot);
    connect(spg4Box, &QCheckBox::toggled, this, &StEditOrbDialog::spgSlot);
    connect(perapBox, &QCheckBox::toggled, this, &StEditOrbDialog::perapoSlot);
    connect(numBox, &QCheckBox::toggled, this, &StEditOrbDialog::numSlot);
}
