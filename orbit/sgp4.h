// orbit/sgp4.h: the analytic model SGP4 with its deep-space part SDP4, for element sets read from files.
//
// Hoots and Roehrich, Spacetrack Report No. 3 (1980), in the procedure structure of Vallado, Crawford, Hujsak and
// Kelso, Revisiting Spacetrack Report #3, AIAA 2006-6753. The form is an early one: the error checks do not return,
// the sidereal time always comes from `gstime`, Lyddane's modification is chosen by the perturbed inclination, and
// the resonance integration starts from epoch in each call. Inside the model times are minutes, angles radians and
// lengths Earth radii.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "astro/mat3.h"
#include "astro/vec3.h"
#include "record/corrections.h"
#include "record/winp_data.h"

/// The two sets of gravity constants.
enum gravconsttype
{
    wgs72 = 1,
    wgs84 = 2
};

/// Where the early form differs from the published one, AIAA 2006-6753.
enum class ModelForm
{
    early,  // an inclination that Sun and Moon take below 0 is turned before the periodics are added; any eccentricity
    published  // the periodics are added to it; the mean eccentricity is at least 1e-6
};

/// The form of a set of corrections.
constexpr ModelForm modelForm(const Corrections& corrections)
{
    return corrections.deepSpacePublished ? ModelForm::published : ModelForm::early;
}

/// Element set and model state of one satellite. `sgp4init` sets all of it.
struct elsetrec
{
    std::int32_t error;  // of the last call: 0 and 1 to 6, see sgp4
    char init;           // 'y' while sgp4init runs, 'n' after it
    char method;         // 'n' near-Earth, 'd' deep space

    // near Earth
    std::int32_t isimp;    // 1 = simplified drag terms: perigee below 220 km, or deep space
    double aycof;          // long-period coefficient of the y component
    double con41;          // 3 cos^2 i - 1
    double cc1, cc4, cc5;  // drag coefficients
    double d2, d3, d4;     // drag in powers of t; full terms only
    double delmo;          // (1 + eta cos mo)^3
    double eta;            // a e xi of the report
    double argpdot;        // secular rate of the argument of perigee
    double omgcof;         // drag term of the argument of perigee
    double sinmao;         // sin mo
    double t;              // time of the last call, minutes from epoch
    double t2cof, t3cof;   // mean longitude in powers of t
    double t4cof, t5cof;
    double x1mth2;         // 1 - cos^2 i
    double x7thm1;         // 7 cos^2 i - 1
    double mdot, nodedot;  // secular rates of the mean anomaly and of the node
    double xlcof;          // long-period coefficient of the mean longitude
    double xmcof, nodecf;  // drag terms of the mean anomaly and of the node

    // deep space
    std::int32_t irez;                         // resonance: 0 none, 1 one day, 2 half a day
    double d2201, d2211, d3210, d3222, d4410;  // half-day resonance
    double d4422, d5220, d5232, d5421, d5433;
    double dedt, didt, dmdt, dnodt, domdt;   // lunar-solar secular rates of e, i, M, node, argument of perigee
    double del1, del2, del3;                 // one-day resonance
    double e3, ee2;                          // lunar periodics of e
    double peo, pgho, pho, pinco, plo;       // periodics at epoch, 0 in this form
    double se2, se3, sgh2, sgh3, sgh4, sh2;  // solar periodics
    double sh3, si2, si3, sl2, sl3, sl4;
    double gsto;                        // Greenwich sidereal time at epoch, radians
    double xfact;                       // rate of the resonance integrator
    double xgh2, xgh3, xgh4, xh2, xh3;  // lunar periodics
    double xi2, xi3, xl2, xl3, xl4;
    double xlamo;            // resonance mean longitude at epoch
    double zmol, zmos;       // mean anomalies of Moon and Sun at epoch
    double atime, xli, xni;  // state of the resonance integrator

    // mean elements at epoch
    double bstar;               // per Earth radius
    double inclo, nodeo, ecco;  // radians; the eccentricity plain
    double argpo, mo;           // radians
    double no;                  // mean motion, radians per minute: Kozai's on entry of sgp4init, Brouwer's after it
};

/// The one element set that is kept ready: that of slot `sgpsat` of the record. Each thread has its own, so that a
/// record has to be worked on by one thread, or have `sgpsat` set to `noSlot` in between.
extern constinit thread_local elsetrec satrec;

/// The constants of a set: minutes per time unit, km, (Earth radii^3 / minutes^2)^(1/2), zonal harmonics.
void getgravconst(gravconsttype whichconst, double& tumin, double& radiusearthkm, double& xke, double& j2, double& j3,
                  double& j4, double& j3oj2);

/// Greenwich mean sidereal time, radians in 0 to 2 pi, by the IAU 1982 expression; `jdut1` is a Julian Date of UT1.
double gstime(double jdut1);

/// Fills `sat` from an element set.
///
/// @param deepspace  false: near-Earth equations whatever the period; true: SDP4 from 225 minutes on
/// @param epoch      days from 1950 January 0.0: Modified Julian Date minus 33281.0
/// @param xbstar     drag term, per Earth radius
/// @param xno        mean motion (Kozai), radians per minute; the other elements are radians
/// @return           0; 5 if the perigee is inside the Earth; for deep space also an error of `sgp4` at epoch
///
/// The ways to fail are figures, never a hang: senseless elements (an eccentricity of 1 and more, a mean motion
/// below 0, infinities) give a state that is not finite, not always an error.
int sgp4init(gravconsttype whichconst, bool deepspace, double epoch, double xbstar, double xecco, double xargpo,
             double xinclo, double xmo, double xno, double xnodeo, elsetrec& sat, ModelForm form = ModelForm::early);

/// Position (km) and velocity (km/s) in the true equator and mean equinox of date, `tsince` minutes from epoch.
///
/// @return  0; 1 mean eccentricity at or above 1 or below -0.001, or mean semi-major axis below 0.95; 2 mean motion
///          zero or negative; 3 perturbed eccentricity outside 0 to 1; 6 decayed
///
/// An error stops nothing, and a later check may overwrite the code of an earlier one; with code 6 `r` and `v` may be
/// unchanged. Where the figures lose their meaning the result is not finite while the code may be 0.
int sgp4(gravconsttype whichconst, elsetrec& sat, double tsince, double r[3], double v[3],
         ModelForm form = ModelForm::early);

/// A result of `sgp4`.
struct Sgp4State
{
    double r[3], v[3];
    std::int32_t error;
};

/// What `sgp4` gives for each of these instants, one after the other, to the last bit; `sat` is left as after the last.
///
/// Several instants are worked on at once, which takes about half the time of as many calls. The shorter of the two
/// spans tells how many there are. "To the last bit" needs standard functions that err by less than 0.55 units in the
/// last place, see orbit/lane_functions.h.
void sgp4Series(gravconsttype whichconst, elsetrec& sat, std::span<const double> tsince, std::span<Sgp4State> states,
                ModelForm form = ModelForm::early);

/// From the true equator and mean equinox, in which SGP4 works, to the frame in which its states are handed on: the
/// true equator and equinox, which later stages take for the mean ones, or with the nutation once the mean ones.
///
/// @param nutation  mean to true equator of date
/// @param eqeq      equation of the equinoxes, seconds of time
Mat3 analyticTurn(const Mat3& nutation, double eqeq, const Corrections& corrections);

/// Position (km) and velocity (km/s) of slot `k`, `t` days from its epoch.
///
/// Loads `satrec` if `sgpsat` is another slot, and sets `sgpsat` to `k`, or to `noSlot` if `sgp4init` failed. A
/// failure of `sgp4` or a result that is not finite gives the placeholder r = (100, 0, 0), v = (0, 10, 0).
void Sgp4(WinpData* in, double t, int k, Vec3& r, Vec3& v);

/// States of a slot at instants that are likely to be asked for next, worked out together. Good while the elements of
/// the slot stay as they are.
class Sgp4Ahead
{
public:
    static constexpr std::size_t instants = 8;

    /// At these days from epoch, with all that `Sgp4` does for the slot.
    void workOut(WinpData* in, int k, const std::array<double, instants>& days);

    bool has(double t) const { return indexOf(t) < instants; }

    /// What `Sgp4` gives.
    ///
    /// @return  false, with nothing given, if `t` is none of the instants
    bool find(double t, Vec3& r, Vec3& v) const;

private:
    /// Of an instant; `instants` for none.
    std::size_t indexOf(double t) const;

    bool filled = false;
    std::array<double, instants> times{};
    std::array<Sgp4State, instants> states{};
};
