#pragma once

#include <osg/MatrixTransform>
#include <osg/NodeCallback>
#include <osg/ref_ptr>

#include <array>
#include <cstddef>
#include <vector>

#include "benchmarks/support/minimalreader.h"

namespace KivBenchmark {

/// The limit of posing inside OpenSceneGraph: a tree of plain transforms and one callback that sets all their
/// matrices from a table. It watches no node, synchronises nothing and knows no skeleton space. Frames follow
/// the frame stamp's simulation time in a loop; between rows rotations are blended straight and normalised.
class TransformTree : public osg::NodeCallback
{
public:
    /// @param motion rotations in the order Z-X-Y, positions on the root alone.
    explicit TransformTree(const MinimalMotion& motion);

    /// The tree, Z-up, with this callback on it; joints bear the motion's names.
    osg::Group* node() { return m_root; }

    /// So many matrices are set at a time; end sites keep theirs.
    std::size_t movingJoints() const { return m_joints.size(); }

    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

private:
    struct Pose
    {
        std::array<float, 4> rotation;
        std::array<float, 3> position;
    };
    struct Row
    {
        std::size_t number = static_cast<std::size_t>(-1);
        std::vector<Pose> poses;
    };
    struct Joint
    {
        osg::ref_ptr<osg::MatrixTransform> transform;
        std::size_t firstColumn = 0;  ///< of its rotations
        std::array<float, 3> offset{};
    };

    void poseAt(double rows);
    void provideRow(Row& row, std::size_t number) const;
    void setMatrix(const Joint& joint, const Pose& pose) const;

    osg::ref_ptr<osg::MatrixTransform> m_root;
    std::vector<Joint> m_joints;
    std::vector<float> m_values;
    std::size_t m_columns;
    std::size_t m_rows;
    double m_frameTime;
    Row m_first;
    Row m_second;
};

}  // namespace KivBenchmark
