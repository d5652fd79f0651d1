// The ground track of the prime satellite over the whole time span, as a file.
#pragma once

#include <string>

struct WinpData;

/// Writes a line for each step of `tmstep` from the start date on, for `dur` days, into `savename`, which must be
/// complete (`vsFileName`) and is always started anew; `newsave` stays.
///
/// The file keeps its old content until the track is whole.
///
/// A name that ends in ".csv", ".json" or ".geojson" takes the points below the satellite in that form; one that ends in
/// ".ics" is refused.
///
/// The lines tell longitude, latitude and height of the satellite, or, while transits or flares with a known surface
/// are looked for, the ground point of the event. Visibility plays no part. The record `satpos` stands at the last
/// step afterwards. A step that does not move the time ends the track; a span of more than 100,000 days is held to that,
/// and the heading says so.
///
/// @param why  receives the reason where the file cannot be written
/// @return     0 done, 1 the file cannot be written or the track is longer than `mostTrackLines`, `calculationCancelled`
int saveOrbitTrack(WinpData* in, std::string* why = nullptr);

/// More lines than these are not written: some 100 MB.
constexpr double mostTrackLines = 2'000'000;

/// The number of lines that the track of a record would have, headings apart.
double trackLines(const WinpData& in);
