// A request with everything looked up: record, site, interval and files.
#pragma once

#include "cli/channels.h"
#include "cli/request.h"
#include "cli/times.h"
#include "engine/horizon_line.h"
#include "record/files.h"
#include "record/winp_data.h"

#include <memory>
#include <string>
#include <vector>

/// An element file of the request.
struct ElementFile
{
    std::string shown;  // the name that was typed
    std::string path;   // what is opened
    FilePtr held;       // the content of standard input
};

/// Why a request cannot be answered.
struct Problem
{
    int status = status::found;
    std::string message;

    explicit operator bool() const { return status != status::found; }
};

struct Session
{
    Request request;
    /// Conditions, models and site; no satellite is selected.
    std::unique_ptr<WinpData> record;
    ListSite site;
    std::shared_ptr<const HorizonLine> horizon;  // null: a plain one
    std::vector<ElementFile> files;
    double now = 0;  // MJD UTC, as all instants
    double from = 0, to = 0;
    std::vector<double> seenAt;  // the times of the sightings
    double zoneHours = 0;        // of times without a zone and of tables
};

/// Fills the session from its request. Files are opened for a try; nothing is written.
Problem prepare(Session& session, const Channels& channels);
