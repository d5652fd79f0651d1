#include "reports/growing_list.h"

#include "record/clock.h"
#include "record/text.h"
#include "reports/list_rows.h"

#include <QString>

namespace {

constexpr double mjdOf1970 = 40587.0;
constexpr double secondsPerDay = 86400.0;

}  // namespace

ListRequest listRequest(const WinpData& in, const char* task, double from, double to)
{
    ListRequest request;
    request.task = task;
    request.site = {fieldQString(in.geoname).trimmed().toStdString(), in.lat, in.lng, in.height};
    request.from = from;
    request.to = to;
    request.made = static_cast<double>(systemSeconds()) / secondsPerDay + mjdOf1970;
    request.zoneHours = in.tzone;
    request.files = {std::string(fieldText(in.tlename))};
    request.satellites = {nameOf(in, in.prs).name};
    request.numeric = in.numflg[in.prs] != 0;
    return request;
}

GrowingList::GrowingList(ListForm form, const ListKind& kind, const ListRequest& request, const WinpData& in)
    : document(form, kind, request, in), text(document.head())
{
    if (!request.satellites.empty())
        use(in, in.prs);
}

void GrowingList::use(const WinpData& in, int slot)
{
    used.push_back({nameOf(in, slot), in.mjdep[slot]});
}

void GrowingList::addItem(const std::string& item)
{
    text += (document.joinsItems() && count++ > 0 ? ",\n" : "") + item;
}

std::string GrowingList::whole() const
{
    return text + (document.joinsItems() && count > 0 ? "\n" : "") + document.tail(used);
}
