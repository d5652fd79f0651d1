#include "cli/bright_passes.h"

#include "elements/brightness_files.h"
#include "reports/list_rows.h"
#include "scan/brightest.h"

#include <utility>

namespace {

constexpr int slot = 0;
constexpr double anyMagnitude = 99.0;

BrightnessSettings settingsOf(const Request& request)
{
    BrightnessSettings settings = request.withoutConfig ? BrightnessSettings() : keptBrightnessSettings(0.0);
    settings.lengthM = request.length.value_or(settings.lengthM);
    return settings;
}

}  // namespace

BrightPasses::BrightPasses(const Session& session)
    : request(session.request), faintest(request.brighter.value_or(anyMagnitude))
{
    if (!request.wantsBrightness())
        return;
    const BrightnessSettings settings = settingsOf(request);
    book = brightnessBook(settings, "", &unread);
    for (const ElementFile& file : session.files)
        book.classes.merge(readRadarClasses(file.path.c_str()));
}

void BrightPasses::take(EntryRows& entry, const Pass& pass)
{
    WinpData& in = entry.in;
    const SatelliteName name = nameOf(in, slot);
    const auto standard = book.of(in.norad[slot], name.name, name.designator);
    if (!standard) {
        ++unknown;
        return;
    }
    const auto best = brightestMoment(&in, satpos, slot, pass, *standard, faintest);
    if (!best) {
        ++fainter;
        return;
    }
    if (request.darkSky && lostInSky(*best, in, faintest < anyMagnitude ? faintest : 0.0)) {
        ++hidden;
        return;
    }
    entry.rows.emplace_back(
        request.byMagnitude ? best->magnitude : pass.tm[0],
        brightPassRow(passRowOf(in, slot, pass), {best->mjd, best->magnitude, standard->spread,
                                                  std::string(sourceName(standard->source, standard->family))}));
}

void BrightPasses::tellUnread(const Channels& channels) const
{
    if (!unread.empty())
        channels.err("vorlix: " + unread + '\n');
}

void BrightPasses::tellLeftOut(const Channels& channels) const
{
    std::string text;
    for (const auto& [count, what] :
         {std::pair{fainter.load(), " fainter"}, std::pair{hidden.load(), " lost in twilight or moonlight"},
          std::pair{unknown.load(), " of objects without a magnitude (--length METRES gives them one)"}})
        if (count > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(count) + what;
    if (!text.empty())
        channels.err("vorlix: passes left out: " + text + '\n');
}
