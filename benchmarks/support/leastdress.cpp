#include "benchmarks/support/leastdress.h"

#include "KivAnimation/bone.h"
#include "KivCharacterization/Characterization/piececopy.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"

namespace KivBenchmark {

SkeletonTables::SkeletonTables(osg::Node& skeleton)
{
    const osg::ref_ptr<osg::NodeVisitor> intoJoints =
        new KivCharacterization::CBvhSkeletonNodeVisitor(&joints);
    skeleton.accept(*intoJoints);
    const osg::ref_ptr<osg::NodeVisitor> intoSegments =
        new KivCharacterization::CBVhCalBoneLenNodeVisitor(&segments);
    skeleton.accept(*intoSegments);
}

PiecePlaces findPlaces(const KivCharacterization::BvhJointMap& joints,
                       const KivCharacterization::CommonTypeDef::SIveInfo& avatar)
{
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
    for (const auto& [joint, piece] : places) {
        const osg::ref_ptr<osg::MatrixTransform> wrapper = new osg::MatrixTransform;
        osg::ref_ptr<osg::MatrixTransform> holder = new osg::MatrixTransform;
        holder->addChild(static_cast<osg::Node*>(piece->clone(KivCharacterization::PieceCopy())));
        wrapper->addChild(holder);
        joint->addChild(wrapper);
    }
}

}  // namespace KivBenchmark
