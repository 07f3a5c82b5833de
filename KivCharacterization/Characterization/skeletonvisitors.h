#pragma once

#include <osg/NodeVisitor>

#include "KivCharacterization/common/fittingmaps.h"

namespace KivCharacterization {

/// Four walks that collect joints and bone segments, each into a map of the caller's. A visitor serves one
/// walk; it adds entries and overwrites entries, and removes none. The pointers must not be null and
/// outlive the walk.

/// Motion skeleton: bones by normalised name; of two bones with one name the later visited one stays.
class CBvhSkeletonNodeVisitor : public osg::NodeVisitor
{
public:
    explicit CBvhSkeletonNodeVisitor(BvhJointMap* joints);
    void apply(osg::Node& node) override;
    using osg::NodeVisitor::apply;

private:
    BvhJointMap* m_pJoints;
};

/// Motion skeleton: the segments between bones and the bones directly below them, at rest.
class CBVhCalBoneLenNodeVisitor : public osg::NodeVisitor  // frozen
{
public:
    explicit CBVhCalBoneLenNodeVisitor(BvhSegmentMap* segments);
    void apply(osg::Node& node) override;
    using osg::NodeVisitor::apply;

private:
    BvhSegmentMap* m_pSegments;
};

/// Avatar: skeleton nodes with their pieces. A transform whose name begins with the piece prefix is no
/// skeleton node, also when the name is the prefix alone; only a child with a longer name is a piece.
class CIveSkeletonNodeVisitor : public osg::NodeVisitor
{
public:
    /// @param extra carried along, not read and not written.
    CIveSkeletonNodeVisitor(IveJointMap* joints, SkeletonExtra* extra);  // frozen
    void apply(osg::Node& node) override;
    using osg::NodeVisitor::apply;

private:
    IveJointMap* m_pJoints;
    [[maybe_unused]] SkeletonExtra* m_pExtra;
};

/// Avatar: the segments between transforms and the transforms directly below them that are no pieces.
class CIveCalBoneLenNodeVisitor : public osg::NodeVisitor
{
public:
    explicit CIveCalBoneLenNodeVisitor(IveSegmentMap* segments);
    void apply(osg::Node& node) override;
    using osg::NodeVisitor::apply;

private:
    IveSegmentMap* m_pSegments;
};

}  // namespace KivCharacterization
