#include "host/KivReader/figure/motionfigure.h"

#include <array>
#include <utility>

#include "host/KivReader/syntax/channelname.h"

namespace KivReader {

namespace {

using KivAnimation::PoseStep;

/// Where an axis of the file points in the scene.
struct SceneAxis
{
    std::uint8_t axis;
    float sign;
};

using SceneAxes = std::array<SceneAxis, 3>;  ///< of the file's X, Y and Z

/// In the order of UpAxis. (x, y, z) with Y up is (x, -z, y) with Z up; where an axis points down all of it
/// is turned by half a turn about X.
constexpr std::array<SceneAxes, 6> kSceneAxes = {{{{{0, 1.0f}, {2, 1.0f}, {1, -1.0f}}},
                                                  {{{0, 1.0f}, {1, 1.0f}, {2, 1.0f}}},
                                                  {{{2, 1.0f}, {0, 1.0f}, {1, 1.0f}}},
                                                  {{{0, 1.0f}, {2, -1.0f}, {1, 1.0f}}},
                                                  {{{0, 1.0f}, {1, -1.0f}, {2, -1.0f}}},
                                                  {{{2, -1.0f}, {0, 1.0f}, {1, -1.0f}}}}};

const SceneAxes& sceneAxesOf(UpAxis up)
{
    return kSceneAxes[static_cast<std::size_t>(up)];
}

class StepMaker
{
public:
    explicit StepMaker(const FileFrame& frame) : m_axes(sceneAxesOf(frame.up)), m_unit(frame.unit) {}

    osg::Vec3d inScene(const std::array<double, 3>& vector) const
    {
        osg::Vec3d turned;
        for (unsigned axis = 0; axis < 3; ++axis)
            turned[m_axes[axis].axis] = m_axes[axis].sign * m_unit * vector[axis];
        return turned;
    }

    void appendMove(std::vector<PoseStep>& steps, Channel channel, std::uint32_t column) const
    {
        const SceneAxis& scene = m_axes[axisOf(channel)];
        PoseStep& step = steps.emplace_back();
        step.kind = isPosition(channel) ? PoseStep::Kind::Shift : PoseStep::Kind::Turn;
        step.axis = scene.axis;
        step.column = column;
        step.factor = isPosition(channel) ? static_cast<float>(scene.sign * m_unit) : scene.sign;
    }

private:
    const SceneAxes& m_axes;
    double m_unit;
};

/// What of the offset stays whatever the position channels say.
std::array<double, 3> fixedOffset(const MotionDocument::Joint& joint)
{
    std::array<double, 3> fixed = joint.offset;
    if (joint.positionsAreDeltas)
        return fixed;
    for (const Channel channel : joint.channels) {
        if (isPosition(channel))
            fixed[axisOf(channel)] = 0.0;
    }
    return fixed;
}

void appendChannels(std::vector<PoseStep>& steps, const MotionDocument::Joint& joint, const StepMaker& make,
                    bool positions)
{
    for (std::size_t i = 0; i < joint.channels.size(); ++i) {
        if (isPosition(joint.channels[i]) == positions)
            make.appendMove(steps, joint.channels[i], joint.firstColumn + static_cast<std::uint32_t>(i));
    }
}

/// A joint is moved first and turned then, wherever the file lists its positions.
void appendSteps(std::vector<PoseStep>& steps, const MotionDocument::Joint& joint, const StepMaker& make)
{
    const osg::Vec3d fixed = make.inScene(fixedOffset(joint));
    if (fixed != osg::Vec3d())
        steps.emplace_back().vector = fixed;
    appendChannels(steps, joint, make, true);
    appendChannels(steps, joint, make, false);
}

}  // namespace

void MotionFigure::addJoint(Joint joint, const PoseSteps& its)
{
    joint.firstStep = static_cast<std::uint32_t>(steps.size());
    joint.stepCount = static_cast<std::uint32_t>(its.size());
    steps.insert(steps.end(), its.begin(), its.end());
    joints.push_back(std::move(joint));
}

void MotionFigure::replaceSteps(std::size_t joint, const PoseSteps& its)
{
    const auto first = steps.begin() + joints[joint].firstStep;
    steps.insert(steps.erase(first, first + joints[joint].stepCount), its.begin(), its.end());
    joints[joint].stepCount = static_cast<std::uint32_t>(its.size());
    for (std::size_t i = joint + 1; i < joints.size(); ++i)
        joints[i].firstStep = joints[i - 1].firstStep + joints[i - 1].stepCount;
}

osg::Vec3d inScene(const osg::Vec3d& inFile, UpAxis up)
{
    const SceneAxes& axes = sceneAxesOf(up);
    osg::Vec3d turned;
    for (unsigned axis = 0; axis < 3; ++axis)
        turned[axes[axis].axis] = static_cast<double>(axes[axis].sign) * inFile[static_cast<int>(axis)];
    return turned;
}

MotionFigure makeFigure(const MotionDocument& document, const FileFrame& frame)
{
    const StepMaker make(frame);
    MotionFigure figure;
    figure.joints.reserve(document.joints.size());
    figure.steps.reserve(document.joints.size() + document.columns);
    for (const MotionDocument::Joint& source : document.joints) {
        MotionFigure::Joint& joint = figure.joints.emplace_back();
        joint.name = source.name;
        joint.parent = source.parent;
        joint.offset = make.inScene(source.offset);
        joint.firstStep = static_cast<std::uint32_t>(figure.steps.size());
        appendSteps(figure.steps, source, make);
        joint.stepCount = static_cast<std::uint32_t>(figure.steps.size()) - joint.firstStep;
        joint.endSite = source.endSite;
        joint.line = source.line;
    }
    return figure;
}

}  // namespace KivReader
