#include "host/KivAnimation/poser.h"

#include <osg/Matrixd>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KivAnimation {

namespace {

/// Above this cosine of the angle between two quaternions the straight blend is within 0.02 degrees of the
/// even one.
constexpr float kNearlyParallel = 0.98f;

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

/// The rows of a matrix whose last column is 0, 0, 0, 1. Plain numbers that can stay in registers: a matrix
/// that is put together in memory and then copied is waited for.
struct AffineRows
{
    double values[4][3];
};

AffineRows rowsOf(const LocalPose& pose)
{
    const double x = pose.rotation[0], y = pose.rotation[1], z = pose.rotation[2], w = pose.rotation[3];
    const double scale = 2.0 / (x * x + y * y + z * z + w * w);
    const double sx = scale * x, sy = scale * y, sz = scale * z;
    const double wx = sx * w, wy = sy * w, wz = sz * w;
    const double xx = sx * x, xy = sx * y, xz = sx * z;
    const double yy = sy * y, yz = sy * z, zz = sz * z;
    return {{{1.0 - (yy + zz), xy + wz, xz - wy},
             {xy - wz, 1.0 - (xx + zz), yz + wx},
             {xz + wy, yz - wx, 1.0 - (xx + yy)},
             {pose.position[0], pose.position[1], pose.position[2]}}};
}

bool equal(const AffineRows& local, const double* matrix)
{
    bool same = true;
    for (int row = 0; row < 4; ++row) {
        for (int i = 0; i < 3; ++i) {
            same = same && local.values[row][i] == matrix[4 * row + i];
        }
    }
    return same;
}

void write(const AffineRows& local, double* matrix)
{
    for (int row = 0; row < 4; ++row) {
        for (int i = 0; i < 3; ++i) {
            matrix[4 * row + i] = local.values[row][i];
        }
        matrix[4 * row + 3] = row == 3 ? 1.0 : 0.0;
    }
}

/// local × parent.
void writeProduct(const AffineRows& local, const double* parent, double* product)
{
    for (int row = 0; row < 4; ++row) {
        const double* a = local.values[row];
        double sums[4];
        for (int i = 0; i < 4; ++i) {
            sums[i] = a[0] * parent[i] + a[1] * parent[4 + i] + a[2] * parent[8 + i] +
                      (row == 3 ? parent[12 + i] : 0.0);
        }
        std::copy_n(sums, 4, product + 4 * row);
    }
}

}  // namespace

Poser::Poser(const PoseProgram& program, std::size_t columns)
    : m_program(program, columns), m_joints(program.joints.size())
{
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        const PoseProgram::Joint& source = program.joints[i];
        m_joints[i].parent = source.parent;
        m_joints[i].fixed = m_program.isFixed(i);
        source.update.lock(m_joints[i].update);
        m_watches.emplace_back(source.bone.get(), &m_joints[i].bone);
    }
    if (!program.joints.empty()) {
        m_root = program.joints.front().bone;
    }
    m_first.poses = m_program.prepare();
    m_second.poses = m_first.poses;
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
    if (m_second.row == row || m_first.row == row + 1) {
        std::swap(m_first, m_second);
    }
    provideRow(m_first, table, row);
    if (fraction == 0.0) {
        for (std::size_t i = 0; i < m_joints.size(); ++i) {
            poseJoint(m_joints[i], m_first.poses[i]);
        }
        return;
    }
    provideRow(m_second, table, row + 1);
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        poseJoint(m_joints[i], m_joints[i].fixed ? m_first.poses[i]
                                                 : blend(m_first.poses[i], m_second.poses[i],
                                                         static_cast<float>(fraction)));
    }
}

void Poser::poseJoint(const Joint& joint, const LocalPose& pose)
{
    Bone* const bone = joint.bone;
    if (!bone) {
        return;
    }
    const AffineRows local = rowsOf(pose);
    if (!joint.fixed || !equal(local, bone->_matrix.ptr())) {
        write(local, bone->_matrix.ptr());
        bone->_inverseDirty = true;
        bone->dirtyBound();
    }
    if (joint.update) {
        joint.update->setMatrix(bone->_matrix);
    }
    const Bone* parent = joint.parent < 0 ? nullptr : m_joints[static_cast<std::size_t>(joint.parent)].bone;
    if (parent) {
        writeProduct(local, parent->_boneInSkeletonSpace.ptr(), bone->_boneInSkeletonSpace.ptr());
    } else {
        write(local, bone->_boneInSkeletonSpace.ptr());
    }
}

}  // namespace KivAnimation
