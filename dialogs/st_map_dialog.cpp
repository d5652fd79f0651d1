#include "dialogs/st_map_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "dialogs/form.h"

bool stmpphwm = false;

namespace {

// sizes of the legend's font
constexpr int smallPoints = 10;
constexpr int largePoints = 12;

/// Checks the button of the value; any value out of range checks the first.
void check(std::initializer_list<QRadioButton*> buttons, int value)
{
    const int count = static_cast<int>(buttons.size());
    buttons.begin()[value > 0 && value < count ? value : 0]->setChecked(true);
}

int checkedOf(std::initializer_list<QRadioButton*> buttons)
{
    int value = 0;
    for (const QRadioButton* button : buttons) {
        if (button->isChecked())
            return value;
        ++value;
    }
    return 0;
}

}  // namespace

StMapDialog::StMapDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Map Settings"));
    auto* left = new QVBoxLayout;
    skyBox =
        form::addBox(left, "skyBox", tr("&Sky Map"), "Alt+S",
                     {tr("If marked, plots show the sky with its stars. Otherwise they show a map of the world.")});
    satskyBox = form::addBox(left, "satskyBox", tr("Satellite &View"), "Alt+V",
                             {tr("If marked, the sky map shows the sky as it is seen from the prime satellite.")});
    addSky(left);
    addWorldMap(left);
    left->addStretch();
    auto* right = new QVBoxLayout;
    addBackground(right);
    addBoxes(right);
    addNumbers(right);
    right->addStretch();
    form::finish(this, form::columns(left, right));

    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
             skyBox, zenithButton, eastButton, southButton, azimButton, westButton, northButton})
        connect(button, &QAbstractButton::toggled, this, &StMapDialog::showSlot);
}

void StMapDialog::addSky(QVBoxLayout* column)
{
    auto* inside = new QVBoxLayout;
    const QString facing = tr("The lower edge of the sky map is the horizon below this direction.");
    zenithButton = form::addRadio(inside, "zenithButton", tr("&Zenith"), "Alt+Z",
                                  {tr("The whole sky as a disk with the zenith in its centre.")});
    northButton = form::addRadio(inside, "northButton", tr("Nort&h"), "Alt+H", {facing});
    eastButton = form::addRadio(inside, "eastButton", tr("&East"), "Alt+E", {facing});
    southButton = form::addRadio(inside, "southButton", tr("So&uth"), "Alt+U", {facing});
    westButton = form::addRadio(inside, "westButton", tr("Wes&t"), "Alt+T", {facing});
    azimButton = form::addRadio(inside, "azimButton", tr("&Azimuth/Auto"), "Alt+A",
                                {tr("The sky map is centred on the azimuth given beside, and it turns with the prime "
                                    "satellite.")});
    skyGroup =
        form::addGroup(column, "skyGroup", tr("&Projection"), inside, {tr("The part of the sky that is shown.")});
}

void StMapDialog::addWorldMap(QVBoxLayout* column)
{
    auto* maps = new QVBoxLayout;
    pstdButton = form::addRadio(maps, "pstdButton", tr("Simple World Map"), nullptr,
                                {tr("The world as outlines of the continents.")});
    pnorthButton = form::addRadio(maps, "pnorthButton", tr("Northern Hemisphere"), nullptr,
                                  {tr("The Northern hemisphere with the pole in its centre.")});
    psouthButton = form::addRadio(maps, "psouthButton", tr("Southern Hemisphere"), nullptr,
                                  {tr("The Southern hemisphere with the pole in its centre.")});
    ppwmButton = form::addRadio(maps, "ppwmButton", tr("Physical World Map"), nullptr,
                                {tr("The world with land and sea in colours.")});
    mapGroup =
        form::addGroup(column, "mapGroup", tr("&Map Projection"), maps, {tr("The kind of map that is shown.")});

    auto* grids = new QVBoxLayout;
    gnoButton =
        form::addRadio(grids, "gnoButton", tr("&No coordinates"), "Alt+N", {tr("The map is drawn without grid.")});
    g30Button = form::addRadio(grids, "g30Button", tr("&30 degree grid"), "Alt+3",
                               {tr("Lines of latitude and longitude every 30 degrees.")});
    g10Button = form::addRadio(grids, "g10Button", tr("&10 degree grid"), "Alt+1",
                               {tr("Lines of latitude and longitude every 10 degrees.")});
    gridGroup = form::addGroup(column, "gridGroup", tr("&Grid"), grids,
                               {tr("The lines of latitude and longitude on the map.")});
}

void StMapDialog::addBackground(QVBoxLayout* column)
{
    auto* inside = new QVBoxLayout;
    whiteButton = form::addRadio(inside, "whiteButton", tr("&White"), "Alt+W", {tr("Maps are drawn on white.")});
    greyButton = form::addRadio(inside, "greyButton", tr("G&rey"), "Alt+R", {tr("Maps are drawn on grey.")});
    blackButton = form::addRadio(inside, "blackButton", tr("Blac&k"), "Alt+K", {tr("Maps are drawn on black.")});
    backGroup = form::addGroup(column, "backGroup", tr("&Background"), inside, {tr("The colour behind the map.")});
}

void StMapDialog::addBoxes(QVBoxLayout* column)
{
    fszBox = form::addBox(column, "fszBox", tr("&Large Font"), "Alt+L",
                          {tr("If marked, the legend of the map is written in 12 points, otherwise in 10.")});
    boldBox = form::addBox(column, "boldBox", tr("Bold &Font"), "Alt+F",
                           {tr("If marked, the legend of the map is written in bold letters.")});
    nightBox =
        form::addBox(column, "nightBox", tr("Show Da&y/Night - No Trail"), "Alt+Y",
                     {tr("If marked, the dark side of the Earth is shaded. The satellites then leave no trail.")});
    ra4dBox = form::addBox(column, "ra4dBox", tr("RA/Dec with &4 digits"), "Alt+4",
                           {tr("If marked, sky coordinates in the legend are written with four digits behind the "
                               "point.")});
}

void StMapDialog::addNumbers(QVBoxLayout* column)
{
    auto* rows = new QFormLayout;
    meridianEdit = form::addEdit(rows, "meridianEdit", tr("Central Meri&dian (deg):"),
                                 {tr("The longitude in the centre of the map, negative in the West.")});
    azimEdit = form::addEdit(rows, "azimEdit", tr("C&tr.Azimuth (deg):"),
                             {tr("The azimuth in the centre of the sky map, counted from North through East.")});
    frequEdit =
        form::addEdit(rows, "frequEdit", tr("Doppler Fre&quency (Hz):"),
                      {tr("The frequency that the satellite transmits. The legend shows its Doppler shift, or "
                          "the range rate if 0 is given.")});
    column->addLayout(rows);
}

void StMapDialog::setValues(const Values& values, bool physicalMap)
{
    showDisplay(values);
    showWorld(values, physicalMap);
}

void StMapDialog::showDisplay(const Values& values)
{
    check({gnoButton, g30Button, g10Button}, values.mgrid);
    check({whiteButton, greyButton, blackButton}, values.mgrey);
    check({zenithButton, northButton, eastButton, southButton, westButton, azimButton}, values.skyprj);
    nightBox->setChecked(values.mpnight);
    ra4dBox->setChecked(values.ra4d);
    satskyBox->setChecked(values.satsky);
    skyBox->setChecked(values.skymap);
    form::setNumber(azimEdit, values.skaz);  // after the buttons, which write an azimuth of their own
}

void StMapDialog::showWorld(const Values& values, bool physicalMap)
{
    stmpphwm = physicalMap;
    fszBox->setChecked(values.largeFont);
    boldBox->setChecked(values.boldFont);
    const int projection = values.mapprj == 3 && !physicalMap ? 0 : values.mapprj;
    check({pstdButton, pnorthButton, psouthButton, ppwmButton}, projection);
    form::setNumber(meridianEdit, values.centmer);
    form::setPrinted(frequEdit, "%g", values.frequ);
    showSlot();
}

StMapDialog::Values StMapDialog::values() const
{
    Values v;
    v.mgrid = checkedOf({gnoButton, g30Button, g10Button});
    v.mgrey = checkedOf({whiteButton, greyButton, blackButton});
    v.skyprj = checkedOf({zenithButton, northButton, eastButton, southButton, westButton, azimButton});
    v.mapprj = checkedOf({pstdButton, pnorthButton, psouthButton, ppwmButton});
    v.mpnight = nightBox->isChecked();
    v.skymap = skyBox->isChecked();
    v.ra4d = ra4dBox->isChecked();
    v.satsky = satskyBox->isChecked();
    v.largeFont = fszBox->isChecked();
    v.boldFont = boldBox->isChecked();
    v.skaz = form::number(azimEdit);
    v.centmer = form::number(meridianEdit);
    v.frequ = form::number(frequEdit);
    return v;
}

void StMapDialog::getParamF(int& mfsz, bool& bf, int& mapprj, double& centmer, double& frequ)
{
    const Values v = values();
    mfsz = v.largeFont ? largePoints : smallPoints;
    std::tie(bf, mapprj, centmer, frequ) = std::tuple(v.boldFont, v.mapprj, v.centmer, v.frequ);
}

void StMapDialog::setParamF(int mfsz, bool& bf, int mapprj, double centmer, double frequ, bool phwm)
{
    Values v;
    v.largeFont = mfsz == largePoints;
    std::tie(v.boldFont, v.mapprj, v.centmer, v.frequ) = std::tuple(bf, mapprj, centmer, frequ);
    showWorld(v, phwm);
}

void StMapDialog::setParams(int mgrid, int mgrey, int skyprj, int mpnight, int skymap, int ra4d, double skaz,
                            bool satsky)
{
    Values v;
    std::tie(v.mgrid, v.mgrey, v.skyprj, v.skaz, v.satsky) = std::tuple(mgrid, mgrey, skyprj, skaz, satsky);
    std::tie(v.mpnight, v.skymap, v.ra4d) = std::tuple(mpnight != 0, skymap != 0, ra4d != 0);
    showDisplay(v);
}

void StMapDialog::getParams(int& mgrid, int& mgrey, int& skyprj, int& mpnight, int& skymap, int& ra4d, double& skaz,
                            bool& satsky)
{
    const Values v = values();
    std::tie(mgrid, mgrey, skyprj, skaz, satsky) = std::tuple(v.mgrid, v.mgrey, v.skyprj, v.skaz, v.satsky);
    std::tie(mpnight, skymap, ra4d) = std::tuple(v.mpnight ? 1 : 0, v.skymap ? 1 : 0, v.ra4d ? 1 : 0);
}

void StMapDialog::showSlot()
{
    const bool sky = skyBox->isChecked();
    for (QWidget* widget : std::initializer_list<QWidget*>{gridGroup, gnoButton, g30Button, g10Button, mapGroup,
                                                           pstdButton, pnorthButton, psouthButton, meridianEdit})
        form::setShown(widget, !sky);
    form::setShown(ppwmButton, !sky && stmpphwm);
    for (QWidget* widget : std::initializer_list<QWidget*>{satskyBox, skyGroup, zenithButton, northButton, eastButton,
                                                           southButton, westButton, azimButton})
        form::setShown(widget, sky);
    form::setShown(azimEdit, sky && azimButton->isChecked());
    if (sky && !azimButton->isChecked() && !zenithButton->isChecked())
        form::setNumber(azimEdit, azimuthOfButtons());
}

double StMapDialog::azimuthOfButtons() const
{
    return 90.0 * checkedOf({northButton, eastButton, southButton, westButton});
}
