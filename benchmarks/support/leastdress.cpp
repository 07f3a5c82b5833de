#include "benchmarks/support/leastdress.h"

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/piececopy.h"
#include "KivCharacterization/Characterization/piecetransform.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"

namespace KivBenchmark {

PiecePlaces findPlaces(osg::Node& skeleton, const KivCharacterization::CommonTypeDef::SIveInfo& avatar)
{
    KivCharacterization::BvhJointMap joints;
    const osg::ref_ptr<osg::NodeVisitor> visitor = new KivCharacterization::CBvhSkeletonNodeVisitor(&joints);
    skeleton.accept(*visitor);
    PiecePlaces places;
    for (const auto& [joint, entry] : avatar.jointMap) {
        const auto bone = joints.find(joint);
        if (bone == joints.end())
            continue;
        for (const osg::MatrixTransform* piece : entry.pieces)
            places.emplace_back(bone->second, piece);
    }
    return places;
}

void hangCopies(const PiecePlaces& places)
{
    const KivCharacterization::PieceCopy copy;
    for (const auto& [joint, piece] : places) {
        const osg::ref_ptr<KivCharacterization::PieceTransform> wrapper =
            new KivCharacterization::PieceTransform;
        auto* holder = new KivCharacterization::PieceTransform(*wrapper, osg::Matrixd());
        holder->addChild(copy(static_cast<const osg::Node*>(piece)));
        joint->addChild(wrapper);
    }
}

}  // namespace KivBenchmark
