// orbit/sgp4_lanes.h: SGP4 for a series of instants of one element set, `laneCount` of them at once.
//
// It saves a search about half the time of single calls. Two files include it, one compiled for any processor and one
// for AVX2; `sgp4Series` chooses at run time.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "orbit/sgp4_stages.h"

/// Like `propagateSeries` below, for processors with AVX2.
std::size_t propagateSeriesAvx2(gravconsttype whichconst, elsetrec& sat, std::span<const double> tsince,
                                std::span<Sgp4State> states, ModelForm form);

namespace {

inline Lanes meanAxis(double xke, const Lanes& n)
{
    LaneArray axes = n.each();
    for (double& axis : axes)
        axis = meanAxis(xke, axis);
    return Lanes(axes);
}

/// Elements in lanes, to be changed lane by lane.
struct ElementArrays
{
    explicit ElementArrays(const ElementsOf<Lanes>& el)
        : e(el.e.each()), i(el.i.each()), argp(el.argp.each()), node(el.node.each()), m(el.m.each()), n(el.n.each())
    {}

    Sgp4Elements get(std::size_t k) const { return {e[k], i[k], argp[k], node[k], m[k], n[k]}; }

    void put(std::size_t k, const Sgp4Elements& el)
    {
        e[k] = el.e;
        i[k] = el.i;
        argp[k] = el.argp;
        node[k] = el.node;
        m[k] = el.m;
        n[k] = el.n;
    }

    ElementsOf<Lanes> lanes() const { return {Lanes(e), Lanes(i), Lanes(argp), Lanes(node), Lanes(m), Lanes(n)}; }

    LaneArray e, i, argp, node, m, n;
};

inline void addDeepSecular(elsetrec& sat, const Lanes& t, ElementsOf<Lanes>& el, ModelForm form)
{
    ElementArrays arrays(el);
    const LaneArray times = t.each();
    for (std::size_t k = 0; k < laneCount; ++k) {
        Sgp4Elements one = arrays.get(k);
        addDeepSecular(sat, times[k], one, form);
        arrays.put(k, one);
    }
    el = arrays.lanes();
}

inline SineCosineOf<Lanes> perturb(elsetrec& sat, const Lanes& t, ElementsOf<Lanes>& el, LaneMask& error)
{
    ElementArrays arrays(el);
    const LaneArray times = t.each();
    LaneArray sines, cosines;
    CodeArray errors = error.each();
    for (std::size_t k = 0; k < laneCount; ++k) {
        Sgp4Elements one = arrays.get(k);
        std::int32_t code = std::int32_t(errors[k]);
        const SineCosine inc = perturb(sat, times[k], one, code);
        arrays.put(k, one);
        sines[k] = inc.sine;
        cosines[k] = inc.cosine;
        errors[k] = code;
    }
    el = arrays.lanes();
    error = LaneMask(errors);
    return {Lanes(sines), Lanes(cosines)};
}

/// The lanes of which the results are numbers. With them all that went before was numbers, the semi-latus rectum not
/// negative: its root is in the velocity.
inline unsigned finiteLanes(const Lanes (&r)[3], const Lanes (&v)[3])
{
    const Lanes size =
        magnitude(r[0]) + magnitude(r[1]) + magnitude(r[2]) + magnitude(v[0]) + magnitude(v[1]) + magnitude(v[2]);
    return bitsOf(size < 1e300);
}

/// `laneCount` instants at once. An instant without a finite result is left to the function for one.
inline void propagateLanes(gravconsttype whichconst, elsetrec& sat, const double* tsince, Sgp4State* states,
                           ModelForm form)
{
    LaneArray t;
    std::copy_n(tsince, laneCount, t.begin());
    Lanes r[3], v[3];
    for (int k = 0; k < 3; ++k)
        r[k] = v[k] = nothingYet;
    const CodeArray errors = propagate(gravityConstants(whichconst), sat, Lanes(t), r, v, form).each();
    const unsigned finite = finiteLanes(r, v);
    const LaneArray results[] = {r[0].each(), r[1].each(), r[2].each(), v[0].each(), v[1].each(), v[2].each()};
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        Sgp4State& state = states[lane];
        if ((finite >> lane & 1) != 0) {
            state = {{results[0][lane], results[1][lane], results[2][lane]},
                     {results[3][lane], results[4][lane], results[5][lane]},
                     std::int32_t(errors[lane])};
            continue;
        }
        elsetrec alone = sat;
        state.error = sgp4(whichconst, alone, tsince[lane], state.r, state.v, form);
    }
    sat.t = tsince[laneCount - 1];
    sat.error = states[laneCount - 1].error;
}

/// As many of the first instants as fill the lanes; gives their number. The spans are equally long.
inline std::size_t propagateSeries(gravconsttype whichconst, elsetrec& sat, std::span<const double> tsince,
                                   std::span<Sgp4State> states, ModelForm form = ModelForm::early)
{
    std::size_t next = 0;
    for (; tsince.size() - next >= laneCount; next += laneCount)
        propagateLanes(whichconst, sat, &tsince[next], &states[next], form);
    return next;
}

}  // namespace
