#include "KivCharacterization/Characterization/characterbvh.h"

#include <osg/Group>

#include "KivAnimation/skeleton.h"
#include "KivCharacterization/Characterization/errormessage.h"
#include "KivCharacterization/Characterization/pieceattachment.h"
#include "KivCharacterization/Characterization/skeletonvisitors.h"

namespace KivCharacterization {

namespace {

const char* const kSource = "KivCharacterization/Characterization/characterbvh";

// Process-wide: a fitting run that an exception ends leaves it set.
SFittingRun currentRun;  // frozen

KivAnimation::Skeleton* findSkeleton(osg::Node* node)
{
    if (auto* skeleton = dynamic_cast<KivAnimation::Skeleton*>(node)) {
        return skeleton;
    }
    osg::Group* group = node->asGroup();
    for (unsigned int i = 0; group && i < group->getNumChildren(); ++i) {
        if (KivAnimation::Skeleton* skeleton = findSkeleton(group->getChild(i))) {
            return skeleton;
        }
    }
    return nullptr;
}

/// @return false if the avatar cannot be fitted; no avatar is refused today.
bool fitAvatar()
{
    scaleByProportions(currentRun, attachPieces(currentRun));
    return true;
}

}  // namespace

unsigned int AttachEntityToBvhSkeleton(const std::string& actorName, osg::Node* root, SFittingRecord& record,
                                       CommonTypeDef::SIveInfo& avatar)
{
    auto* group = dynamic_cast<osg::Group*>(root);
    if (!group) {
        reportError(kSource, 25, "node invalid !");  // frozen
        return 0;
    }
    KivAnimation::Skeleton* skeleton = findSkeleton(group);
    if (!skeleton) {
        reportError(kSource, 37, "can not find skeleton node !");  // frozen
        return 0;
    }
    const osg::ref_ptr<osg::NodeVisitor> joints = new CBvhSkeletonNodeVisitor(&record.jointMap);
    skeleton->accept(*joints);
    const osg::ref_ptr<osg::NodeVisitor> segments = new CBVhCalBoneLenNodeVisitor(&record.segmentMap);
    skeleton->accept(*segments);

    currentRun.record = &record;
    currentRun.avatar = &avatar;
    currentRun.actorName = actorName;
    const bool fitted = fitAvatar();
    currentRun.record = nullptr;
    currentRun.avatar = nullptr;
    if (!fitted) {
        reportError(kSource, 60,
                    "an expection occurred while the function AttachEntityToBvhSkeleton exec!");  // frozen
        return 0;
    }
    currentRun.actorName.clear();
    return 1;
}

}  // namespace KivCharacterization
