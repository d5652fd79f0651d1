#include "mounts/mount_settings.h"

#include "record/further_settings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array kinds{"rotctld", "indi", "alpaca"};  // in the order of MountKind

double within(const QVariant& value, double low, double high, double otherwise)
{
    bool good = false;
    const double number = value.toDouble(&good);
    return good && std::isfinite(number) ? std::clamp(number, low, high) : otherwise;
}

}  // namespace

MountSettings mountSettings()
{
    const QSettings kept = openFurtherSettings();
    MountSettings s;
    const auto kind = std::ranges::find(kinds, kept.value("mount/kind").toString().toStdString());
    if (kind != kinds.end())
        s.address.kind = static_cast<MountKind>(kind - kinds.begin());
    s.address.host = kept.value("mount/host", s.address.host).toString();
    const int port = kept.value("mount/port").toInt();
    s.address.port = port > 0 && port < 65536 ? static_cast<quint16>(port) : usualPort(s.address.kind);
    s.address.device = kept.value("mount/device").toString();
    s.limits.leastElevation = within(kept.value("mount/least_elevation_deg"), 0, 90, s.limits.leastElevation);
    s.limits.leastSunDistance = within(kept.value("mount/least_sun_distance_deg"), 1, 180, s.limits.leastSunDistance);
    s.avoidsSun = kept.value("mount/avoid_sun", true).toBool();
    return s;
}

void keepMountSettings(const MountSettings& s)
{
    QSettings kept = openFurtherSettings();
    kept.setValue("mount/kind", QString::fromLatin1(kinds[static_cast<std::size_t>(s.address.kind)]));
    kept.setValue("mount/host", s.address.host);
    kept.setValue("mount/port", s.address.port);
    kept.setValue("mount/device", s.address.device);
    kept.setValue("mount/least_elevation_deg", s.limits.leastElevation);
    kept.setValue("mount/least_sun_distance_deg", s.limits.leastSunDistance);
    kept.setValue("mount/avoid_sun", s.avoidsSun);
}
