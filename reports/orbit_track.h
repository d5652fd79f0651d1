// The ground track of the prime satellite over the whole time span, as a file.
#pragma once

struct WinpData;

/// Writes a line for each step of `tmstep` from the start date on, for `dur` days, into `savename`, which must be
/// complete (`vsFileName`) and is always started anew; `newsave` stays.
///
/// The lines tell longitude, latitude and height of the satellite, or, while transits or flares with a known surface
/// are looked for, the ground point of the event. Visibility plays no part. The record `satpos` stands at the last
/// step afterwards. A step that does not move the time ends the track; a span of more than 100,000 days is held to that,
/// and the heading says so.
///
/// @return  0 done, 1 the file cannot be opened
int saveOrbitTrack(WinpData* in);
