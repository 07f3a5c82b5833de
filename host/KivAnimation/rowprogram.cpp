#include "host/KivAnimation/rowprogram.h"

#include <algorithm>
#include <stdexcept>

#include "host/KivAnimation/halfangles.h"

namespace KivAnimation {

namespace {

constexpr float kHalfAngleTurnsPerDegree = 1.0f / 720.0f;

bool readsColumn(const PoseStep& step)
{
    return step.kind == PoseStep::Kind::Shift || step.kind == PoseStep::Kind::Turn;
}

/// first ∘ second: second is carried out in the frame that first has left.
void appendRotation(float* first, const float* second)
{
    const float x = first[0], y = first[1], z = first[2], w = first[3];
    first[0] = w * second[0] + x * second[3] + y * second[2] - z * second[1];
    first[1] = w * second[1] - x * second[2] + y * second[3] + z * second[0];
    first[2] = w * second[2] + x * second[1] - y * second[0] + z * second[3];
    first[3] = w * second[3] - x * second[0] - y * second[1] - z * second[2];
}

void appendTurn(float* rotation, unsigned axis, float sine, float cosine)
{
    float turn[4] = {0.0f, 0.0f, 0.0f, cosine};
    turn[axis] = sine;
    appendRotation(rotation, turn);
}

void appendMove(LocalPose& pose, const osg::Vec3f& move)
{
    const float* q = pose.rotation;
    const osg::Vec3f axis(q[0], q[1], q[2]);
    const osg::Vec3f across = (axis ^ move) * 2.0f;
    const osg::Vec3f turned = move + across * q[3] + (axis ^ across);
    for (int i = 0; i < 3; ++i) {
        pose.position[i] += turned[i];
    }
}

osg::Vec3f alongAxis(unsigned axis, float length)
{
    osg::Vec3f move;
    move[static_cast<int>(axis)] = length;
    return move;
}

void append(LocalPose& pose, const PoseStep& fixedStep)
{
    if (fixedStep.kind == PoseStep::Kind::Translate) {
        appendMove(pose, fixedStep.vector);
        return;
    }
    osg::Quat rotation = fixedStep.rotation;
    rotation /= rotation.length();
    const float turn[4] = {static_cast<float>(rotation.x()), static_cast<float>(rotation.y()),
                           static_cast<float>(rotation.z()), static_cast<float>(rotation.w())};
    appendRotation(pose.rotation, turn);
}

}  // namespace

RowProgram::RowProgram(const PoseProgram& program, std::size_t columns) : m_steps(program.steps)
{
    for (const PoseStep& step : m_steps) {
        if (step.axis > 2 || (readsColumn(step) && step.column >= columns)) {
            throw std::invalid_argument("a pose step asks for a column or an axis that is not there");
        }
    }
    m_joints.reserve(program.joints.size());
    for (const PoseProgram::Joint& joint : program.joints) {
        compileJoint(program, joint);
    }
}

void RowProgram::compileJoint(const PoseProgram& program, const PoseProgram::Joint& source)
{
    const std::size_t available = program.steps.size();
    if (source.firstStep > available || source.stepCount > available - source.firstStep ||
        source.parent >= static_cast<std::int32_t>(m_joints.size()) || source.parent < -1) {
        throw std::invalid_argument("a pose program's joint reaches beyond its steps or its earlier joints");
    }
    Joint joint;
    joint.firstStep = source.firstStep;
    joint.stepCount = source.stepCount;
    joint.firstTurn = static_cast<std::uint32_t>(m_turnColumns.size());
    const auto begin = m_steps.begin() + joint.firstStep;
    const auto end = begin + joint.stepCount;
    for (auto step = begin; step != end; ++step) {
        if (step->kind == PoseStep::Kind::Turn) {
            m_turnColumns.push_back(step->column);
            m_turnFactors.push_back(step->factor * kHalfAngleTurnsPerDegree);
        }
    }
    if (std::none_of(begin, end, readsColumn)) {
        joint.shape = Shape::Fixed;
    } else if (compileThreeTurns(joint)) {
        joint.shape = Shape::ThreeTurns;
    }
    m_joints.push_back(joint);
}

/// Recognises moves that are followed by exactly three turns about different axes; the moves' steps are put
/// in order, shifts first, which changes nothing as long as the frame is unturned.
bool RowProgram::compileThreeTurns(Joint& joint)
{
    const auto begin = m_steps.begin() + joint.firstStep;
    const auto end = begin + joint.stepCount;
    const auto firstTurn = std::find_if(begin, end, [](const PoseStep& step) {
        return step.kind == PoseStep::Kind::Turn || step.kind == PoseStep::Kind::Rotate;
    });
    const auto isTurn = [](const PoseStep& step) { return step.kind == PoseStep::Kind::Turn; };
    if (end - firstTurn != 3 || !std::all_of(firstTurn, end, isTurn)) {
        return false;
    }
    for (std::ptrdiff_t i = 0; i < 3; ++i) {
        joint.axes[i] = firstTurn[i].axis;
    }
    if ((1u << joint.axes[0] | 1u << joint.axes[1] | 1u << joint.axes[2]) != 7u) {
        return false;
    }
    joint.parity = joint.axes[1] == (joint.axes[0] + 1) % 3 ? 1.0f : -1.0f;
    const auto shiftsEnd = std::partition(
        begin, firstTurn, [](const PoseStep& step) { return step.kind == PoseStep::Kind::Shift; });
    joint.stepCount = static_cast<std::uint32_t>(shiftsEnd - begin);
    std::for_each(shiftsEnd, firstTurn, [&joint](const PoseStep& step) {
        for (int i = 0; i < 3; ++i) {
            joint.position[i] += step.vector[i];
        }
    });
    return true;
}

LocalPose RowProgram::evaluateFixed(const Joint& joint) const
{
    LocalPose pose;
    for (std::uint32_t i = 0; i < joint.stepCount; ++i) {
        append(pose, m_steps[joint.firstStep + i]);
    }
    return pose;
}

std::vector<LocalPose> RowProgram::prepare() const
{
    std::vector<LocalPose> poses(m_joints.size());
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        if (isFixed(i)) {
            poses[i] = evaluateFixed(m_joints[i]);
        }
    }
    return poses;
}

/// The results stay until the thread's next call.
RowProgram::Angles RowProgram::lookUpAngles(const float* row) const
{
    // One for all programs of a thread: it stays in the nearest cache. Padded to whole blocks.
    struct Buffer
    {
        std::vector<float> turns, sines, cosines;
    };
    thread_local Buffer s_buffer;
    Buffer& buffer = s_buffer;
    const std::size_t count = m_turnColumns.size();
    const std::size_t padded = (count + kAngleBlock - 1) / kAngleBlock * kAngleBlock;
    if (buffer.turns.size() < padded) {
        for (std::vector<float>* values : {&buffer.turns, &buffer.sines, &buffer.cosines}) {
            values->resize(padded);
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        buffer.turns[i] = usableAngle(row[m_turnColumns[i]] * m_turnFactors[i]);
    }
    for (std::size_t i = 0; i < padded; i += kAngleBlock) {
        sineAndCosine(&buffer.turns[i], &buffer.sines[i], &buffer.cosines[i]);
    }
    return {buffer.sines.data(), buffer.cosines.data()};
}

void RowProgram::evaluate(const float* row, LocalPose* poses) const
{
    const Angles angles = lookUpAngles(row);
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        const Joint& joint = m_joints[i];
        if (joint.shape == Shape::ThreeTurns) {
            evaluateThreeTurns(joint, row, angles, poses[i]);
        } else if (joint.shape == Shape::General) {
            evaluateGeneral(joint, row, angles, poses[i]);
        }
    }
}

void RowProgram::evaluateThreeTurns(const Joint& joint, const float* row, const Angles& angles,
                                    LocalPose& pose) const
{
    for (int i = 0; i < 3; ++i) {
        pose.position[i] = joint.position[i];
    }
    for (std::uint32_t i = 0; i < joint.stepCount; ++i) {
        const PoseStep& step = m_steps[joint.firstStep + i];
        pose.position[step.axis] += row[step.column] * step.factor;
    }
    // The product of the three turns, written out.
    const float* s = &angles.sines[joint.firstTurn];
    const float* c = &angles.cosines[joint.firstTurn];
    const float e = joint.parity;
    pose.rotation[joint.axes[0]] = s[0] * c[1] * c[2] + e * c[0] * s[1] * s[2];
    pose.rotation[joint.axes[1]] = c[0] * s[1] * c[2] - e * s[0] * c[1] * s[2];
    pose.rotation[joint.axes[2]] = c[0] * c[1] * s[2] + e * s[0] * s[1] * c[2];
    pose.rotation[3] = c[0] * c[1] * c[2] - e * s[0] * s[1] * s[2];
}

void RowProgram::evaluateGeneral(const Joint& joint, const float* row, const Angles& angles,
                                 LocalPose& pose) const
{
    pose = LocalPose();
    std::size_t turn = joint.firstTurn;
    for (std::uint32_t i = 0; i < joint.stepCount; ++i) {
        const PoseStep& step = m_steps[joint.firstStep + i];
        switch (step.kind) {
            case PoseStep::Kind::Shift:
                appendMove(pose, alongAxis(step.axis, row[step.column] * step.factor));
                break;
            case PoseStep::Kind::Turn:
                appendTurn(pose.rotation, step.axis, angles.sines[turn], angles.cosines[turn]);
                ++turn;
                break;
            default:
                append(pose, step);
        }
    }
}

}  // namespace KivAnimation
