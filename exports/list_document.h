// A list as a whole document: what stands before its rows, between them and behind them, in each form.
#pragma once

#include "exports/lists.h"
#include "record/winp_data.h"

#include <string>
#include <vector>

/// The form of a list.
enum class ListForm : int
{
    table,
    csv,
    json,
    ndjson,
    ics,
    geojson,
    oem,
    tle,
    xml,
    kvn,
    iod,
    uk,
    rde
};

/// What a list is called and how its rows look.
struct ListKind
{
    const char* key;  // in JSON: "passes"
    ListColumns columns;
    const char* single;  // in calendars: "pass"
};

/// What was asked for. Instants are MJD UTC.
struct ListRequest
{
    const char* task = "passes";
    ListSite site;
    double from = 0, to = 0;
    double made = 0;       // when the list is made
    double zoneHours = 0;  // of tables
    std::vector<std::string> files, satellites;
    bool numeric = false;  // by numerical flight
};

/// The elements that a satellite of a list was computed from.
struct UsedElements
{
    SatelliteName satellite;
    double epoch;  // MJD UTC
};

/// The texts of a list in one form.
class ListDocument
{
public:
    /// @param record  conditions and models
    ListDocument(ListForm listForm, const ListKind& listKind, const ListRequest& listRequest, const WinpData& record);

    std::string head() const;
    /// A row. In `geojson` it becomes a point if the columns have a ground point or a point below the satellite.
    std::string item(const ListRow& row) const;
    std::string tail(const std::vector<UsedElements>& used) const;

    /// Whether commas and line feeds stand between the items.
    bool joinsItems() const { return form == ListForm::json || form == ListForm::geojson; }

private:
    ListForm form;
    ListKind kind;
    ListRequest request;
    std::string requestObject, modelsObject;
};
