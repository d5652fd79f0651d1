// How much light of twilight and Moon the sky has, and how faint a star an eye still sees in it.
#pragma once

/// Where one looks, and what lights the air. Degrees.
struct SkyLight
{
    double elevation = 90;        // of the line of sight
    double sunElevation = -90;    // at the observer
    double moonElevation = -90;   // the same; below 0 the Moon counts for nothing
    double moonPhase = 180;       // Sun, Moon, observer: 0 full, 180 new
    double moonSeparation = 180;  // between the Moon and the line of sight
};

/// Brightness of the sky, V magnitudes per square arc second: twilight in the zenith after Patat, Ugolnikov and
/// Postylyakov (Astron. Astrophys. 455, 385, 2006), moonlight after Krisciunas and Schaefer (Publ. Astron. Soc. Pacific
/// 103, 1033, 1991), and a dark sky of 21.7. A clear sky without other lights.
double skyBrightness(const SkyLight& sky);

/// The faintest star for the unaided eye, after Schaefer (Publ. Astron. Soc. Pacific 102, 212, 1990), 6.5 in the dark.
double faintestStar(double skyMagnitude);

/// What the light of the sky takes from the dark, magnitudes; 0 or more.
double lostToSky(const SkyLight& sky);
