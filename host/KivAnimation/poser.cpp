#include "host/KivAnimation/poser.h"

#include <osg/Matrixd>

#include <cmath>
#include <utility>

#include "host/KivAnimation/prefetch.h"

namespace KivAnimation {

namespace {

/// Above this cosine of the angle between two quaternions the straight blend is within 0.02 degrees of the
/// even one.
constexpr float kNearlyParallel = 0.98f;

/// So many joints ahead a bone is asked for, the first ones while the row is evaluated: many actors' bones
/// lie beyond the second cache, and what lies there takes about as long to come as so many joints take to be
/// posed.
constexpr std::size_t kAskedAhead = 6;

/// Between two local poses, on the shorter arc; the rotation's length is near 1, not exactly 1.
LocalPose blend(const LocalPose& a, const LocalPose& b, float fraction)
{
    float cosine = 0.0f;
    for (int i = 0; i < 4; ++i) {
        cosine += a.rotation[i] * b.rotation[i];
    }
    float weightA = 1.0f - fraction;
    float weightB = fraction;
    const float proximity = std::fabs(cosine);
    if (proximity < kNearlyParallel) {
        const float angle = std::acos(proximity);
        const float scale = 1.0f / std::sin(angle);
        weightA = std::sin(weightA * angle) * scale;
        weightB = std::sin(weightB * angle) * scale;
    }
    weightB = std::copysign(weightB, cosine);
    LocalPose result;
    for (int i = 0; i < 4; ++i) {
        result.rotation[i] = weightA * a.rotation[i] + weightB * b.rotation[i];
    }
    for (int i = 0; i < 3; ++i) {
        result.position[i] = a.position[i] + fraction * (b.position[i] - a.position[i]);
    }
    return result;
}

}  // namespace

std::vector<Poser::Joint> Poser::jointsOf(const PoseProgram& program, const RowProgram& compiled)
{
    std::vector<Joint> joints(program.joints.size());
    for (std::size_t i = 0; i < joints.size(); ++i) {
        const PoseProgram::Joint& source = program.joints[i];
        joints[i].bone = source.bone;
        joints[i].parent = source.parent;
        joints[i].fixed = compiled.isFixed(i);
        source.update.lock(joints[i].update);
    }
    return joints;
}

Poser::Poser(const PoseProgram& program, std::size_t columns)
    : m_program(program, columns), m_joints(jointsOf(program, m_program)), m_watches(m_joints)
{
    if (!program.joints.empty()) {
        m_root = program.joints.front().bone;
    }
    m_first.poses = m_program.prepare();
    m_second.poses = m_first.poses;
    for (const LocalPose& pose : m_first.poses) {
        m_fixedRows.push_back(rowsOf(pose));
    }
}

void Poser::provideRow(EvaluatedRow& wanted, const MotionTable& table, std::size_t row)
{
    if (wanted.row != row) {
        m_program.evaluate(table.values.data() + row * table.columns, wanted.poses.data());
        wanted.row = row;
    }
}

void Poser::pose(const MotionTable& table, std::size_t row, double fraction)
{
    osg::ref_ptr<Bone> root;  // held meanwhile: as long as it lives, no bone below it dies on another thread
    if (!m_root.lock(root)) {
        return;
    }
    for (std::size_t i = 0; i < kAskedAhead; ++i) {
        askForBone(i);
    }
    if (m_second.row == row || m_first.row == row + 1) {
        std::swap(m_first, m_second);
    }
    provideRow(m_first, table, row);
    const bool between = fraction != 0.0;
    if (between) {
        provideRow(m_second, table, row + 1);
    }
    poseBones(between, static_cast<float>(fraction));
}

inline void Poser::askForBone(std::size_t joint) const
{
    if (joint >= m_joints.size() || !m_joints[joint].bone) {
        return;
    }
    const Bone& bone = *m_joints[joint].bone;
    prefetchForWriting(&bone._boundingSphereComputed, sizeof bone._boundingSphereComputed);
    prefetchForWriting(&bone._matrix, sizeof bone._matrix);
    prefetchForWriting(&bone._inverseDirty, sizeof bone._inverseDirty);
    prefetchForWriting(&bone._boneInSkeletonSpace, sizeof bone._boneInSkeletonSpace);
}

void Poser::poseBones(bool between, float fraction)
{
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        askForBone(i + kAskedAhead);
        const Joint& joint = m_joints[i];
        if (!joint.bone) {
            continue;
        }
        if (joint.fixed) {
            poseFixedJoint(joint, m_fixedRows[i]);
        } else if (between) {
            poseJoint(joint, blend(m_first.poses[i], m_second.poses[i], fraction));
        } else {
            poseJoint(joint, m_first.poses[i]);
        }
    }
}

inline void Poser::poseJoint(const Joint& joint, const LocalPose& pose)
{
    const AffineRows local = rowsOf(pose);
    setMatrix(joint, local);
    placeInSkeleton(joint, local);
}

/// The matrix is written only where somebody else has changed it.
void Poser::poseFixedJoint(const Joint& joint, const AffineRows& local)
{
    if (joint.update || !equal(local, joint.bone->_matrix.ptr())) {
        setMatrix(joint, local);
    }
    placeInSkeleton(joint, local);
}

inline void Poser::setMatrix(const Joint& joint, const AffineRows& local)
{
    Bone& bone = *joint.bone;
    write(local, bone._matrix.ptr());
    bone._inverseDirty = true;
    if (bone._boundingSphereComputed) {
        bone.dirtyBound();
    }
    if (joint.update) {
        joint.update->setMatrix(bone._matrix);
    }
}

inline void Poser::placeInSkeleton(const Joint& joint, const AffineRows& local)
{
    double* const placed = joint.bone->_boneInSkeletonSpace.ptr();
    const Bone* parent = joint.parent < 0 ? nullptr : m_joints[static_cast<std::size_t>(joint.parent)].bone;
    if (parent) {
        writeProduct(local, parent->_boneInSkeletonSpace.ptr(), placed);
    } else {
        write(local, placed);
    }
}

}  // namespace KivAnimation
