#include "mounts/alpaca_mount.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <cmath>

#include "astro/angles.h"

namespace {

constexpr int j2000 = 2;             // of `equatorialsystem`
constexpr double nearDegrees = 1.0;  // what rates are trusted to make good
constexpr double siSecondsPerSidereal = 0.9972695677;

QString digits(double value)
{
    return QString::number(value, 'f', 8);
}

}  // namespace

AlpacaMount::AlpacaMount(const MountAddress& to) : address(to), network(this)
{
    network.setTransferTimeout(address.patience);
    network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

QUrl AlpacaMount::url(const char* method) const
{
    QUrl u;
    u.setScheme("http");
    u.setHost(address.host);
    u.setPort(address.port);
    u.setPath(QStringLiteral("/api/v1/telescope/%1/%2").arg(address.device.toUInt()).arg(QLatin1String(method)));
    return u;
}

QUrlQuery AlpacaMount::withIds(QUrlQuery query)
{
    query.addQueryItem("ClientID", "1118");
    query.addQueryItem("ClientTransactionID", QString::number(++transaction));
    return query;
}

void AlpacaMount::get(const char* method, const Then& then)
{
    QUrl u = url(method);
    u.setQuery(withIds({}));
    await(network.get(QNetworkRequest(u)), then);
}

void AlpacaMount::put(const char* method, const QUrlQuery& parameters, const Then& then)
{
    QNetworkRequest request(url(method));
    request.setHeader(QNetworkRequest::ContentTypeHeader, "application/x-www-form-urlencoded");
    await(network.put(request, withIds(parameters).toString(QUrl::FullyEncoded).toUtf8()), then);
}

void AlpacaMount::await(QNetworkReply* newReply, const Then& then)
{
    reply = newReply;
    connect(newReply, &QNetworkReply::finished, this, [this, newReply, then] { finish(newReply, then); });
}

void AlpacaMount::finish(QNetworkReply* done, const Then& then)
{
    done->deleteLater();
    if (over || reply != done)
        return;
    reply = nullptr;
    const bool mayFail = std::exchange(optional, false);
    const auto answer = QJsonDocument::fromJson(done->readAll());
    const bool told = answer.isObject() && answer.object().contains("ErrorNumber");
    if (mayFail && done->error() != QNetworkReply::NoError &&
        done->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid()) {
        then({});
        return;
    }
    if (done->error() != QNetworkReply::NoError) {
        fail(done->errorString());
        return;
    }
    if (!told) {
        fail(tr("%1 does not speak as an Alpaca server does").arg(address.host));
        return;
    }
    if (answer["ErrorNumber"].toInt() != 0 && !mayFail) {
        fail(tr("the telescope refuses: %1").arg(answer["ErrorMessage"].toString().left(200)));
        return;
    }
    then(answer["ErrorNumber"].toInt() == 0 ? answer["Value"] : QJsonValue());
}

void AlpacaMount::fail(const QString& why)
{
    if (over)
        return;
    over = true;
    Q_EMIT failed(why);
}

void AlpacaMount::open()
{
    QUrlQuery on;
    on.addQueryItem("Connected", "True");
    put("connected", on, [this](const QJsonValue&) { askFrame(); });
}

void AlpacaMount::askFrame()
{
    optional = true;
    get("equatorialsystem", [this](const QJsonValue& value) {
        catalogueFrame = value.toInt() == j2000;
        askRates();
    });
}

void AlpacaMount::askRates()
{
    optional = true;
    get("cansetrightascensionrate", [this](const QJsonValue& ra) {
        optional = true;
        get("cansetdeclinationrate", [this, ra](const QJsonValue& dec) {
            takesRates = ra.toBool() && dec.toBool();
            startTracking();
        });
    });
}

void AlpacaMount::startTracking()
{
    QUrlQuery on;
    on.addQueryItem("Tracking", "True");
    put("tracking", on, [this](const QJsonValue&) {
        isOpen = true;
        Q_EMIT opened();
    });
}

void AlpacaMount::slew(const Aim& aim)
{
    slewTime.start();
    QUrlQuery to;
    to.addQueryItem("RightAscension", digits(wantedRa(aim)));
    to.addQueryItem("Declination", digits(wantedDec(aim)));
    put("slewtocoordinatesasync", to, [](const QJsonValue&) {});
}

void AlpacaMount::whenStill(const std::function<void()>& then)
{
    get("slewing", [this, then](const QJsonValue& slewing) {
        if (slewing.toBool())
            return;
        slewTime.arrived();
        then();
    });
}

void AlpacaMount::goTo(const Aim& aim)
{
    whenStill([this, aim] { slew(aim); });
}

void AlpacaMount::follow(const Aim& aim)
{
    whenStill([this, aim] {
        if (takesRates)
            approach(aim);
        else
            slew(ahead(aim, slewTime.seconds()));
    });
}

/// Sets the rates, or slews where the telescope is far from the satellite. What it is off goes into the rates, to be
/// made good within two seconds.
void AlpacaMount::approach(const Aim& aim)
{
    get("rightascension", [this, aim](const QJsonValue& ra) {
        get("declination", [this, aim, ra](const QJsonValue& dec) {
            const double hours = std::remainder(wantedRa(aim) - ra.toDouble(), 24.0);
            const double offRa = hours * 15.0;
            const double offDec = wantedDec(aim) - dec.toDouble();
            const bool isNear = std::hypot(offRa * std::cos(wantedDec(aim) * radPerDeg), offDec) < nearDegrees;
            if (isNear)
                setRates(aim.raRate + offRa * 1800.0, aim.decRate + offDec * 1800.0, [](const QJsonValue&) {});
            else
                setRates(0, 0, [this, aim](const QJsonValue&) { slew(ahead(aim, slewTime.seconds())); });
        });
    });
}

/// @param raRate, decRate  arc seconds in a second
void AlpacaMount::setRates(double raRate, double decRate, const Then& then)
{
    QUrlQuery ra;
    ra.addQueryItem("RightAscensionRate", digits(raRate / 15.0 * siSecondsPerSidereal));
    put("rightascensionrate", ra, [this, decRate, then](const QJsonValue&) {
        QUrlQuery dec;
        dec.addQueryItem("DeclinationRate", digits(decRate));
        put("declinationrate", dec, then);
    });
}

void AlpacaMount::halt()
{
    if (over || halting)
        return;
    halting = true;
    if (QNetworkReply* old = reply) {
        reply = nullptr;
        old->abort();
    }
    optional = true;  // whatever it says, there is nothing else to be done
    put("abortslew", {}, [this](const QJsonValue&) {
        const auto end = [this](const QJsonValue&) {
            over = true;
            Q_EMIT halted();
        };
        if (takesRates && isOpen)
            setRates(0, 0, end);
        else
            end({});
    });
}
