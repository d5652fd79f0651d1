// A satellite as an observer sees it.
#pragma once

#include "observing/sight.h"
#include "orbit/sgp4.h"

#include <memory>
#include <optional>

class Predictor;

/// An orbit made ready for many instants. One thread may use an object at a time.
class SeenOrbit
{
public:
    explicit SeenOrbit(const Orbit& orbit);
    ~SeenOrbit();
    SeenOrbit(SeenOrbit&&) noexcept;

    /// From the observer to where the satellite was when the light left it: km, in the inner frame of `Sight`. Nothing
    /// where the model fails.
    std::optional<Vec3> lineAt(const Sight& sight);

    /// In the frame of the sight.
    std::optional<Vec3> directionAt(const Sight& sight);

    /// A speed that the satellite does not reach, km/s: a twentieth above that of the mean ellipse at its perigee.
    double fastest() const { return bound; }

private:
    std::optional<Vec3> placeAt(double mjd);

    bool analytic;
    gravconsttype constants;
    ModelForm form;
    elsetrec elements{};
    double epoch, bound;
    std::unique_ptr<Predictor> predictor;  // of the other models
};
