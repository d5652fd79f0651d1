// The commands of observers: station, reports.

#include "view/vorlix_view.h"

#include <QFile>
#include <QFileInfo>

#include "astro/angles.h"
#include "design/astrometry.h"
#include "design/circular_start.h"
#include "design/satellite_slots.h"
#include "dialogs/st_fit_dialog.h"
#include "dialogs/st_horizon_dialog.h"
#include "dialogs/st_observation_dialog.h"
#include "dialogs/st_station_dialog.h"
#include "observing/initial_orbit.h"
#include "observing/station.h"
#include "record/text.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

using Proposal = StObservationDialog::Proposal;

constexpr double degreesPerHour = 15.0;

/// What all proposals share: the prime satellite at the time on show.
Observation plainObservation(const WinpData& in)
{
    Observation o;
    if (in.satn > 0) {
        o.number = in.norad[in.prs];
        o.designator = fieldQString(in.ldsn[in.prs]).trimmed().toStdString();
    }
    o.mjd = in.mjd;
    o.angles = SkyAngles::equatorial;
    o.equinox = 2000.0;
    return o;
}

/// Angles as the record has them: degrees, or packed as HH.MMSS and DD.MMSS.
Observation sighting(const WinpData& in, bool packed, double first, double second, double equinox)
{
    Observation o = plainObservation(in);
    o.angles = packed ? SkyAngles::equatorial : SkyAngles::horizontal;
    o.first = packed ? DmsDegF(first) * degreesPerHour : first;
    o.second = packed ? DmsDegF(second) : second;
    o.equinox = equinox;
    return o;
}

std::vector<Proposal> proposalsOf(const WinpData& in)
{
    std::vector<Proposal> all;
    if (in.picstep >= astrometry::furtherTrailPoint) {
        const auto ends = astrometry::trailEnds(in);
        all.push_back({VorlixView::tr("First end of the trail on the picture"),
                       sighting(in, true, ends[0].ra, ends[0].dec, in.yrepoch)});
        all.push_back({VorlixView::tr("Second end of the trail on the picture"),
                       sighting(in, true, ends[1].ra, ends[1].dec, in.yrepoch)});
    }
    if (in.az != 0.0 || in.el != 0.0)
        all.push_back({VorlixView::tr("Sighting of the search for matching satellites"),
                       sighting(in, in.rdf != 0, in.az, in.el, 0.0)});
    if (in.deltm != 0.0) {
        all.push_back({VorlixView::tr("First sighting of the orbit determination"),
                       sighting(in, in.az1flg != 0, in.az1, in.el1, in.yrepoch)});
        all.push_back({VorlixView::tr("Second sighting of the orbit determination"),
                       sighting(in, in.az2flg != 0, in.az2, in.el2, in.yrepoch)});
        all.back().observation.mjd += in.deltm / 86400.0;
    }
    all.push_back({VorlixView::tr("Typed"), plainObservation(in)});
    return all;
}

using Start = StFitDialog::Start;
using StartOrbit = StFitDialog::StartOrbit;

StartOrbit selectedStart(const WinpData& in, int slot)
{
    if (in.ecc[slot] >= 1.0)
        return {{}, VorlixView::tr("%1 is on no ellipse").arg(fieldQString(in.fsname[slot]).trimmed()).toStdString()};
    return {orbitOf(in, slot), {}};
}

StartOrbit circleOf(const WinpData& in, std::span<const SitedObservation> observations)
{
    const auto orbit = circularStart(in, observations);
    if (orbit)
        return {*orbit, {}};
    return {{}, VorlixView::tr("no circle goes through two marked observations from one place").toStdString()};
}

StartOrbit foundOrbit(const WinpData& in, std::span<const SitedObservation> observations)
{
    FitRequest request;
    request.earth = earthOrientationOf(in);
    request.start.wgs84 = in.wgs != 0;
    request.start.deepSpace = in.sdp4;
    InitialOrbit found;
    if (!calculated([&] { found = initialOrbit(request, observations); }))
        found.complaint = VorlixView::tr("it was ended").toStdString();
    return {found.orbit, found.complaint};
}

/// The prime satellite first; the rest in their order, and the ways without one behind them.
std::vector<Start> startsOf(const WinpData& in, std::vector<int>& slots)
{
    std::vector<Start> starts;
    for (int slot = 0; slot < in.satn; ++slot)
        slots.insert(slot == in.prs ? slots.begin() : slots.end(), slot);
    for (const int slot : slots)
        starts.push_back({fieldQString(in.fsname[slot]).trimmed(),
                          [&in, slot](std::span<const SitedObservation>) { return selectedStart(in, slot); }});
    starts.push_back({VorlixView::tr("Circle through two of the observations"),
                      [&in](std::span<const SitedObservation> all) { return circleOf(in, all); }});
    starts.push_back({VorlixView::tr("Orbit found from three or more of the observations"),
                      [&in](std::span<const SitedObservation> all) { return foundOrbit(in, all); }});
    return starts;
}

/// As a long calculation of the window.
FitResult longFit(const FitRequest& request, std::span<const SitedObservation> observations)
{
    FitResult fit;
    if (!calculated([&] { fit = fitElements(request, observations); }))
        fit.complaint = VorlixView::tr("it was ended").toStdString();
    return fit;
}

}  // namespace

void VorlixView::vStation()
{
    const WinpData& in = *indata;
    StStationDialog dialog(this);
    dialog.setValues(ownStation(), tr("%1, latitude %2, longitude %3, %4 m")
                                       .arg(fieldQString(in.geoname).trimmed())
                                       .arg(in.lat)
                                       .arg(in.lng)
                                       .arg(in.height));
    if (dialog.exec() != QDialog::Accepted)
        return;
    keepOwnStation(dialog.values());
    keepSiteOfStation(dialog.values().number, siteOf(in));
}

QString VorlixView::restoreHorizon()
{
    const QString name = horizonFile();
    if (name.isEmpty())
        return {};
    const HorizonText text = readHorizonFile(name);
    horizon = text.line;
    return horizon ? QString() : tr("No horizon from %1: %2").arg(name, QString::fromStdString(text.complaint));
}

void VorlixView::vHorizon()
{
    StHorizonDialog dialog(this);
    dialog.setFile(horizonFile());
    if (dialog.exec() != QDialog::Accepted)
        return;
    horizon = dialog.line();
    const QString name = dialog.file();
    keepHorizonFile(name.isEmpty() ? name : QFileInfo(name).absoluteFilePath());
    drawAnew();
}

void VorlixView::vSaveObservation()
{
    Station station = ownStation();
    StObservationDialog dialog(this);
    dialog.setValues(proposalsOf(*indata), station);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const WrittenReport report = dialog.report();
    if (!report.complaint.empty()) {
        warn(this, tr("Save Observation"), tr("Nothing is saved: %1.").arg(QString::fromStdString(report.complaint)));
        return;
    }
    station.file = dialog.fileName();
    QFile file(station.file);
    const auto bytes = QByteArray::fromStdString(report.text);
    if (!file.open(QIODevice::Append) || file.write(bytes) != bytes.size() || !file.flush()) {
        warn(this, tr("Save Observation"), nothingWritten(station.file, file.errorString()));
        return;
    }
    keepOwnStation(station);
}

void VorlixView::vFitElements()
{
    const WinpData& in = *indata;
    std::vector<int> slots;
    StFitDialog::Setup setup{startsOf(in, slots),    proposalsOf(in),         ownStation(), siteOf(in),
                             earthOrientationOf(in), in.satn < maxSatellites, longFit};
    StFitDialog dialog(this);
    dialog.setValues(setup);
    if (dialog.exec() != QDialog::Accepted || !dialog.fitted())
        return;
    const std::size_t start = std::size_t(dialog.startIndex());
    addFittedSatellite(indata, start < slots.size() ? slots[start] : -1, dialog.fitted()->elements);
}
