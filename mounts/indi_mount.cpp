#include "mounts/indi_mount.h"

namespace {

constexpr double siderealRate = 15.041067;  // arc seconds in a second
constexpr char position[] = "EQUATORIAL_EOD_COORD";

}  // namespace

void IndiMount::greet()
{
    send("<getProperties version=\"1.7\"/>\n");
}

QByteArray IndiMount::vector(const char* tag, const char* name, const QByteArray& members) const
{
    return QByteArray("<new") + tag + "Vector device=\"" + address.device.toHtmlEscaped().toUtf8() + "\" name=\"" +
           name + "\">" + members + "</new" + tag + "Vector>\n";
}

QByteArray IndiMount::switchOn(const char* name, const char* which) const
{
    return vector("Switch", name, QByteArray("<oneSwitch name=\"") + which + "\">On</oneSwitch>");
}

QByteArray IndiMount::numbers(const char* name, std::initializer_list<std::pair<const char*, double>> members) const
{
    QByteArray all;
    for (const auto& [which, value] : members)
        all += QByteArray("<oneNumber name=\"") + which + "\">" + QByteArray::number(value, 'f', 8) + "</oneNumber>";
    return vector("Number", name, all);
}

void IndiMount::goTo(const Aim& aim)
{
    if (has("ON_COORD_SET"))
        send(switchOn("ON_COORD_SET", "TRACK"));
    send(numbers(position, {{"RA", aim.ra}, {"DEC", aim.dec}}));
}

void IndiMount::follow(const Aim& aim)
{
    slewTime.start();
    goTo(ahead(aim, slewTime.seconds()));
    if (!has("TELESCOPE_TRACK_RATE") || !values.value("TELESCOPE_TRACK_MODE").contains("TRACK_CUSTOM"))
        return;
    send(switchOn("TELESCOPE_TRACK_MODE", "TRACK_CUSTOM"));
    // the rate is that of the hour angle
    send(numbers("TELESCOPE_TRACK_RATE",
                 {{"TRACK_RATE_RA", siderealRate - aim.raRate}, {"TRACK_RATE_DE", aim.decRate}}));
}

void IndiMount::halt()
{
    QByteArray words = switchOn("TELESCOPE_ABORT_MOTION", "ABORT");
    if (values.value("TELESCOPE_TRACK_MODE").contains("TRACK_SIDEREAL"))
        words += switchOn("TELESCOPE_TRACK_MODE", "TRACK_SIDEREAL");
    close(words);
}

void IndiMount::listen()
{
    const QByteArray bytes = socket.readAll();
    sinceEnd += bytes.size();
    if (!rooted)
        xml.addData("<indi>");
    rooted = true;
    xml.addData(bytes);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement())
            readElement();
        else if (xml.isCharacters())
            text += xml.text();
        else if (xml.isEndElement())
            endElement();
    }
    const bool broken = xml.hasError() && xml.error() != QXmlStreamReader::PrematureEndOfDocumentError;
    if (broken || sinceEnd > mostBytes)
        fail(tr("%1 does not speak as an INDI server does").arg(address.host));
}

void IndiMount::readElement()
{
    text.clear();
    const auto attributes = xml.attributes();
    if (xml.name().endsWith(QLatin1String("Vector"))) {
        device = attributes.value("device").toString();
        property = attributes.value("name").toString();
        state = attributes.value("state").toString();
        if (device == address.device)
            values[property];  // it is there, if without members
    }
    member = attributes.value("name").toString();
}

void IndiMount::endElement()
{
    sinceEnd = 0;
    const QString name = xml.name().toString();
    if (!name.endsWith(QLatin1String("Vector"))) {
        if (device == address.device && !property.isEmpty() && !member.isEmpty())
            values[property][member] = text.trimmed();
        member.clear();
        return;
    }
    const bool ours = device == address.device;
    const QString which = property;
    device.clear();
    property.clear();
    if (!ours)
        return;
    if (which == QLatin1String("CONNECTION"))
        connectDevice();
    if (which == QLatin1String(position))
        takePosition();
}

void IndiMount::takePosition()
{
    slewing = state == QLatin1String("Busy");
    if (!slewing)
        slewTime.arrived();
    if (!isOpen) {
        isOpen = true;
        answered();
        Q_EMIT opened();
    } else if (state == QLatin1String("Alert")) {
        fail(tr("the telescope refuses to go there"));
    }
}

QString IndiMount::silenceMeans() const
{
    return rooted ? tr("%1 has no telescope \"%2\"").arg(address.host, address.device) : SocketMount::silenceMeans();
}

/// A telescope on the server that is not connected to its hardware yet.
void IndiMount::connectDevice()
{
    const auto connection = values.value("CONNECTION");
    if (asked || connection.value("CONNECT") == QLatin1String("On"))
        return;
    asked = true;
    send(switchOn("CONNECTION", "CONNECT"));
}
