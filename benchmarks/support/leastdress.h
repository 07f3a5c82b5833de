#pragma once

#include <osg/MatrixTransform>
#include <osg/ref_ptr>

#include <utility>
#include <vector>

#include "KivCharacterization/common/iveinfo.h"

namespace KivBenchmark {

/// What a dress costs with nothing found, checked or fitted: the tables and nodes that the contract asks for,
/// made, copied and hung as the module does it. The floor under dressing.

/// The tables of joints and segments, made by the module's walks, one after the other.
struct SkeletonTables
{
    SkeletonTables() = default;
    explicit SkeletonTables(osg::Node& skeleton);

    KivCharacterization::BvhJointMap joints;
    KivCharacterization::BvhSegmentMap segments;
};

/// The pieces of an avatar, each with the joint of a skeleton that it goes to.
using PiecePlaces = std::vector<std::pair<osg::Group*, const osg::MatrixTransform*>>;
PiecePlaces findPlaces(const KivCharacterization::BvhJointMap& joints,
                       const KivCharacterization::CommonTypeDef::SIveInfo& avatar);

/// Hangs a deep copy of every piece at its place, in its two transforms.
void hangCopies(const PiecePlaces& places);

}  // namespace KivBenchmark
