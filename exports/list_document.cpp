#include "exports/list_document.h"

#include "exports/calendar_form.h"
#include "exports/geo_form.h"
#include "exports/rows.h"
#include "exports/time_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonArray arrayOf(const std::vector<std::string>& texts)
{
    QJsonArray array;
    for (const std::string& text : texts)
        array.append(QString::fromStdString(text));
    return array;
}

QString text(const std::string& s)
{
    return QString::fromStdString(s);
}

QJsonObject siteOf(const ListSite& site)
{
    return {{"name", text(site.name)},
            {"latitude_deg", site.latitude},
            {"longitude_deg", site.longitude},
            {"height_m", site.height}};
}

QJsonObject conditionsOf(const WinpData& in)
{
    const char* light = !in.visflg ? "any" : in.moonflg ? "moonlit" : "sunlit";
    return {{"min_elevation_deg", in.satel}, {"max_sun_elevation_deg", in.sunel}, {"light", light}};
}

QJsonObject requestOf(const ListRequest& request, const WinpData& in)
{
    return {{"task", request.task},
            {"site", siteOf(request.site)},
            {"from", text(isoTime(request.from))},
            {"to", text(isoTime(request.to))},
            {"element_files", arrayOf(request.files)},
            {"satellites", arrayOf(request.satellites)},
            {"conditions", conditionsOf(in)}};
}

QJsonObject modelsOf(const ListRequest& request, const WinpData& in)
{
    QJsonObject models{{"orbit", request.numeric ? "numerical flight" : "SGP4/SDP4"},
                       {"gravity_constants", in.wgs == 0 ? "WGS72" : "WGS84"},
                       {"equinox", in.yrepoch == 0.0 ? text("of date") : text(shortestNumber(in.yrepoch))},
                       {"elevations", "without refraction"},
                       {"time_scale", "UTC"}};
    if (const QJsonArray corrections = arrayOf(namesOf(in.models)); !corrections.isEmpty())
        models.insert("corrections", corrections);
    return models;
}

std::string compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

std::string elementsText(const std::vector<UsedElements>& used, double from)
{
    std::string list;
    for (const UsedElements& e : used)
        list += std::string(list.empty() ? "" : ",") + "\n{\"name\": " + jsonString(e.satellite.name) +
                ", \"catalogue_number\": " + std::to_string(e.satellite.number) + ", \"designator\": " +
                (e.satellite.designator.empty() ? "null" : jsonString(e.satellite.designator)) +
                ", \"epoch\": " + jsonString(isoTime(e.epoch)) + ", \"age_days\": " + fixedNumber(from - e.epoch, 4) +
                '}';
    return list;
}

/// The ground point of an event, or the point below a satellite.
GeoPoint pointOf(ListColumns columns, const ListRow& row)
{
    const bool ground = columnIndex(columns, "ground_latitude_deg") < columns.size();
    return {numberAt(columns, row, ground ? "ground_latitude_deg" : "latitude_deg"),
            numberAt(columns, row, ground ? "ground_longitude_deg" : "longitude_deg"),
            numberAt(columns, row, "height_km")};
}

}  // namespace

ListDocument::ListDocument(ListForm listForm, const ListKind& listKind, const ListRequest& listRequest,
                           const WinpData& record)
    : form(listForm),
      kind(listKind),
      request(listRequest),
      requestObject(compact(requestOf(listRequest, record))),
      modelsObject(compact(modelsOf(listRequest, record)))
{}

std::string ListDocument::head() const
{
    switch (form) {
    case ListForm::table:
        return tableHeader(kind.columns, request.zoneHours);
    case ListForm::csv:
        return csvHeader(kind.columns);
    case ListForm::json:
        return "{\"request\": " + requestObject + ",\n\"models\": " + modelsObject + ",\n\"" + kind.key + "\": [\n";
    case ListForm::ics:
        return calendarHead();
    case ListForm::geojson:
        return geoHead();
    default:
        return {};
    }
}

std::string ListDocument::tail(const std::vector<UsedElements>& used) const
{
    switch (form) {
    case ListForm::json:
        return "],\n\"elements\": [" + elementsText(used, request.from) + "]}\n";
    case ListForm::ics:
        return calendarTail();
    case ListForm::geojson:
        return geoTail();
    default:
        return {};
    }
}

std::string ListDocument::item(const ListRow& row) const
{
    switch (form) {
    case ListForm::csv:
        return csvLine(kind.columns, row);
    case ListForm::json:
        return jsonObject(kind.columns, row);
    case ListForm::ndjson:
        return jsonObject(kind.columns, row) + '\n';
    case ListForm::ics:
        return calendarEvent(calendarEventOf(kind.columns, row, kind.single, request.site), request.made);
    case ListForm::geojson:
        return geoPoint(pointOf(kind.columns, row), jsonObject(kind.columns, row));
    default:
        return tableLine(kind.columns, row, request.zoneHours);
    }
}
