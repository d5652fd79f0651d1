// Flare geometry by plain vectors, written apart from the engine: mirror normals, reflections, brightness.
#pragma once

#include "astro/vec3.h"

/// A satellite with its Sun and observer; one frame, km.
struct MirrorScene
{
    Vec3 r, v;
    Vec3 sun;
    Vec3 observer;
};

/// Normal of a surface by yaw (to the right of the flight direction) and pitch (up), degrees.
Vec3 mirrorNormal(const MirrorScene& scene, double yaw, double pitch);

/// Whether the Sun stands high enough over the orbit plane, and not too high, for a flare of the solar panels.
bool panelCanFlare(const MirrorScene& scene);

/// Normal of the solar panels, which hang 40 degrees off the projection of the Sun on the orbit plane.
Vec3 panelNormal(const MirrorScene& scene);

/// Whether the Sun is above the satellite's horizon, over a sphere of 6378.137 km.
bool isSunlit(const MirrorScene& scene);

/// What an observer has of a mirror.
struct Glint
{
    bool lit = false;   // the Sun is on the front of the mirror
    double offset = 0;  // between the reflected ray and the observer, at the satellite, degrees
    double cosIncidence = 0;
};

Glint glintOf(const MirrorScene& scene, const Vec3& normal);

/// Magnitude of a glint without the air: range law, incidence and offset; for a solar panel its own offset law. 99
/// without light.
double glintMagnitude(const MirrorScene& scene, const Glint& glint, bool panel);
