#include "tools/makemotion/curve.h"

#include <algorithm>
#include <cmath>

namespace KivMotion {

void Curve::smoothSlopes()
{
    for (std::size_t i = 1; i + 1 < m_keys.size(); ++i) {
        const CurveKey &before = m_keys[i - 1], &after = m_keys[i + 1];
        CurveKey& key = m_keys[i];
        const double left = (key.value - before.value) / (key.time - before.time);
        const double right = (after.value - key.value) / (after.time - key.time);
        // Harmonic mean: never steeper than three times the flatter side, and zero at a turning point.
        key.slope = left * right > 0 ? 2 * left * right / (left + right) : 0;
    }
}

double Curve::at(double time) const
{
    if (m_keys.empty())
        return 0;
    if (time <= m_keys.front().time)
        return m_keys.front().value;
    if (time >= m_keys.back().time)
        return m_keys.back().value;
    const auto next = std::upper_bound(m_keys.begin(), m_keys.end(), time,
                                       [](double t, const CurveKey& key) { return t < key.time; });
    const CurveKey &a = *(next - 1), &b = *next;
    const double span = b.time - a.time, u = (time - a.time) / span;
    const double u2 = u * u, u3 = u2 * u;
    return a.value * (2 * u3 - 3 * u2 + 1) + a.slope * span * (u3 - 2 * u2 + u) +
           b.value * (3 * u2 - 2 * u3) + b.slope * span * (u3 - u2);
}

double ease(double time, double from, double to)
{
    const double u = std::clamp((time - from) / (to - from), 0.0, 1.0);
    return u * u * u * (u * (u * 6 - 15) + 10);
}

double window(double time, double from, double to, double edge)
{
    return ease(time, from, from + edge) * (1 - ease(time, to - edge, to));
}

double drift(double time, double seed)
{
    return 0.5 * std::sin(1.1 * time + seed) + 0.3 * std::sin(2.3 * time + 2.7 * seed + 1) +
           0.2 * std::sin(0.6 * time + 5.1 * seed + 2);
}

namespace {

double sampleAt(const std::vector<double>& samples, long index)
{
    const long last = static_cast<long>(samples.size()) - 1;
    return samples[static_cast<std::size_t>(std::clamp(index, 0L, last))];
}

}  // namespace

std::vector<double> smoothed(const std::vector<double>& samples, int radius)
{
    std::vector<double> result(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        double sum = 0, weights = 0;
        for (int k = -radius; k <= radius; ++k) {
            const double weight = std::pow(std::cos(1.5 * k / (radius + 1.0)), 2);
            sum += weight * sampleAt(samples, static_cast<long>(i) + k);
            weights += weight;
        }
        result[i] = sum / weights;
    }
    return result;
}

std::vector<double> smoothedBelow(const std::vector<double>& samples, int radius)
{
    std::vector<double> lowest(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        lowest[i] = samples[i];
        for (int k = -radius; k <= radius; ++k)
            lowest[i] = std::min(lowest[i], sampleAt(samples, static_cast<long>(i) + k));
    }
    return smoothed(lowest, radius);
}

}  // namespace KivMotion
