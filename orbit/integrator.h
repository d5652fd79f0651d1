// orbit/integrator.h: the adaptive integrator of the numeric propagator.
#pragma once

#include <functional>
#include <vector>

/// Right-hand side of a system of equations, a plain function or a lambda: time, state, and where the derivatives go.
using RightHandSide = std::function<void(double t, const double* y, double* dy)>;

/// One embedded Runge-Kutta-Fehlberg step of order 4 and 5 with a local error test and step-size control.
///
/// Fehlberg, NASA TR R-315 (1969), the form with the nodes 0, 2/9, 1/3, 3/4, 1, 5/6. Set up for any number of
/// equations; the defaults are a relative error test against 1e-6 and no iteration limit.
class RKF45
{
public:
    /// For so many equations; below 0 counts as none.
    explicit RKF45(int equations);
    virtual ~RKF45() = default;

    /// Stores |tolerance|, at least 1e-50 (also for a NaN). `rel` not 0 asks for the relative error test.
    void SetTolerance(double tolerance, int rel);

    /// Stores |n|; 0 is no limit.
    void SetMaxIter(int n);

    /// One step from (t, y) with the trial size h, which may be negative.
    ///
    /// @param tnew  t plus the step taken, which is at most h in size
    /// @param hnew  the proposal for the next step, not limited
    /// @param ynew  the state at tnew; may be y itself, which is otherwise unchanged
    ///
    /// With the iteration limit reached a step that misses the tolerance is taken all the same, and nothing tells so.
    /// The same holds for a step that has shrunk below the resolution of t, so that every call ends.
    void RKF45Step(double t, double h, const double* y, const RightHandSide& f, double& tnew, double& hnew,
                   double* ynew);

protected:
    int neq;
    double tt = 0;             // time of the current stage
    std::vector<double> ytmp;  // argument of the current stage, at the end the new state
    std::vector<double> k;     // six stage derivatives of neq values each
    std::vector<double> err;   // absolute local error of each component
    int maxit = 0;             // 0 for no limit
    int relerr = 1;            // 1 for the relative test
    double tol = 1e-6;
    double hc = 0;  // step size under test

private:
    /// The derivatives of stage 1 to 5 into `k`.
    void evaluateStage(int stage, double t, const double* y, const RightHandSide& f);
    /// The new state into `ytmp` and its error into `err`.
    void combine(const double* y);
    /// The largest error over the components, relative or absolute.
    double scalarError() const;
};

/// For position and velocity of one satellite; it has the settings of this thread's last `NumProp`.
extern thread_local RKF45 rkf;
