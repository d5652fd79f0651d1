// What moves a telescope or an antenna.
#pragma once

#include <memory>

#include <QObject>
#include <QString>

#include "mounts/aim.h"

/// How a mount is spoken to.
enum class MountKind
{
    rotctld,  // a rotator, azimuth and elevation: the text protocol of Hamlib's rotctld over TCP
    indi,     // a telescope, right ascension and declination of date: INDI, XML over TCP
    alpaca    // a telescope: ASCOM Alpaca, REST over HTTP
};

/// The port that a server of this kind listens on unless told otherwise.
quint16 usualPort(MountKind kind);

/// Where a mount is.
struct MountAddress
{
    MountKind kind = MountKind::rotctld;
    QString host = QStringLiteral("localhost");
    quint16 port = 4533;
    QString device;       // of INDI the name; of Alpaca the number of the telescope; of rotctld nothing
    int patience = 5000;  // milliseconds; a mount that says nothing for so long has failed
};

/// One mount over the network. Everything answers later, by a signal; one that says nothing for too long has
/// failed. After `failed` and `halted` the object is of no more use.
class Mount : public QObject
{
    Q_OBJECT

public:
    /// Reaches the mount: `opened` or `failed` follows.
    virtual void open() = 0;

    /// Whether it still works on the last word; another one would come too early.
    virtual bool isBusy() const = 0;

    /// Goes with a moving target: once a second, or as soon as `isBusy` ends.
    virtual void follow(const Aim& aim) = 0;

    /// Goes to a place and stays there.
    virtual void goTo(const Aim& aim) = 0;

    /// Ends all movement at once, whatever is under way: `halted` follows when the mount has the word, or cannot get it.
    virtual void halt() = 0;

Q_SIGNALS:
    void opened();
    void halted();
    void failed(const QString& why);

protected:
    using QObject::QObject;
};

/// A mount for an address, of the thread that makes it.
std::unique_ptr<Mount> makeMount(const MountAddress& address);
