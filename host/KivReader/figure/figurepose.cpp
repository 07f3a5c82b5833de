#include "host/KivReader/figure/figurepose.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

using KivAnimation::PoseStep;
using Kind = PoseStep::Kind;

constexpr double kRadiansPerDegree = 0.017453292519943295;
/// Below this a fixed turn is none: the fourth part of what single precision can tell from none.
constexpr double kNoTurn = 1e-9;

osg::Vec3d axisOf(const PoseStep& step)
{
    osg::Vec3d axis;
    axis[step.axis] = 1.0;
    return axis;
}

double amount(const PoseStep& step, const float* row)
{
    return static_cast<double>(step.factor) * static_cast<double>(row[step.column]);
}

bool doesNothing(const PoseStep& step)
{
    if (step.kind == Kind::Translate)
        return step.vector == osg::Vec3f();
    return step.kind == Kind::Rotate && step.rotation.asVec3().length2() < kNoTurn * kNoTurn;
}

PoseStep opposite(PoseStep step)
{
    step.factor = -step.factor;
    step.vector = -step.vector;
    step.rotation = step.rotation.conj();
    return step;
}

bool isSameColumn(const PoseStep& a, const PoseStep& b)
{
    return a.kind == b.kind && a.axis == b.axis && a.column == b.column;
}

/// Takes the step into the one before it, where the two are of a kind.
bool takesIn(PoseStep& last, const PoseStep& step)
{
    if (last.kind != step.kind)
        return false;
    if (last.kind == Kind::Translate)
        last.vector += step.vector;
    else if (last.kind == Kind::Rotate)
        last.rotation = step.rotation * last.rotation;
    else
        return false;
    return true;
}

}  // namespace

Placement moved(Placement placement, const PoseSteps& steps, const float* row)
{
    for (const PoseStep& step : steps) {
        switch (step.kind) {
            case Kind::Translate:
                placement.place += placement.turn * osg::Vec3d(step.vector);
                break;
            case Kind::Rotate:
                placement.turn = step.rotation * placement.turn;
                break;
            case Kind::Shift:
                placement.place += placement.turn * (axisOf(step) * amount(step, row));
                break;
            case Kind::Turn:
                placement.turn =
                    osg::Quat(amount(step, row) * kRadiansPerDegree, axisOf(step)) * placement.turn;
                break;
        }
    }
    return placement;
}

Placements placed(const MotionFigure& figure, const float* row)
{
    Placements placements;
    placements.reserve(figure.joints.size());
    for (const MotionFigure::Joint& joint : figure.joints) {
        const Placement above =
            joint.parent < 0 ? Placement() : placements[static_cast<std::size_t>(joint.parent)];
        placements.push_back(moved(above, figure.stepsOf(joint), row));
    }
    return placements;
}

std::vector<PoseStep> undone(const PoseSteps& steps)
{
    std::vector<PoseStep> back;
    back.reserve(steps.size());
    for (std::size_t i = steps.size(); i-- > 0;)
        back.push_back(opposite(steps[i]));
    return back;
}

std::vector<PoseStep> stepsBetween(const MotionFigure& figure, std::int32_t from, std::int32_t to)
{
    std::vector<PoseStep> path;
    std::vector<std::int32_t> forth;
    // Parents come before children, so the later of the two is never what both hang from.
    while (from != to) {
        std::int32_t& later = from > to ? from : to;
        const MotionFigure::Joint& joint = figure.joints[static_cast<std::size_t>(later)];
        if (from > to) {
            const std::vector<PoseStep> back = undone(figure.stepsOf(joint));
            path.insert(path.end(), back.begin(), back.end());
        } else {
            forth.push_back(to);
        }
        later = joint.parent;
    }
    for (auto index = forth.rbegin(); index != forth.rend(); ++index) {
        const PoseSteps steps = figure.stepsOf(figure.joints[static_cast<std::size_t>(*index)]);
        path.insert(path.end(), steps.begin(), steps.end());
    }
    return path;
}

std::vector<PoseStep> simplified(const PoseSteps& steps)
{
    std::vector<PoseStep> fewer;
    for (const PoseStep& step : steps) {
        if (doesNothing(step))
            continue;
        if (fewer.empty() || !takesIn(fewer.back(), step)) {
            if (!fewer.empty() && isSameColumn(fewer.back(), step) && fewer.back().factor == -step.factor)
                fewer.pop_back();
            else
                fewer.push_back(step);
        }
        if (!fewer.empty() && doesNothing(fewer.back()))
            fewer.pop_back();
    }
    return fewer;
}

}  // namespace KivReader
