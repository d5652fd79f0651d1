// How bright each object is: standard magnitudes from a list, from families of satellites, from the radar class or from
// one length, and what range, phase, shadow and air make of them. Functions of values: no file, no record.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>

/// How the light of an object goes with the phase angle p between Sun and observer, 0 at full phase.
enum class PhaseLaw
{
    diffuse,  // a sphere that scatters by Lambert's law: ((pi - p) cos p + sin p) / pi
    cosine,   // the lit share of a disk, (1 + cos p) / 2, as the magnitudes of one length go
    none      // the magnitude is a mean over the phases that were observed
};

/// Where a magnitude comes from.
enum class BrightnessSource
{
    list,
    family,
    radarClass,
    length
};

/// How lists call a source: "list", "length", "radar class", or the name of the family.
std::string_view sourceName(BrightnessSource source, std::string_view family);

/// The radar cross section as orbit messages sort it: below 0.1 square metres, up to 1, above.
enum class RadarClass
{
    small,
    medium,
    large
};

/// What is assumed of a magnitude without a known scatter, magnitudes.
constexpr double unknownSpread = 1.0;

/// The brightness of an object at 1000 km.
struct StandardMagnitude
{
    double full = 0;  // at full phase by its law; with `none` at any phase
    PhaseLaw law = PhaseLaw::diffuse;
    double spread = unknownSpread;  // one standard deviation of single observations
    BrightnessSource source = BrightnessSource::list;
    const char* family = "";  // its name, with `BrightnessSource::family`
};

/// How an object stands at an instant.
struct Illumination
{
    double rangeKm = 1000;
    double phaseDeg = 0;
    double elevationDeg = 90;  // for the air
    double litShare = 1;       // of the Sun's disk that the object sees, see `sunlitShare`
};

/// What the phase takes from full light, magnitudes.
double phaseLoss(PhaseLaw law, double phaseDeg);

/// The share of the Sun's disk above the Earth's limb, which counts as straight.
///
/// @param sunElevationDeg  of its centre above the satellite's own horizon, the dip included
double sunlitShare(double sunElevationDeg);

/// The magnitude on the sky; nothing in the shadow or without a range.
///
/// @param air  whether extinction counts, as `extinction` has it, below 33 degrees
std::optional<double> magnitudeOf(const StandardMagnitude& standard, const Illumination& seen, bool air);

/// A diffuse sphere of a magnitude at 1000 km and a phase angle: 0 in lists for full phase, 90 in those for half phase.
StandardMagnitude diffuseSphere(double magnitude, double phaseDeg);

/// The sphere of the length that the program's other magnitudes use.
///
/// @param lengthM  above 0
StandardMagnitude sphereOfLength(double lengthM);

/// A sphere of the middle of the class: 0.2, 0.6 and 3 metres across. Estimates, with a spread that covers the class.
StandardMagnitude sphereOfClass(RadarClass size);

/// An observed mean of a family of satellites. Names do not tell its versions apart, so the launch has to fit as well.
///
/// @param designator  "2020-055A"
std::optional<StandardMagnitude> familyMagnitude(std::string_view name, std::string_view designator);

/// All that is known of the objects.
struct BrightnessBook
{
    std::unordered_map<int, StandardMagnitude> listed;  // by catalogue number
    std::unordered_map<int, RadarClass> classes;
    double lengthM = 0;  // of the others; 0 leaves them without a magnitude

    /// The first of list, family, radar class and length that knows the object.
    std::optional<StandardMagnitude> of(int norad, std::string_view name, std::string_view designator) const;
};
