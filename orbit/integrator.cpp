#include "orbit/integrator.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int stages = 6;
constexpr double least = 1e-50;  // floor of the tolerance and of a divisor of the relative test

constexpr double node[stages] = {0.0, 2.0 / 9.0, 1.0 / 3.0, 3.0 / 4.0, 1.0, 5.0 / 6.0};

constexpr double coefficient[stages][stages - 1] = {
    {},
    {2.0 / 9.0},
    {1.0 / 12.0, 1.0 / 4.0},
    {69.0 / 128.0, -243.0 / 128.0, 135.0 / 64.0},
    {-17.0 / 12.0, 27.0 / 4.0, -27.0 / 5.0, 16.0 / 15.0},
    {65.0 / 432.0, -5.0 / 16.0, 13.0 / 16.0, 4.0 / 27.0, 5.0 / 144.0},
};

constexpr double stateWeight[stages] = {47.0 / 450.0, 0.0, 12.0 / 25.0, 32.0 / 225.0, 1.0 / 30.0, 6.0 / 25.0};

constexpr double errorWeight[stages] = {-1.0 / 150.0, 0.0, 3.0 / 100.0, -16.0 / 75.0, -1.0 / 20.0, 6.0 / 25.0};

}  // namespace

thread_local RKF45 rkf(6);

RKF45::RKF45(int equations) : neq(std::max(equations, 0)), ytmp(neq), k(stages * neq), err(neq) {}

void RKF45::SetTolerance(double tolerance, int rel)
{
    const double size = std::abs(tolerance);
    tol = size > least ? size : least;
    relerr = rel != 0 ? 1 : 0;
}

void RKF45::SetMaxIter(int n)
{
    maxit = n >= 0 ? n : -std::max(n, -std::numeric_limits<int>::max());
}

void RKF45::RKF45Step(double t, double h, const double* y, const RightHandSide& f, double& tnew, double& hnew,
                      double* ynew)
{
    hc = h;
    int triesLeft = maxit != 0 ? maxit : 1;
    double hold, e;
    f(t, y, k.data());
    do {
        for (int stage = 1; stage < stages; ++stage)
            evaluateStage(stage, t, y, f);
        combine(y);
        e = scalarError();
        hold = hc;
        hc = 0.9 * hold * std::pow(tol / e, 0.2);
        if (maxit != 0)
            --triesLeft;
    } while (triesLeft > 0 && e > tol && t + hc != t);
    std::copy(ytmp.begin(), ytmp.end(), ynew);
    tnew = t + hold;
    hnew = hc;
}

void RKF45::evaluateStage(int stage, double t, const double* y, const RightHandSide& f)
{
    tt = t + node[stage] * hc;
    for (int i = 0; i < neq; ++i) {
        double sum = 0;
        for (int j = 0; j < stage; ++j)
            sum += coefficient[stage][j] * k[j * neq + i];
        ytmp[i] = y[i] + hc * sum;
    }
    f(tt, ytmp.data(), k.data() + stage * neq);
}

void RKF45::combine(const double* y)
{
    for (int i = 0; i < neq; ++i) {
        double change = 0, error = 0;
        for (int j = 0; j < stages; ++j) {
            change += stateWeight[j] * k[j * neq + i];
            error += errorWeight[j] * k[j * neq + i];
        }
        ytmp[i] = y[i] + hc * change;
        err[i] = std::abs(hc * error);
    }
}

double RKF45::scalarError() const
{
    double e = 1e-15 * tol;
    for (int i = 0; i < neq; ++i)
        e = std::max(e, relerr != 0 ? err[i] / std::max(std::abs(ytmp[i]), least) : err[i]);
    return e;
}
