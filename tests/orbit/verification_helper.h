// The verification set of AIAA 2006-6753 (tests/data/sgp4), read for tests.
#pragma once

#include <string>
#include <vector>

#include "orbit/sgp4.h"

/// Elements of one set as `sgp4init` takes them, with the span to be walked; minutes from epoch.
struct VerificationElements
{
    int norad;
    double epoch, bstar, ecco, argpo, inclo, mo, no, nodeo;
    double start, stop, step;
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

/// The sets of tests/data/elements/catalogue_2018.txt, each over its first day.
std::vector<VerificationElements> catalogueElements();

/// Blocks of a file of states in the folder of the set.
std::vector<VerificationStates> verificationStates(const std::string& file);

/// The set of that number; the first one if there are several.
VerificationElements verificationSet(int norad);

/// WGS72 and deep space.
int initVerification(const VerificationElements& set, elsetrec& sat);
