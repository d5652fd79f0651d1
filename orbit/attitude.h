// orbit/attitude.h: the local axes of a satellite.
#pragma once

#include "astro/mat3.h"

/// The rotation from the frame of r and v into body axes whose x axis is turned by yaw and pitch (degrees).
///
/// @param mode  0: x along v, z along r x v; 1: x along v, y along r x v, z completes (up, for a circular orbit); 2:
///              like 1, then turned about y by the angle of r and v less a right angle
///
/// Yaw, to the right, and pitch, upward, come last. Only directions matter. Parallel r and v, or zero vectors, fall
/// back on a fixed pole and stay finite. The normal of a body surface in the frame of r and v is the transpose times
/// (1, 0, 0).
Mat3 GetRVMat(const Vec3& r, const Vec3& v, double yaw, double pitch, int mode);
