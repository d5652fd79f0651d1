#include "dialogs/st_vis_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/form.h"

StVisDialog::StVisDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Visibility Settings"));
    auto* left = new QVBoxLayout;
    addConditions(left);
    addTransit(left);
    left->addStretch();
    auto* right = new QVBoxLayout;
    addFlares(right);
    addAngles(right);
    right->addStretch();
    form::finish(this, form::columns(left, right));
    form::labelOf(flrmxEdit)->setObjectName("flrmagLabel");
    connectSlots();
    StVisDialog::showSlot();
}

void StVisDialog::addConditions(QVBoxLayout* column)
{
    auto* rows = new QFormLayout;
    sunelEdit = form::addEdit(rows, "sunelEdit", tr("Ma&x.Sun Elevation (deg):"),
                              {tr("Passes are listed while the Sun stands below this elevation. -6 is the end of "
                                  "civil twilight, 90 lists passes in daylight too."),
                               tr("Maximum Sun elevation.")});
    satelEdit = form::addEdit(
        rows, "satelEdit", tr("Mi&n.Sat Elevation (deg):"),
        {tr("Passes begin and end where the satellite crosses this elevation."), tr("Minimum satellite elevation.")});
    epochEdit =
        form::addEdit(rows, "epochEdit", tr("&Year of Epoch:"),
                      {tr("The equinox of right ascension and declination, for example 2000. 0 stands for the "
                          "true equator and equinox of date."),
                       tr("Epoch of the sky coordinates.")});
    column->addLayout(rows);
    visBox = form::addBox(column, "visBox", tr("&Visible Passes Only"), "Alt+V",
                          {tr("If marked, only those parts of a pass count in which the satellite is illuminated."),
                           tr("Only illuminated satellites.")});
    moonBox = form::addBox(column, "moonBox", tr("Moon Visi&bility"), "Alt+B",
                           {tr("If marked, satellites and flares are looked for in the light of the Moon."),
                            tr("Moon instead of the Sun as light source.")});
}

void StVisDialog::addTransit(QVBoxLayout* column)
{
    occBox =
        form::addBox(column, "occBox", tr("Occultation/&Transit"), "Alt+T",
                     {tr("If marked, satellites are looked for that pass in front of the Sun, the Moon or a given "
                         "position in the sky."),
                      tr("Perform occulation/transit calculations")});
    auto* bodies = new QVBoxLayout;
    sunButton = form::addRadio(bodies, "sunButton", tr("&Sun Transit"), "Alt+S",
                               {tr("The satellite passes in front of the Sun.")});
    moonButton = form::addRadio(bodies, "moonButton", tr("&Moon Transit"), "Alt+M",
                                {tr("The satellite passes in front of the Moon.")});
    radecButton =
        form::addRadio(bodies, "radecButton", tr("&R.A./Dec."), "Alt+R",
                       {tr("The satellite passes in front of a star or another position that is given by its "
                           "right ascension and declination."),
                        tr("Specify occultation direction")});
    occGroup = form::addGroup(column, "occGroup", tr("Body"), bodies,
                              {tr("What the satellite passes in front of."), tr("Occultation/Transit body")});
    smplotBox = form::addBox(column, "smplotBox", tr("Sun/Moon &Plot"), "Alt+P",
                             {tr("If marked, plots show the disk of the Sun or the Moon instead of a map."),
                              tr("Plot Sun or Moon for transit.")});
    eclBox = form::addBox(column, "eclBox", tr("Solar Eclipse C&heck"), "Alt+H",
                          {tr("If marked, the map tells whether the Moon covers the Sun as seen from the prime "
                              "satellite, and how much sunlight is left."),
                           tr("Check for solar eclipse at satellite position")});
}

void StVisDialog::addFlares(QVBoxLayout* column)
{
    flarBox =
        form::addBox(column, "flarBox", tr("&Flares"), "Alt+F",
                     {tr("If marked, reflections of sunlight from a flat or cylindrical surface are looked for."),
                      tr("Perform flare calculations.")});
    knownBox = form::addBox(column, "knownBox", tr("&Known Surface"), "Alt+K",
                            {tr("Mark this if the direction of the reflecting surface is known. Otherwise the "
                                "direction is computed that would send a flare to the observer."),
                             tr("Reflecting surface is known")});
    localBox = form::addBox(column, "localBox", tr("&Local Attitude"), "Alt+L",
                            {tr("If marked, the surface keeps its direction relative to the flight direction and the "
                                "Earth. Otherwise its direction is fixed among the stars."),
                             tr("Local satellite attitude.")});
    ystBox =
        form::addBox(column, "ystBox", tr("Yaw St&eering Mode"), "Alt+E",
                     {tr("If marked, the satellite turns about its vertical so that its solar panels face the Sun, "
                         "as navigation satellites do."),
                      tr("Special local mode.")});
    solfBox = form::addBox(column, "solfBox", tr("Sol&ar Panel Flares"), "Alt+A",
                           {tr("If marked, flares are looked for that come from solar panels facing the Sun."),
                            tr("Check for flares from solar panels.")});
    cylBox = form::addBox(column, "cylBox", tr("Cylindrical Flares"), nullptr,
                          {tr("If marked, the reflecting surface is a cylinder. The two angles give the direction of "
                              "its axis."),
                           tr("Enable check for flares from cylindrical surface.")});
    flrmagBox = form::addBox(column, "flrmagBox", tr("&Display Flare Magnitude"), "Alt+D",
                             {tr("If marked, the magnitude of a flare is shown instead of its angle."),
                              tr("Enable the display of the flare magnitude.")});
    iridBox =
        form::addBox(column, "iridBox", tr("&Iridium Flares"), "Alt+I",
                     {tr("If marked, flares from the three main antennas of an Iridium satellite are looked for."),
                      tr("Select Iridium Flare calculations")});
}

void StVisDialog::addAngles(QVBoxLayout* column)
{
    auto* rows = new QFormLayout;
    flrmxEdit = form::addEdit(rows, "flrmxEdit", tr("Maximum Flare Magnitude:"),
                              {tr("The magnitude in the centre of the flare. The brighter it is, the smaller the "
                                  "number."),
                               tr("Maximum magnitude the flare can produce.")});
    const QString angleHelp = tr("Together the two angles give a direction: that of an occultation, of a reflecting "
                                 "surface or of the axis of a cylinder.");
    yawEdit = form::addEdit(rows, "yawEdit", tr("R.A.(HH.MMSS):"), {angleHelp});
    pitchEdit = form::addEdit(rows, "pitchEdit", tr("Dec.(DDD.MMSS):"), {angleHelp});
    column->addLayout(rows);
}

void StVisDialog::connectSlots()
{
    connect(occBox, &QCheckBox::toggled, this, &StVisDialog::occSlot);
    connect(flarBox, &QCheckBox::toggled, this, &StVisDialog::flarSlot);
    connect(iridBox, &QCheckBox::toggled, this, &StVisDialog::iridSlot);
    connect(eclBox, &QCheckBox::toggled, this, &StVisDialog::eclSlot);
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{sunButton, radecButton, moonBox, knownBox,
                                                                           localBox, ystBox, cylBox, flrmagBox})
        connect(button, &QAbstractButton::toggled, this, &StVisDialog::showSlot);
}

void StVisDialog::setConditions(const Conditions& values)
{
    form::setNumber(sunelEdit, values.sunel);
    form::setNumber(satelEdit, values.satel);
    form::setNumber(epochEdit, values.yrepoch);
    form::setNumber(yawEdit, values.angle1);
    form::setNumber(pitchEdit, values.angle2);
    visBox->setChecked(values.visible);
    moonBox->setChecked(values.moonlight);
}

StVisDialog::Conditions StVisDialog::conditions() const
{
    return {form::number(sunelEdit), form::number(satelEdit), form::number(epochEdit), form::number(yawEdit),
            form::number(pitchEdit), visBox->isChecked(),     moonBox->isChecked()};
}

void StVisDialog::setParams(double sunel, double satel, double yrepoch, double occra, double occdec, int visflg,
                            int moonflg)
{
    setConditions({sunel, satel, yrepoch, occra, occdec, visflg != 0, moonflg != 0});
}

void StVisDialog::getParams(double& sunel, double& satel, double& yrepoch, double& occra, double& occdec, int& visflg,
                            int& moonflg)
{
    const Conditions c = conditions();
    std::tie(sunel, satel, yrepoch) = std::tuple(c.sunel, c.satel, c.yrepoch);
    std::tie(occra, occdec) = std::tuple(c.angle1, c.angle2);
    std::tie(visflg, moonflg) = std::tuple(c.visible ? 1 : 0, c.moonlight ? 1 : 0);
}

void StVisDialog::showSlot()
{
    showTransit();
    showFlareOptions();
    showAngles();
}

void StVisDialog::showTransit()
{
    const bool transit = occBox->isChecked();
    for (QWidget* widget : std::initializer_list<QWidget*>{occGroup, sunButton, moonButton, radecButton})
        form::setShown(widget, transit);
    form::setShown(smplotBox, transit && (sunButton->isChecked() || moonButton->isChecked()));
}

void StVisDialog::showFlareOptions()
{
    const bool flares = flarBox->isChecked();
    const bool known = knownBox->isChecked();
    const bool local = localBox->isChecked();
    form::setShown(knownBox, flares);
    form::setShown(localBox, flares);
    form::setShown(ystBox, flares && local);
    form::setShown(solfBox, flares && !known && !local);
    form::setShown(cylBox, flares && !known);
    form::setShown(flrmagBox, flares && known);
    form::setShown(flrmxEdit, flares && known && flrmagBox->isChecked());
}

void StVisDialog::showAngles()
{
    const bool ofSurface = flarBox->isChecked() && (knownBox->isChecked() || cylBox->isChecked());
    const bool ofOccultation = occBox->isChecked() && radecButton->isChecked();
    form::setShown(yawEdit, ofSurface || ofOccultation);
    form::setShown(pitchEdit, ofSurface || ofOccultation);
    if (!ofSurface && !ofOccultation)
        return;
    const bool inTheSky = occBox->isChecked() || !localBox->isChecked();
    form::labelOf(yawEdit)->setText(inTheSky ? tr("R.A.(HH.MMSS):") : tr("Yaw (deg):"));
    form::labelOf(pitchEdit)->setText(inTheSky ? tr("Dec.(DDD.MMSS):") : tr("Pitch (deg):"));
}

void StVisDialog::setModes(const Modes& values)
{
    smplotBox->setChecked(values.diskPlot);
    occBox->setChecked(values.occflg >= 1);
    (values.occflg == 3 ? radecButton : values.occflg == 2 ? moonButton : sunButton)->setChecked(true);
    iridBox->setChecked(values.iridium);
    flarBox->setChecked(values.flares);
    knownBox->setChecked(values.variant.knownSurface);
    localBox->setChecked(values.variant.localAttitude);
    ystBox->setChecked(values.yawSteering);
    eclBox->setChecked(values.eclipse);
    solfBox->setChecked(values.solarPanels);
    flrmagBox->setChecked(values.flareMagnitude);
    form::setNumber(flrmxEdit, values.brightest);
    cylBox->setChecked(values.cylinder);
    showSlot();
}

StVisDialog::Modes StVisDialog::modes() const
{
    const int body = radecButton->isChecked() ? 3 : moonButton->isChecked() ? 2 : 1;
    return {smplotBox->isChecked(),
            occBox->isChecked() ? body : 0,
            iridBox->isChecked(),
            flarBox->isChecked(),
            {knownBox->isChecked(), localBox->isChecked()},
            ystBox->isChecked(),
            eclBox->isChecked(),
            solfBox->isChecked(),
            flrmagBox->isChecked(),
            form::number(flrmxEdit),
            cylBox->isChecked() && !solfBox->isChecked()};
}

void StVisDialog::setParam2(int sunmplt, int occflg, int iridflg, int flarflg, int flarmod, int flaryst, bool eclflg,
                            bool solflar, bool flrmgf, double flrmgx, bool cylflg)
{
    setModes({sunmplt != 0, occflg, iridflg == 3, flarflg != 0, flareVariant(flarmod), flaryst != 0, eclflg, solflar,
              flrmgf, flrmgx, cylflg});
}

void StVisDialog::getParam2(int& sunmplt, int& occflg, int& iridflg, int& flarflg, int& flarmod, int& flaryst,
                            bool& eclflg, bool& solflar, bool& flrmgf, double& flrmgx, bool& cylflg)
{
    const Modes m = modes();
    std::tie(sunmplt, occflg, iridflg) = std::tuple(m.diskPlot ? 1 : 0, m.occflg, m.iridium ? 3 : 0);
    std::tie(flarflg, flarmod, flaryst) = std::tuple(m.flares ? 1 : 0, flareMode(m.variant), m.yawSteering ? 1 : 0);
    std::tie(eclflg, solflar, flrmgf, flrmgx) = std::tuple(m.eclipse, m.solarPanels, m.flareMagnitude, m.brightest);
    cylflg = m.cylinder;
}

void StVisDialog::modeChecked(QCheckBox* mode)
{
    if (mode->isChecked())
        for (QCheckBox* other : {occBox, flarBox, iridBox, eclBox})
            if (other != mode)
                other->setChecked(false);
    showSlot();
}

void StVisDialog::flarSlot()
{
    modeChecked(flarBox);
}

void StVisDialog::occSlot()
{
    modeChecked(occBox);
}

void StVisDialog::iridSlot()
{
    modeChecked(iridBox);
}

void StVisDialog::eclSlot()
{
    modeChecked(eclBox);
}
