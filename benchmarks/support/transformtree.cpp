#include "benchmarks/support/transformtree.h"

#include <osg/FrameStamp>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KivBenchmark {

namespace {

constexpr float kHalfDegree = 3.14159265f / 360.0f;

/// The rotation of three angles in degrees about z, then x, then y.
std::array<float, 4> rotationOf(const float* angles)
{
    const float z = angles[0] * kHalfDegree, x = angles[1] * kHalfDegree, y = angles[2] * kHalfDegree;
    const float sz = std::sin(z), cz = std::cos(z);
    const float sx = std::sin(x), cx = std::cos(x);
    const float sy = std::sin(y), cy = std::cos(y);
    return {cz * sx * cy - sz * cx * sy, sz * sx * cy + cz * cx * sy, sz * cx * cy + cz * sx * sy,
            cz * cx * cy - sz * sx * sy};
}

template <std::size_t size>
void mix(std::array<float, size>& result, const std::array<float, size>& a, const std::array<float, size>& b,
         float weightA, float weightB)
{
    for (std::size_t i = 0; i < size; ++i)
        result[i] = weightA * a[i] + weightB * b[i];
}

}  // namespace

TransformTree::TransformTree(const MinimalMotion& motion)
    : m_root(new osg::MatrixTransform(osg::Matrixd::rotate(osg::PI_2, osg::Vec3d(1, 0, 0)))),
      m_values(motion.values),
      m_columns(motion.columns),
      m_rows(motion.frames),
      m_frameTime(motion.frameTime)
{
    std::vector<osg::MatrixTransform*> transforms;
    std::size_t column = 0;
    for (const MinimalMotion::Joint& source : motion.joints) {
        Joint joint;
        joint.transform = new osg::MatrixTransform(
            osg::Matrixd::translate(source.offset[0], source.offset[1], source.offset[2]));
        joint.transform->setName(source.name);
        (source.parent < 0 ? m_root.get() : transforms[static_cast<std::size_t>(source.parent)])
            ->addChild(joint.transform);
        transforms.push_back(joint.transform);
        if (source.channels.empty())
            continue;
        for (std::size_t i = 0; i < 3; ++i)
            joint.offset[i] = static_cast<float>(source.offset[i]);
        joint.firstColumn = column + source.channels.size() - 3;
        column += source.channels.size();
        m_joints.push_back(joint);
    }
    m_first.poses.resize(m_joints.size());
    m_second.poses.resize(m_joints.size());
    m_root->addUpdateCallback(this);
}

void TransformTree::operator()(osg::Node* node, osg::NodeVisitor* visitor)
{
    const double time = visitor->getFrameStamp()->getSimulationTime() / m_frameTime;
    poseAt(std::fmod(time, static_cast<double>(m_rows - 1)));
    traverse(node, visitor);
}

void TransformTree::poseAt(double rows)
{
    const double whole = std::floor(rows + 1e-6);
    const auto number = static_cast<std::size_t>(whole);
    const auto fraction = static_cast<float>(rows - whole);
    if (m_second.number == number)
        std::swap(m_first, m_second);
    provideRow(m_first, number);
    if (fraction < 1e-6f) {
        for (std::size_t i = 0; i < m_joints.size(); ++i)
            setMatrix(m_joints[i], m_first.poses[i]);
        return;
    }
    provideRow(m_second, number + 1);
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        const Pose& a = m_first.poses[i];
        const Pose& b = m_second.poses[i];
        float cosine = 0.0f;
        for (std::size_t k = 0; k < 4; ++k)
            cosine += a.rotation[k] * b.rotation[k];
        Pose pose;
        mix(pose.rotation, a.rotation, b.rotation, 1.0f - fraction, std::copysign(fraction, cosine));
        mix(pose.position, a.position, b.position, 1.0f - fraction, fraction);
        setMatrix(m_joints[i], pose);
    }
}

void TransformTree::provideRow(Row& row, std::size_t number) const
{
    if (std::exchange(row.number, number) == number)
        return;
    const float* values = m_values.data() + number * m_columns;
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        row.poses[i].rotation = rotationOf(values + m_joints[i].firstColumn);
        row.poses[i].position = m_joints[i].offset;
    }
    std::copy_n(values, 3, row.poses.front().position.begin());
}

void TransformTree::setMatrix(const Joint& joint, const Pose& pose) const
{
    // makeRotate normalises.
    osg::Matrixd matrix;
    matrix.makeRotate(osg::Quat(pose.rotation[0], pose.rotation[1], pose.rotation[2], pose.rotation[3]));
    matrix.setTrans(pose.position[0], pose.position[1], pose.position[2]);
    joint.transform->setMatrix(matrix);
}

}  // namespace KivBenchmark
