#include "host/KivReader/humanoid/glitchrows.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

using Kind = KivAnimation::PoseStep::Kind;

constexpr double kFarOut = 8.0 * 1.4826;  ///< median deviations
constexpr double kFarOff = 1.0;           ///< heights: what is nearer is within reach
constexpr double kFastest = 7.0;          ///< heights a second: nobody moves faster
constexpr std::size_t kLeastRows = 5;
constexpr std::size_t kMostPart = 10;  ///< of the rows may be thrown: one in so many

double medianOf(std::vector<double> values)
{
    const auto median = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), median, values.end());
    return *median;
}

/// One coordinate of what carries the body, over all frames.
std::vector<double> pathOf(const MotionDocument& document, const KivAnimation::PoseStep& step)
{
    std::vector<double> path;
    path.reserve(document.frames);
    for (std::size_t frame = 0; frame < document.frames; ++frame)
        path.push_back(double(step.factor) * double(document.values[frame * document.columns + step.column]));
    return path;
}

void markFarOut(std::vector<bool>& isOut, const std::vector<double>& path, double height)
{
    const double median = medianOf(path);
    std::vector<double> deviations;
    deviations.reserve(path.size());
    for (const double at : path)
        deviations.push_back(std::fabs(at - median));
    const double limit = std::max(kFarOut * medianOf(deviations), kFarOff * height);
    for (std::size_t i = 0; i < path.size(); ++i)
        isOut[i] = isOut[i] || std::fabs(path[i] - median) > limit;
}

/// Whether the step from the frame before is faster than a person's.
void markFast(std::vector<bool>& isFast, const std::vector<double>& path, double farthest)
{
    for (std::size_t i = 1; i < path.size(); ++i)
        isFast[i] = isFast[i] || std::fabs(path[i] - path[i - 1]) > farthest;
}

}  // namespace

std::vector<std::size_t> thrownFrames(const MotionDocument& document, const MotionFigure& figure,
                                      std::size_t joint, double height)
{
    if (document.frames < kLeastRows || height <= 0.0 || document.frameTime <= 0.0)
        return {};
    std::vector<bool> isOut(document.frames);
    std::vector<bool> isFast(document.frames);
    for (auto i = static_cast<std::int32_t>(joint); i >= 0;
         i = figure.joints[static_cast<std::size_t>(i)].parent) {
        for (const auto& step : figure.stepsOf(figure.joints[static_cast<std::size_t>(i)])) {
            if (step.kind != Kind::Shift)
                continue;
            const std::vector<double> path = pathOf(document, step);
            markFarOut(isOut, path, height);
            markFast(isFast, path, kFastest * height * document.frameTime);
        }
    }
    std::vector<std::size_t> thrown;
    for (std::size_t first = 0; first < isOut.size();) {
        std::size_t end = first;
        while (end < isOut.size() && isOut[end])
            ++end;
        const bool wasThrown = end > first && (isFast[first] || (end < isFast.size() && isFast[end]));
        for (std::size_t i = first; wasThrown && i < end; ++i)
            thrown.push_back(i);
        first = end + 1;
    }
    return thrown.size() * kMostPart > document.frames ? std::vector<std::size_t>() : thrown;
}

std::string listOfFrames(const std::vector<std::size_t>& frames)
{
    constexpr std::size_t kMostRuns = 8;
    std::string list;
    std::size_t runs = 0;
    for (std::size_t i = 0; i < frames.size(); ++runs) {
        std::size_t last = i;
        while (last + 1 < frames.size() && frames[last + 1] == frames[last] + 1)
            ++last;
        if (runs == kMostRuns)
            return list + " and others";
        list += (list.empty() ? "" : ", ") + std::to_string(frames[i]) +
                (last > i ? " to " + std::to_string(frames[last]) : "");
        i = last + 1;
    }
    return (frames.size() > 1 ? "frames " : "frame ") + list;
}

}  // namespace KivReader
