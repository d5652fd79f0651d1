// record/corrections.h: the peculiarities of the models that can be put right, each by a switch of its own.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// What is computed as published in place of the way of this program. All off: every figure is as ever.
struct Corrections
{
    bool nutationOnce = false;          // states of SGP4 come in the mean equator before nutation is applied
    bool deepSpacePublished = false;    // SGP4 and SDP4 as in AIAA 2006-6753, see `ModelForm`
    bool publishedLeapSeconds = false;  // TT follows the table of leap seconds

    bool operator==(const Corrections&) const = default;
};

/// A switch and its name in vorlix.ini, on the command line and in exported lists.
struct CorrectionName
{
    const char* name;
    bool Corrections::*flag;
};

inline constexpr std::array correctionNames{
    CorrectionName{"nutation", &Corrections::nutationOnce},
    CorrectionName{"deep-space", &Corrections::deepSpacePublished},
    CorrectionName{"leap-seconds", &Corrections::publishedLeapSeconds},
};

/// All of them.
Corrections modernModels();

/// The switches of a list of names with commas between them; "modern" stands for all of them.
///
/// @param unknown  receives the first name that is none; empty if all are
Corrections correctionsNamed(std::string_view names, std::string& unknown);

/// The names of the switches that are on.
std::vector<std::string> namesOf(const Corrections& corrections);

/// The switches kept in vorlix.ini.
Corrections storedCorrections();

/// Keeps them there.
void storeCorrections(const Corrections& corrections);
