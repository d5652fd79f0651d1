#include "cli/words.h"

#include <QString>
#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>
#include <utility>

namespace {

constexpr const char* listForms = "table csv json ndjson";

// clang-format off
constexpr std::array tasks{
    TaskWords{Task::passes, "passes", "", "passes over the site, in time order",
     "table csv json ndjson ics",
     {"passes --satellite 25544 --site 48.2,16.4 --from tonight",
      "passes --from tonight --brighter 4 --sort magnitude --length 5"}},
    TaskWords{Task::events, "events", "",
     "flares, transits of Sun and Moon, occultations of a place in the sky, with width and ground point",
     "table csv json ndjson ics geojson",
     {"events --kind sun --kind moon --satellite ISS --days 14",
      "events --kind place --place 68.98,16.51 --max-distance 20 --format csv"}},
    TaskWords{Task::contacts, "contacts", "A B", "when two satellites see each other",
     "table csv json ndjson ics",
     {"contacts 25544 20580 --days 1", "contacts \"HST\" \"ISS\" --visible --format json"}},
    TaskWords{Task::look, "look", "",
     "azimuth, elevation, range, rate, Doppler, right ascension, declination, light and magnitude", listForms,
     {"look --satellite ISS --from now --days 0.01 --step 10",
      "look --satellite 25544 --from 2018-01-20T17:04Z --frequency 145800000 --format csv"}},
    TaskWords{Task::track, "track", "", "points below the satellites",
     "table csv json ndjson geojson",
     {"track --satellite ISS --format geojson --output track.geojson",
      "track --satellite 25544 --from 2018-01-20 --days 1 --step 30 --format csv"}},
    TaskWords{Task::state, "state", "", "positions and velocities, by SGP4 or by numerical flight",
     "table csv json ndjson oem",
     {"state --satellite 25544 --frame j2000 --format oem --output iss.oem",
      "state --satellite ISS --numeric --frame earth-fixed --days 1 --step 600 --format csv"}},
    TaskWords{Task::match, "match", "", "satellites that fit a sighting, or several of the same object", listForms,
     {"match --at 2018-01-20T17:06:30Z --azel 205,38 --radius 5",
      "match --at 2018-01-20T17:00Z --azel 253,23 --at 2018-01-20T17:01Z --azel 271,22"}},
    TaskWords{Task::convert, "convert", "", "element sets in another form, every one as its file has it",
     "tle csv json xml kvn",
     {"convert --elements visual.txt --format json --output visual.json",
      "convert --elements - --satellite ISS --format kvn"}},
    TaskWords{Task::next, "next", "", "which satellites rise next",
     "table csv json ndjson ics",
     {"next --limit 5", "next --visible --min-elevation 20 --format json"}},
    TaskWords{Task::now, "now", "", "which satellites are up now", listForms,
     {"now", "now --visible --format csv"}},
    TaskWords{Task::report, "report", "FILE...", "observations of IOD, UK and RDE reports, and the reports in another form",
     "table csv json ndjson iod uk rde",
     {"report seen.iod", "report seen.iod old.uk --format iod --code 3 --output all.iod"}},
    TaskWords{Task::fit, "fit", "FILE...", "residuals of observations after a fit of the elements to them, or the new elements",
     "table csv json ndjson tle",
     {"fit seen.iod --satellite 25544 --site 48.2,16.4,200",
      "fit seen.iod --elements visual.txt --satellite 25544 --hold drag --format tle --output better.txt"}},
    TaskWords{Task::field, "field", "", "satellites that cross a field of the sky during an exposure", listForms,
     {"field --radec 83.8,-5.4 --size 3.2,2.1 --from 2018-01-20T17:00Z --exposure 60",
      "field --azel 180,45 --radius 5 --days 0.04 --visible --free"}},
    TaskWords{Task::identify, "identify", "PICTURE", "satellites on a picture that has a solution, those that fit its streaks first",
     listForms,
     {"identify night.fits --elements all.txt", "identify night.jpg --streak 210,95,1830,1204 --exposure 30"}},
};

constexpr unsigned everyTask = (1u << tasks.size()) - 1;
constexpr unsigned observed = bitOf(Task::report);
constexpr unsigned computed = everyTask & ~bitOf(Task::report);  // from elements
constexpr unsigned lists = computed & ~bitOf(Task::convert);
constexpr unsigned stepped = bitOf(Task::look) | bitOf(Task::track) | bitOf(Task::state);
constexpr unsigned searched = bitOf(Task::passes) | bitOf(Task::events) | bitOf(Task::next);
constexpr unsigned located = bitOf(Task::match) | bitOf(Task::field);
constexpr unsigned conditions = searched | bitOf(Task::match) | bitOf(Task::now);

constexpr std::array options{
    OptionWords{"elements", "FILE", computed, "element file of any form, - for standard input; may come again"},
    OptionWords{"satellite", "WHICH", computed & ~bitOf(Task::contacts),
                "start of a name, catalogue number or designator (1998-067A); may come again"},
    OptionWords{"site", "LAT,LON[,HEIGHT]", lists, "the observer, degrees (north and east positive) and metres"},
    OptionWords{"site-name", "NAME", lists, "the observer by the name of a saved or a launch site"},
    OptionWords{"from", "TIME", lists & ~bitOf(Task::match),
                "ISO 8601, now (as without it) or tonight: from sunset to sunrise at the site"},
    OptionWords{"to", "TIME", lists & ~bitOf(Task::match) & ~bitOf(Task::now), "ISO 8601 or now"},
    OptionWords{"days", "NUMBER", lists & ~bitOf(Task::match) & ~bitOf(Task::now), "length of the interval"},
    OptionWords{"zone", "ZONE", lists | observed,
                "zone of times without one and of those in tables: Z, +01:00, 1, local, Europe/Vienna"},
    OptionWords{"limit", "NUMBER", everyTask, "no more rows than this"},
    OptionWords{"workers", "NUMBER", computed, "threads; as many as there are cores without it"},
    OptionWords{"format", "FORM", everyTask, "form of the answer"},
    OptionWords{"output", "FILE", everyTask, "where the answer goes instead of standard output"},
    OptionWords{"order", "ORDER", searched | bitOf(Task::match),
                "time, or entry: as the file has the satellites, each printed when it is ready"},
    OptionWords{"visible", nullptr, conditions | bitOf(Task::contacts) | bitOf(Task::field), "only with the satellite in sunlight"},
    OptionWords{"moonshine", nullptr, conditions, "only with the satellite in moonlight alone"},
    OptionWords{"all", nullptr, conditions | bitOf(Task::contacts), "in any light, by day as well"},
    OptionWords{"min-elevation", "DEGREES", conditions, "lowest elevation of the satellite"},
    OptionWords{"max-sun", "DEGREES", conditions, "highest elevation of the Sun"},
    OptionWords{"horizon", "FILE", searched,
                "houses and hills around the site: a text file of azimuth and elevation, degrees"},
    OptionWords{"min-duration", "SECONDS", bitOf(Task::passes) | bitOf(Task::contacts), "shorter ones are left out"},
    OptionWords{"thorough", nullptr, bitOf(Task::passes),
                "every interval, to 0.01 s: short passes and parts of passes too"},
    OptionWords{"brighter", "MAGNITUDE", bitOf(Task::passes), "only passes that become so bright, with the magnitude"},
    OptionWords{"dark-sky", nullptr, bitOf(Task::passes),
                "with --brighter: only those that twilight and moonlight leave to the unaided eye"},
    OptionWords{"sort", "SORT", bitOf(Task::passes), "time or magnitude, the brightest first"},
    OptionWords{"kind", "KIND", bitOf(Task::events), "sun, moon, place, flare or iridium; may come again"},
    OptionWords{"place", "RA,DEC", bitOf(Task::events), "what is occulted: degrees, J2000"},
    OptionWords{"mirror", "YAW,PITCH", bitOf(Task::events), "flares of a surface fixed to the satellite, degrees"},
    OptionWords{"normal", "RA,DEC", bitOf(Task::events), "flares of a surface fixed among the stars, degrees"},
    OptionWords{"max-distance", "KM", bitOf(Task::events), "from the site to the ground point of the event"},
    OptionWords{"max-magnitude", "NUMBER", bitOf(Task::events), "faintest flare of kind iridium"},
    OptionWords{"step", "SECONDS", stepped, "between two rows; 60 without it"},
    OptionWords{"frequency", "HZ", bitOf(Task::look), "transmitter, for the Doppler shift"},
    OptionWords{"length", "METRES", bitOf(Task::passes) | bitOf(Task::look) | bitOf(Task::now) | bitOf(Task::field) | bitOf(Task::identify),
                "size of the satellite, for magnitudes; of passes where nothing else is known"},
    OptionWords{"frame", "FRAME", bitOf(Task::state), "true-of-date, mean-of-date, j2000 or earth-fixed"},
    OptionWords{"numeric", nullptr, bitOf(Task::state), "by numerical flight from the state at epoch"},
    OptionWords{"at", "TIME", bitOf(Task::match), "when it was seen; may come again, each time with its --azel or --radec"},
    OptionWords{"azel", "AZ,EL", located, "where it was seen, or the centre of the field, degrees"},
    OptionWords{"radec", "RA,DEC", located, "where it was seen, degrees of date, or the centre of the field, of 2000"},
    OptionWords{"radius", "DEGREES", located, "how far off it may be; 2 without it"},
    OptionWords{"window", "MINUTES", bitOf(Task::match), "how much earlier or later; 1 without it"},
    OptionWords{"direction", "DEGREES", bitOf(Task::match), "where it moved: 0 up, 90 right; within 45 degrees"},
    OptionWords{"size", "WIDTH,HEIGHT", bitOf(Task::field), "of a frame in place of the circle, degrees"},
    OptionWords{"angle", "DEGREES", bitOf(Task::field), "of the upper side of the frame from north through east"},
    OptionWords{"exposure", "SECONDS", bitOf(Task::field) | bitOf(Task::identify), "length of the exposure; without it 60, or what the picture says"},
    OptionWords{"streak", "X1,Y1,X2,Y2", bitOf(Task::identify), "ends of a streak in pixels; without it the picture is searched"},
    OptionWords{"clock-offset", "SECONDS", bitOf(Task::identify), "added to the time of the picture"},
    OptionWords{"free", nullptr, bitOf(Task::field), "the times without a sunlit satellite instead"},
    OptionWords{"code", "NUMBER", observed, "form of the angles in reports, 1 to 7 as IOD counts; as they were without it"},
    OptionWords{"hold", "ELEMENT", bitOf(Task::fit),
                "not fitted: inclination, node, eccentricity, perigee, anomaly, motion or drag; may come again"},
    OptionWords{"initial", nullptr, bitOf(Task::fit),
                "starts from an orbit found from three or more of the observations; takes the place of --satellite"},
    OptionWords{"geometric", nullptr, bitOf(Task::fit),
                "right ascensions are free of annual aberration; else they count as measured against stars"},
    OptionWords{"models", "NAMES", lists,
                "computed as published: modern for all, or names of single corrections with commas between"},
    OptionWords{"no-config", nullptr, everyTask, "as if no configuration were saved"},
    OptionWords{"clock", "TIME", everyTask, "the instant that counts as now, for answers that can be repeated"},
    OptionWords{"help", nullptr, everyTask, "this text"},
};
// clang-format on

/// The number of letters to be changed, added or left out (Levenshtein).
std::size_t distanceOf(std::string_view one, std::string_view other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t k = 0; k < other.size(); ++k) {
            const bool same = std::tolower(static_cast<unsigned char>(one[i])) ==
                              std::tolower(static_cast<unsigned char>(other[k]));
            const std::size_t changed = diagonal + (same ? 0 : 1);
            diagonal = std::exchange(row[k + 1], std::min({changed, row[k] + 1, row[k + 1] + 1}));
        }
    }
    return row.back();
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(width, text.size() + 1), ' ');
    return text;
}

std::string optionHelp(const OptionWords& option)
{
    const std::string value = option.value ? std::string(" ") + option.value : std::string();
    return "  " + padded(std::string("--") + option.name + value, 25) + option.does + '\n';
}

}  // namespace

std::span<const TaskWords> allTasks()
{
    return tasks;
}

std::span<const OptionWords> allOptions()
{
    return options;
}

const TaskWords& wordsOf(Task task)
{
    return tasks[static_cast<std::size_t>(task)];
}

std::vector<std::string> splitWords(std::string_view text)
{
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        words.emplace_back(word);
        text.remove_prefix(std::min(word.size() + 1, text.size()));
    }
    return words;
}

std::string inQuotes(const std::string& word)
{
    QString shown = QString::fromStdString(word).simplified();
    if (shown.size() > 60)
        shown = shown.left(57) + QStringLiteral("...");
    return '"' + shown.toStdString() + '"';
}

std::string listed(const std::vector<std::string>& words)
{
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += (i == 0 ? "" : i + 1 < words.size() ? ", " : " or ") + words[i];
    return text;
}

std::string nearestOf(std::string_view word, const std::vector<std::string>& candidates)
{
    const auto nearest =
        std::min_element(candidates.begin(), candidates.end(), [&](const auto& one, const auto& other) {
            return distanceOf(word, one) < distanceOf(word, other);
        });
    return nearest == candidates.end() ? std::string() : *nearest;
}

std::string commandHelp()
{
    std::string text = "Usage: vorlix                       opens the window\n"
                       "       vorlix TASK [OPTION...]      answers on standard output\n\nTasks:\n";
    for (const TaskWords& task : tasks)
        text += "  " + padded(task.name + std::string(*task.arguments ? " " : "") + task.arguments, 14) + task.does +
                '\n';
    return text + "\nvorlix TASK --help tells the options of a task, man vorlix tells all.\n"
                  "Without options a task takes place, conditions and element file of the saved configuration.\n"
                  "Exit status: 0 found, 1 nothing found, 2 wrong words, 3 unreadable input.\n";
}

std::string taskHelp(const TaskWords& task)
{
    std::string text = std::string("Usage: vorlix ") + task.name + (*task.arguments ? " " : "") + task.arguments +
                       " [OPTION...]\nPrints " + task.does + ".\n\n";
    for (const OptionWords& option : options)
        if (option.tasks & bitOf(task.task))
            text += optionHelp(option);
    text += "\nForms: " + listed(splitWords(task.forms)) + ". The first one is the default.\n\nExamples:\n";
    for (const char* example : task.examples)
        text += std::string("  vorlix ") + example + '\n';
    return text;
}
