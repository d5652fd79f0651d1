// A solution for a picture by a plate solver that is installed beside this program.
#pragma once

#include <QString>
#include <string>

/// The program that is called; it leaves a .wcs file beside the picture.
inline constexpr const char* plateSolver = "solve-field";

/// Whether it is installed.
bool hasPlateSolver();

/// Runs the solver, whose .wcs file then lies beside the picture. A long calculation: its listener may end it, and so
/// does the limit; the solver is then killed and no file is left.
///
/// @return  why there is no solution; empty if there is one
std::string solvePicture(const QString& picture, double limitSeconds);
