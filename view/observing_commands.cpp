// The commands of observers: station, reports.

#include "view/vorlix_view.h"

#include <QFile>

#include "astro/angles.h"
#include "design/astrometry.h"
#include "dialogs/st_observation_dialog.h"
#include "dialogs/st_station_dialog.h"
#include "observing/station.h"
#include "record/text.h"
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
