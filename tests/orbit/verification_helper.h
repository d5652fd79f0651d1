// The verification set of AIAA 2006-6753 (tests/data/sgp4) and the catalogue of January 2018, read for tests.
#pragma once

#include <string>
#include <vector>

#include "orbit/sgp4.h"

/// Elements of one set as `sgp4init` takes them, with the span to be walked; minutes from epoch.
struct VerificationElements
{
    int norad;
    double epoch, bstar, ecco, argpo, inclo, mo, no, nodeo;
    double start = 0, stop = 0, step = 0;
};

struct VerificationState
{
    double t;
    double r[3], v[3];
};

/// States of one set, in the order of the file.
struct VerificationStates
{
    int norad;
    std::vector<VerificationState> rows;
};

/// All element sets, in the order of the file. The epoch has the resolution of a Julian Date in one double (40
/// microseconds), as in the program that made the published states: a highly eccentric orbit shows the difference.
std::vector<VerificationElements> verificationElements();

/// The sets of tests/data/elements/catalogue_2018.txt.
std::vector<VerificationElements> catalogueElements();

/// The first set of that number.
VerificationElements setOf(const std::vector<VerificationElements>& sets, int norad);

/// Blocks of a file of states in the folder of the set.
std::vector<VerificationStates> verificationStates(const std::string& file);

/// WGS72 and deep space.
int initVerification(const VerificationElements& set, elsetrec& sat);

/// The set of that number from the verification set, loaded.
elsetrec loadedSet(int norad);

/// Puts a set into slot 0, not yet loaded, for SGP4 with deep space.
void putSet(WinpData* in, const VerificationElements& set);
