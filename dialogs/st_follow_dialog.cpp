#include "dialogs/st_follow_dialog.h"

#include "dialogs/form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

StFollowDialog::StFollowDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Follow with a Mount"));
    auto* column = new QVBoxLayout;
    targetLabel = form::addText(column, "targetLabel", QString());
    auto* rows = new QFormLayout;
    addAddress(rows);
    addLimits(rows);
    column->addLayout(rows);
    form::finish(this, column);
    connect(kindBox, &QComboBox::activated, this, &StFollowDialog::takeKind);
    connect(sunBox, &QCheckBox::toggled, this, [this](bool on) { form::setEditEnabled(sunEdit, on); });
}

void StFollowDialog::addAddress(QFormLayout* rows)
{
    kindBox =
        form::addChoice(rows, "kindBox", tr("&Mount:"),
                        {tr("What moves the telescope or antenna, and so the language it is spoken to in: a "
                            "rotator gets azimuth and elevation, a telescope right ascension and declination.")});
    kindBox->addItems({tr("Rotator (Hamlib rotctld)"), tr("Telescope (INDI)"), tr("Telescope (ASCOM Alpaca)")});
    hostEdit = form::addTextEdit(rows, "hostEdit", tr("&Host:"),
                                 {tr("The name or address of the computer on which the server of the mount runs; "
                                     "localhost is this one.")});
    portEdit = form::addWholeEdit(rows, "portEdit", tr("&Port:"),
                                  {tr("The port of that server. Usual are 4533 of rotctld, 7624 of INDI and 11111 of "
                                      "Alpaca.")});
    deviceEdit =
        form::addTextEdit(rows, "deviceEdit", tr("&Device:"),
                          {tr("Which telescope of the server: its name in INDI, as Telescope Simulator, or its "
                              "number in Alpaca, counted from 0.")});
}

void StFollowDialog::addLimits(QFormLayout* rows)
{
    elevationEdit = form::addEdit(rows, "elevationEdit", tr("Minimum &Elevation (deg):"),
                                  {tr("The mount is never sent lower than this. It waits where the satellite comes "
                                      "up through this elevation.")});
    sunBox =
        form::addBox(rows, "sunBox", tr("Keep away from the &Sun"), nullptr,
                     {tr("The mount is never sent nearer to the Sun than the distance below, and stops where the "
                         "satellite comes nearer. The way to a place is the mount's own and not looked at. A "
                         "telescope without a filter that meets the Sun is lost, and so is an eye behind it.")});
    sunEdit = form::addEdit(rows, "sunEdit", tr("Distance from the S&un (deg):"),
                            {tr("The least distance from the centre of the Sun.")});
}

MountKind StFollowDialog::kind() const
{
    return static_cast<MountKind>(kindBox->currentIndex());
}

/// Another kind of mount listens on another port.
void StFollowDialog::takeKind()
{
    form::setNumber(portEdit, usualPort(kind()));
    deviceEdit->clear();
    nameDevice();
}

void StFollowDialog::nameDevice()
{
    form::setEditEnabled(deviceEdit, kind() != MountKind::rotctld);
    if (!deviceEdit->text().isEmpty())
        return;
    if (kind() == MountKind::indi)
        deviceEdit->setText("Telescope Simulator");
    else if (kind() == MountKind::alpaca)
        deviceEdit->setText("0");
}

void StFollowDialog::setValues(const MountSettings& settings, const QString& target)
{
    shown = settings;
    targetLabel->setText(target);
    kindBox->setCurrentIndex(static_cast<int>(settings.address.kind));
    hostEdit->setText(settings.address.host);
    form::setNumber(portEdit, settings.address.port);
    deviceEdit->setText(settings.address.device);
    nameDevice();
    form::setNumber(elevationEdit, settings.limits.leastElevation);
    sunBox->setChecked(settings.avoidsSun);
    form::setNumber(sunEdit, settings.limits.leastSunDistance);
    form::setEditEnabled(sunEdit, settings.avoidsSun);
}

MountSettings StFollowDialog::values() const
{
    MountSettings s = shown;
    s.address.kind = kind();
    s.address.host = hostEdit->text().trimmed();
    const int port = form::integer(portEdit);
    s.address.port = port > 0 && port < 65536 ? static_cast<quint16>(port) : usualPort(s.address.kind);
    s.address.device = deviceEdit->text().trimmed();
    s.limits.leastElevation = std::clamp(form::number(elevationEdit), 0.0, 90.0);
    s.avoidsSun = sunBox->isChecked();
    s.limits.leastSunDistance = std::clamp(form::number(sunEdit), 1.0, 180.0);
    return s;
}
