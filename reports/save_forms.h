// Lists of the window in the form that the name of a file asks for.
#pragma once

#include "engine/pass_search.h"
#include "exports/list_document.h"
#include "record/winp_data.h"

#include <optional>
#include <string>
#include <string_view>

/// The form of a list that the ending of a name stands for: ".csv", ".json", ".ics" or ".geojson", in any case;
/// nothing for any other, which takes the text of the report.
std::optional<ListForm> formOfName(std::string_view name);

/// The passes or events of the prime satellite, those that `aospass` lists, over `dur` days from the start date. In
/// GeoJSON a pass is the line below the satellite. In relative mode these are the contacts of the two satellites.
///
/// `iridflg` says what is looked for. Uses `satpos`; a calculation that the listener ends gives a part of the list.
std::string passListText(WinpData* in, ListForm form, const SearchStyle& style = {});

/// The same for every entry of the element file, in time order and never in relative mode; nothing if the file cannot be
/// opened.
std::optional<std::string> allPassesText(WinpData* in, ListForm form, const SearchStyle& style = {});

/// The flares of the mirrors of the element file, and of its solar panels with `irsol`, in time order; one of those of
/// the same second. The record is that of the flare search, see `IridiumSearch`; nothing if the file cannot be opened.
std::optional<std::string> mirrorFlaresText(WinpData* in, ListForm form);

/// The satellites of the element file that fit the sighting of the record, the nearest first; nothing if the file cannot
/// be opened, for two sightings, or for a calendar or a map, which have no place for them.
std::optional<std::string> matchesText(WinpData* in, ListForm form);

/// The steps of the pass `aossel` of the last table: places in the sky, or points below the satellite. In a calendar it
/// is the pass itself that stands, in GeoJSON the line below the satellite.
std::string passStepsText(WinpData* in, ListForm form, bool groundTrack, const HorizonLine* horizon = nullptr);

/// The points below the prime satellite over `dur` days from the start date, in steps of `tmstep`.
///
/// @return  an empty text for a calendar, which has no form for a track
std::string trackText(WinpData* in, ListForm form);

/// Writes a list to `savename`, which must be complete, in the form of its ending. A file of CSV that was begun since
/// its name was chosen (`newsave` 0) goes on with further rows if they have the same columns; any other file is
/// replaced as a whole. `newsave` is 0 afterwards if the file was written.
///
/// @return  why nothing was written, for a reader, as of an empty text; empty if all was
[[nodiscard]] std::string writeInForm(WinpData* in, ListForm form, const std::string& text);
