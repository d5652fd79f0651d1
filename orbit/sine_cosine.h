// orbit/sine_cosine.h: the sine and the cosine of an angle.
#pragma once

/// Of one angle, or of several in lanes.
template <class T>
struct SineCosineOf
{
    T sine, cosine;
};

using SineCosine = SineCosineOf<double>;
