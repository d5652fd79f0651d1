// A telescope behind an INDI server.
#pragma once

#include <QMap>
#include <QXmlStreamReader>

#include "mounts/socket_mount.h"

/// XML elements without a root: the server defines properties (`defNumberVector`...), tells their values
/// (`setNumberVector`...) and takes new ones (`newNumberVector`...). Source: the INDI protocol, version 1.7 (Downey,
/// 2007), and the standard properties of its telescopes.
///
/// A telescope that is not connected yet is connected; it counts as open when it tells where it points. Where it has a
/// track rate of its own, that is set as well.
class IndiMount final : public SocketMount
{
    Q_OBJECT

public:
    explicit IndiMount(const MountAddress& to) : SocketMount(to) {}

    bool isBusy() const override { return !isOpen || slewing; }
    void follow(const Aim& aim) override;
    void goTo(const Aim& aim) override;
    void halt() override;

private:
    void greet() override;
    void listen() override;
    QString silenceMeans() const override;
    void readElement();
    void readMember();
    void endElement();
    void connectDevice();
    void takePosition();
    bool has(const char* name) const { return values.contains(QLatin1String(name)); }

    QByteArray vector(const char* tag, const char* property, const QByteArray& members) const;
    QByteArray switchOn(const char* property, const char* member) const;
    QByteArray numbers(const char* property, std::initializer_list<std::pair<const char*, double>> members) const;

    static constexpr qint64 mostBytes =
        4 * 1024 * 1024;  // of one connection's definitions between two elements' ends
    QXmlStreamReader xml;
    qint64 sinceEnd = 0;
    QString device, property, state, member, text;  // of the element being read
    QMap<QString, QMap<QString, QString>> values;   // of the properties of this telescope
    SlewTime slewTime;
    bool isOpen = false;
    bool slewing = false;
    bool rooted = false;
    bool asked = false;  // to connect
};
