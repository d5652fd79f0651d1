// The brightest passes of a whole element file.
#pragma once

#include "engine/brightest_moment.h"
#include "engine/element_age.h"

#include <optional>
#include <string>
#include <vector>

class HorizonLine;
struct WinpData;

/// Which passes are wanted.
struct BrightRequest
{
    double from = 0, to = 0;  // MJD UTC
    double faintest = 4.0;    // magnitude
    bool sky = true;          // passes that twilight or moonlight hide from the unaided eye are left out as well
    const HorizonLine* horizon = nullptr;  // of the place, see `PassLimits`
    double decayUncertainty = usualDecayUncertainty;
};

/// A pass with its brightest moment.
struct BrightPass
{
    std::string name, designator;
    int norad = 0;
    long entry = 0;  // its place in the file, from 0
    double epoch = 0;
    Pass pass;
    BrightMoment best;
    double spread = 1;
    BrightnessSource source = BrightnessSource::length;
    std::string family;
    ElementAge age;  // of the elements at the maximum
};

struct BrightList
{
    std::vector<BrightPass> passes;  // by time of the start
    long fainter = 0;                // passes left out, as too faint
    long hidden = 0;                 // as lost in the light of the sky
    long unknown = 0;                // as those of objects without a magnitude
};

/// Whether an object of this magnitude is lost in the sky where it stands: fainter than what is left of the faintest
/// star, or of `faintest` where that is fainter.
bool lostInSky(const BrightMoment& moment, const WinpData& in, double faintest);

/// Searches every entry of `tlename` for passes in sunlight, by the elevation limits of the record. The record stays as
/// it is but for `sgpsat`.
///
/// @return  nothing if the element file cannot be opened
std::optional<BrightList> brightestPasses(WinpData* in, const BrightnessBook& book, const BrightRequest& request);

/// By magnitude, the brightest first.
void sortByMagnitude(std::vector<BrightPass>& passes);

/// Passes of one launch whose maxima follow each other within ten minutes, as places in the list. The first of a group
/// is the one that stands first in the list; so are the groups in the order of the list.
std::vector<std::vector<std::size_t>> launchGroups(const std::vector<BrightPass>& passes);

/// Reads an entry of the file by its place into the work slot of the record. @return  false if it has none there
bool readEntry(WinpData* in, long entry);
