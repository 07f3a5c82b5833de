// Smooth curves through a few points in time.
#pragma once

#include <vector>

namespace KivMotion {

struct CurveKey
{
    double time;
    double value;
    double slope;  ///< value per second
};

/// A piecewise cubic with a continuous slope. Before its first and after its last key it keeps their values.
class Curve
{
public:
    Curve() = default;
    /// Keys in order of time, with slopes as given.
    explicit Curve(std::vector<CurveKey> keys) : m_keys(std::move(keys)) {}

    void add(double time, double value, double slope) { m_keys.push_back({time, value, slope}); }
    /// A point at which the curve rests or turns back.
    void addTurn(double time, double value) { add(time, value, 0); }
    /// Chooses every inner slope so that the curve runs through the points without overshooting.
    void smoothSlopes();
    double at(double time) const;

private:
    std::vector<CurveKey> m_keys;
};

/// 0 up to `from`, 1 from `to` on, smooth between.
double ease(double time, double from, double to);

/// 0 outside (from, to), rising to 1 within `edge` seconds at either end.
double window(double time, double from, double to, double edge);

/// A slow wandering between about −1 and 1; equal seeds wander alike.
double drift(double time, double seed);

/// Averages every sample with its neighbours up to `radius` samples away, near ones counting more. Ends are
/// taken to go on unchanged.
std::vector<double> smoothed(const std::vector<double>& samples, int radius);

/// A smooth line that nowhere exceeds the samples.
std::vector<double> smoothedBelow(const std::vector<double>& samples, int radius);

}  // namespace KivMotion
