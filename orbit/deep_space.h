// orbit/deep_space.h: the stages that SDP4 adds to SGP4 for periods of 225 minutes and more.
//
// Vallado, Crawford, Hujsak and Kelso, Revisiting Spacetrack Report #3, AIAA 2006-6753, in the early form told in
// orbit/sgp4.h.
#pragma once

#include "orbit/sgp4.h"
#include "orbit/sine_cosine.h"

/// Elements at one instant, radians and radians per minute; of one set, or in lanes.
template <class T>
struct ElementsOf
{
    T e, i, argp, node, m, n;
};

using Sgp4Elements = ElementsOf<double>;

/// What the first stages of `sgp4init` hand to the deep-space stages.
struct DeepSpaceEpoch
{
    double epoch;           // days from 1950 January 0.0
    double xke;             // of the constants in use
    double sinim, cosim;    // of the inclination
    double emsq, rtemsq;    // e^2, sqrt(1 - e^2)
    double snodm, cnodm;    // sine and cosine of the node
    double sinomm, cosomm;  // of the argument of perigee
};

/// Stages `dscom` and `dsinit` at epoch: the deep-space fields of `sat`, from its elements and its secular rates.
void initDeepSpace(const DeepSpaceEpoch& at, elsetrec& sat);

/// A million steps of the resonance integration: some 1370 years.
constexpr double resonanceLimitMin = 720.0e6;

/// Secular and resonance effects on `mean` at `sat.t`.
///
/// A resonant orbit takes one step for each 720 minutes from epoch. From `resonanceLimitMin` on its mean motion and
/// mean anomaly become NaN, in place of steps without end.
void dspace(elsetrec& sat, Sgp4Elements& mean, ModelForm form = ModelForm::early);

/// Adds the lunar and solar periodics at `sat.t` to `el`; its mean motion stays. Gives sine and cosine of the new
/// inclination.
SineCosine dpper(const elsetrec& sat, Sgp4Elements& el);
