// A telescope behind an ASCOM Alpaca server.
#pragma once

#include <functional>

#include <QJsonValue>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QUrlQuery>

#include "mounts/mount.h"

/// GET reads and PUT sets, http://host:port/api/v1/telescope/0/METHOD, one after another; the answer is JSON with an
/// error number. Source: the ASCOM Alpaca device interface, version 1.
///
/// A telescope that takes rates is slewed until it is near the satellite and then goes on by them; any other one is
/// slewed anew whenever it has arrived.
class AlpacaMount final : public Mount
{
    Q_OBJECT

public:
    explicit AlpacaMount(const MountAddress& address);

    void open() override;
    bool isBusy() const override { return !isOpen || reply; }
    void follow(const Aim& aim) override;
    void goTo(const Aim& aim) override;
    void halt() override;

private:
    /// Takes the `Value` of an answer.
    using Then = std::function<void(const QJsonValue& value)>;

    void get(const char* method, const Then& then);
    void put(const char* method, const QUrlQuery& parameters, const Then& then);
    void await(QNetworkReply* newReply, const Then& then);
    void finish(QNetworkReply* done, const Then& then);
    QUrlQuery withIds(QUrlQuery query);
    QUrl url(const char* method) const;
    void fail(const QString& why);

    void askFrame();
    void askRates();
    void startTracking();
    void slew(const Aim& aim);
    void whenStill(const std::function<void()>& then);
    void approach(const Aim& aim);
    void setRates(double raRate, double decRate, const Then& then);
    double wantedRa(const Aim& aim) const { return catalogueFrame ? aim.ra2000 : aim.ra; }
    double wantedDec(const Aim& aim) const { return catalogueFrame ? aim.dec2000 : aim.dec; }

    MountAddress address;
    QNetworkAccessManager network;
    QPointer<QNetworkReply> reply;  // under way
    unsigned transaction = 0;
    SlewTime slewTime;
    bool isOpen = false;
    bool halting = false;
    bool over = false;
    bool catalogueFrame = false;  // the telescope counts by the equator of 2000
    bool takesRates = false;
    bool optional = false;  // the method under way may be unknown to the telescope
};
