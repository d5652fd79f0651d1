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
    bool betaOfPlane = false;           // beta from the normal of the orbit as a unit vector
    bool rendezvousDrift = false;       // a launch is moved by the drift of the nodes to where the planes meet
    bool airHourAngle = false;          // density of the air: the hour angle of the Sun is reduced
    bool airSemiAnnual = false;         // density of the air: the semi-annual term of Jacchia 1971 itself
    bool exactInversion = false;        // elements of a state are improved until the model returns it
    bool iterationLimit = false;        // the integrator's limit comes back after the first step that needs no guard

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
    CorrectionName{"beta", &Corrections::betaOfPlane},
    CorrectionName{"rendezvous", &Corrections::rendezvousDrift},
    CorrectionName{"hour-angle", &Corrections::airHourAngle},
    CorrectionName{"semi-annual", &Corrections::airSemiAnnual},
    CorrectionName{"inversion", &Corrections::exactInversion},
    CorrectionName{"integrator", &Corrections::iterationLimit},
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
