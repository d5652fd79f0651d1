#include "cli/answer.h"

#include "cli/words.h"
#include "exports/geo_form.h"
#include "exports/time_text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

namespace {

constexpr std::size_t bytesInMemory = 8'000'000;

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

QJsonObject requestOf(const Session& session)
{
    const WinpData& in = *session.record;
    std::vector<std::string> files;
    for (const ElementFile& file : session.files)
        files.push_back(file.shown);
    return {{"task", wordsOf(session.request.task).name},
            {"site", QJsonObject{{"name", text(session.site.name)},
                                 {"latitude_deg", session.site.latitude},
                                 {"longitude_deg", session.site.longitude},
                                 {"height_m", session.site.height}}},
            {"from", text(isoTime(session.from))},
            {"to", text(isoTime(session.to))},
            {"element_files", arrayOf(files)},
            {"satellites", arrayOf(session.request.satellites)},
            {"conditions", QJsonObject{{"min_elevation_deg", in.satel},
                                       {"max_sun_elevation_deg", in.sunel},
                                       {"light", !in.visflg   ? "any"
                                                 : in.moonflg ? "moonlit"
                                                              : "sunlit"}}}};
}

QJsonObject modelsOf(const Session& session)
{
    const WinpData& in = *session.record;
    return {{"orbit", session.request.numeric ? "numerical flight" : "SGP4/SDP4"},
            {"gravity_constants", in.wgs == 0 ? "WGS72" : "WGS84"},
            {"equinox", in.yrepoch == 0.0 ? text("of date") : text(shortestNumber(in.yrepoch))},
            {"elevations", "without refraction"},
            {"time_scale", "UTC"}};
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

/// Lists of steps come satellite after satellite, all others in time order if nothing else is asked for.
bool inTimeOrder(const Request& request)
{
    switch (request.task) {
    case Task::look:
    case Task::track:
    case Task::state:
    case Task::now:
    case Task::convert:
        return false;
    default:
        return !request.entryOrder;
    }
}

}  // namespace

Answer::Answer(const Session& theSession, const Channels& theChannels, const ListKind& theKind)
    : session(theSession),
      channels(theChannels),
      kind(theKind),
      sorter(bytesInMemory),
      sorts(inTimeOrder(theSession.request))
{}

/// Opens the output, only now that there is something to write: a request that fails must not cost an old file.
void Answer::begin()
{
    if (std::exchange(begun, true))
        return;
    const std::string& name = session.request.output;
    if (!name.empty()) {
        file.reset(std::fopen(name.c_str(), "w"));
        channels.out = [this](std::string_view piece) {
            return file && std::fwrite(piece.data(), 1, piece.size(), file.get()) == piece.size();
        };
    }
    if (file)
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
    write(head());
}

void Answer::put(std::string_view piece)
{
    begin();
    write(piece);
}

std::string Answer::head() const
{
    if (session.request.task == Task::convert)
        return {};
    switch (session.request.form) {
    case Form::table:
        return tableHeader(kind.columns, session.zoneHours);
    case Form::csv:
        return csvHeader(kind.columns);
    case Form::json:
        return "{\"request\": " + compact(requestOf(session)) + ",\n\"models\": " + compact(modelsOf(session)) +
               ",\n\"" + kind.key + "\": [\n";
    case Form::ics:
        return calendarHead();
    case Form::geojson:
        return geoHead();
    default:
        return {};
    }
}

std::string Answer::tail() const
{
    if (session.request.task == Task::convert)
        return {};
    switch (session.request.form) {
    case Form::json:
        return "],\n\"elements\": [" + elementsText(used, session.from) + "]}\n";
    case Form::ics:
        return calendarTail();
    case Form::geojson:
        return geoTail();
    default:
        return {};
    }
}

std::string Answer::textOf(const Row& row) const
{
    switch (session.request.form) {
    case Form::csv:
        return csvLine(kind.columns, row);
    case Form::json:
        return jsonObject(kind.columns, row);
    case Form::ndjson:
        return jsonObject(kind.columns, row) + '\n';
    case Form::ics:
        return calendarEvent(calendarEventOf(kind.columns, row, kind.single, session.site), session.now);
    case Form::geojson:
        return geoPoint({numberAt(kind.columns, row, "ground_latitude_deg"),
                         numberAt(kind.columns, row, "ground_longitude_deg"), 0.0},
                        jsonObject(kind.columns, row));
    default:
        return tableLine(kind.columns, row, session.zoneHours);
    }
}

/// Whether commas stand between the items.
bool Answer::joined() const
{
    return session.request.task != Task::convert &&
           (session.request.form == Form::json || session.request.form == Form::geojson);
}

void Answer::add(double time, const Row& row)
{
    if (!full())
        addText(time, textOf(row));
}

void Answer::addText(double time, std::string item)
{
    if (full())
        return;
    ++taken;
    if (sorts)
        sorter.add(time, std::move(item));
    else
        give(item);
}

void Answer::use(const UsedElements& elements)
{
    if (session.request.form == Form::json)
        used.push_back(elements);
}

bool Answer::full() const
{
    return closed || (!sorts && session.request.limit && taken >= *session.request.limit);
}

/// False once no more are wanted.
bool Answer::give(const std::string& item)
{
    if (closed || (session.request.limit && given >= *session.request.limit))
        return false;
    begin();
    ++given;
    if (!joined())
        return write(item);
    const bool goesOn = pending.empty() || write(pending + ",\n");
    pending = item;
    return goesOn;
}

bool Answer::write(std::string_view piece)
{
    if (!closed && !piece.empty() && !channels.out(piece))
        closed = true;
    return !closed;
}

Problem Answer::end(const Problem& before)
{
    if (before && !begun && taken == 0)
        return before;
    begin();
    const bool whole = sorter.giveAll([&](const std::string& item) { return give(item); });
    if (!pending.empty())
        write(pending + '\n');
    write(tail());
    if (!whole)
        return {status::unreadable, "vorlix: there is no room for the list in the folder of temporary files"};
    if (closed && !session.request.output.empty())
        return {status::unreadable, "vorlix: " + inQuotes(session.request.output) + " cannot be written"};
    return before;
}
