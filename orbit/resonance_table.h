// The eccentricity functions of the half-day resonance: Hujsak, Spacetrack Report No. 1 (1979), as in AIAA 2006-6753.
#pragma once

/// c0 + c1 e + c2 e^2 + c3 e^3
struct EccentricityCubic
{
    double c0, c1, c2, c3;
};

// clang-format off
/// For e up to 0.65.
constexpr EccentricityCubic g211Low{   3.616,     -13.247,     16.29,        0.0};
constexpr EccentricityCubic g310Low{ -19.302,     117.39,    -228.419,     156.591};
constexpr EccentricityCubic g322Low{ -18.9068,    109.7927,  -214.6334,    146.5816};
constexpr EccentricityCubic g410Low{ -41.122,     242.694,   -471.094,     313.953};
constexpr EccentricityCubic g422Low{-146.407,     841.88,   -1629.014,    1083.435};
constexpr EccentricityCubic g520Low{-532.114,    3017.977,  -5740.032,    3708.276};

/// For e above 0.65; g520 up to 0.715 and above it.
constexpr EccentricityCubic g211High{  -72.099,     331.819,   -508.738,    266.724};
constexpr EccentricityCubic g310High{ -346.844,    1582.851,  -2415.925,   1246.113};
constexpr EccentricityCubic g322High{ -342.585,    1554.908,  -2366.899,   1215.972};
constexpr EccentricityCubic g410High{-1052.797,    4758.686,  -7193.992,   3651.957};
constexpr EccentricityCubic g422High{-3581.69,    16178.11,  -24462.77,   12422.52};
constexpr EccentricityCubic g520Middle{1464.74,   -4664.75,    3763.64,       0.0};
constexpr EccentricityCubic g520High{-5149.66,    29936.92,  -54087.36,   31324.56};

/// For e below 0.7, and from there on.
constexpr EccentricityCubic g533Low{ -919.2277,    4988.61,    -9064.77,     5542.21};
constexpr EccentricityCubic g521Low{ -822.71072,   4568.6173,  -8491.4146,   5337.524};
constexpr EccentricityCubic g532Low{ -853.666,     4690.25,    -8624.77,     5341.4};
constexpr EccentricityCubic g533High{-37995.78,  161616.52,  -229838.2,    109377.94};
constexpr EccentricityCubic g521High{-51752.104, 218913.95,  -309468.16,   146349.42};
constexpr EccentricityCubic g532High{-40023.88,  170470.89,  -242699.48,   115605.82};
// clang-format on
