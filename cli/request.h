// What a command line asks for, as values; nothing of it has been looked up yet.
#pragma once

#include "exports/list_document.h"
#include "record/corrections.h"

#include <optional>
#include <string>
#include <vector>

/// The first word of a command line.
enum class Task
{
    passes,
    events,
    contacts,
    look,
    track,
    state,
    match,
    convert,
    next,
    now,
    report,
    fit,
    field,
    identify
};

/// How a command line ends.
namespace status {
enum Code
{
    found = 0,
    nothingFound = 1,
    wrongWords = 2,
    unreadable = 3  // an input that cannot be read, or an output that cannot be written
};
}

/// Which light a pass needs.
enum class Light
{
    asSaved,  // by the saved configuration
    any,
    sunlit,
    moonlit  // in the light of the Moon, and not of the Sun
};

/// Two angles in degrees: azimuth and elevation, or right ascension and declination, or yaw and pitch.
struct Angles
{
    double first = 0, second = 0;
};

/// Where and when something was seen.
struct Sighting
{
    std::string at;           // text of a time
    Angles place;             // azimuth and elevation, or right ascension and declination of date
    bool equatorial = false;  // the latter
};

struct Request
{
    Task task = Task::passes;
    ListForm form = ListForm::table;
    std::vector<std::string> files;       // "-" is standard input; none: that of the saved configuration
    std::vector<std::string> satellites;  // names, numbers, designators; none: all of the files
    std::optional<ListSite> site;
    std::string siteName;
    std::string from, to, zone, clock;  // texts of times; empty for none
    std::optional<double> days;
    std::optional<long long> limit;
    std::optional<int> workers;
    std::string output;          // a file; empty: standard output
    bool entryOrder = false;     // as the files have them, each printed when it is ready
    bool withoutConfig = false;  // the saved configuration is not read
    Corrections corrections;     // of the models

    Light light = Light::asSaved;
    std::optional<double> minElevation, maxSun;  // degrees
    std::string horizon;                         // a file; empty: a plain one
    double minDuration = 0;                      // seconds
    bool thorough = false;                       // every interval in which the conditions hold
    std::optional<double> brighter;              // magnitude; passes that stay fainter are left out
    bool darkSky = false;                        // as well those that are lost in twilight and moonlight
    bool byMagnitude = false;                    // sorted by it

    /// Whether the passes shall have magnitudes.
    bool wantsBrightness() const { return brighter || byMagnitude || darkSky; }

    std::vector<std::string> reports;  // files of observations; "-" is standard input
    std::vector<std::string> hold;     // elements that a fit leaves as they are
    bool initial = false;              // a fit begins with an orbit found from the observations
    bool geometric = false;            // positions with the annual aberration taken off already
    int angleCode = 0;                 // of reports that are written; 0: as they were read

    std::vector<std::string> kinds;      // of events
    std::optional<Angles> place;         // in the sky, for occultations; J2000
    std::optional<Angles> mirror;        // yaw and pitch of a known surface
    std::optional<Angles> normal;        // direction of a surface that stands still among the stars
    std::optional<double> maxDistance;   // km
    std::optional<double> maxMagnitude;  // of the flares of three mirrors
    double step = 60;                    // seconds
    std::optional<double> frequency;     // Hz
    std::optional<double> length;        // metres, for magnitudes
    std::string frame = "true-of-date";  // of states
    bool numeric = false;                // states by numerical flight
    std::string at;                      // time of a sighting, the last one of several
    std::optional<Angles> azel, radec;   // place of a sighting
    std::vector<Sighting> sightings;     // all of them, of one satellite
    std::optional<Angles> size;          // width and height of a frame, degrees
    double angle = 0;                    // of its upper side
    std::optional<double> exposure;      // seconds
    std::string picture;
    std::vector<double> streak;       // x1, y1, x2, y2 in pixels; empty: the picture is searched
    double clockOffset = 0;           // seconds that the clock of the camera was behind
    bool free = false;                // the times without a satellite instead
    double radius = 2;                // degrees
    double window = 1;                // minutes to both sides
    std::optional<double> direction;  // degrees
};

/// The outcome of reading a command line.
struct ReadWords
{
    Request request;
    std::string complaint;  // one line that says what was expected; empty if the words are good
    std::string answer;     // a help text that was asked for
};

/// Reads the words behind the name of the program.
ReadWords readWords(const std::vector<std::string>& words);
