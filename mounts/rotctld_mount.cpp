#include "mounts/rotctld_mount.h"

#include <algorithm>
#include <cmath>

void RotctldMount::greet()
{
    waiting = true;
    send("p\n");  // shows that it is a rotator who answers; one without a report of its position refuses
}

void RotctldMount::goTo(const Aim& aim)
{
    waiting = true;
    expectAnswer();
    const double azimuth = std::fmod(std::round(aim.azimuth * 100.0), 36000.0) / 100.0;
    send("P " + QByteArray::number(azimuth, 'f', 2) + ' ' + QByteArray::number(std::max(0.0, aim.elevation), 'f', 2) +
         '\n');
}

void RotctldMount::listen()
{
    while (socket.canReadLine()) {
        const QByteArray line = socket.readLine(longestLine).trimmed();
        if (!line.isEmpty())
            take(line);
    }
    if (socket.bytesAvailable() > longestLine)
        fail(tr("%1 does not speak as a rotator does").arg(address.host));
}

void RotctldMount::take(const QByteArray& line)
{
    bool isNumber = false;
    line.toDouble(&isNumber);
    const bool isReport = line.startsWith("RPRT ");
    if (!isNumber && !isReport) {
        fail(tr("%1 does not speak as a rotator does").arg(address.host));
        return;
    }
    if (isNumber && ++numbers < 2)
        return;
    answered();
    waiting = false;
    numbers = 0;
    if (!isOpen) {
        isOpen = true;
        Q_EMIT opened();
    } else if (isReport && line != "RPRT 0") {
        fail(tr("the rotator refuses to go there (%1)").arg(QString::fromLatin1(line)));
    }
}
