#include "KivCharacterization/Characterization/rootjoint.h"

#include <osg/Callback>
#include <osg/Group>

#include <string>

#include "KivAnimation/updatebone.h"
#include "KivCharacterization/naming.h"

namespace KivCharacterization {

namespace {

bool isRootJointName(const std::string& name)
{
    const std::size_t mark = name.find(kQualifierMark);
    return mark != std::string::npos && name.compare(mark + 1, std::string::npos, "Hips") == 0;
}

osg::Node* findRootJoint(osg::Node& root)
{
    osg::Node* node = &root;
    while (!isRootJointName(node->getName())) {
        osg::Group* group = node->asGroup();
        if (!group || group->getNumChildren() == 0) {
            return nullptr;
        }
        node = group->getChild(0);
    }
    return node;
}

KivAnimation::UpdateBone* findUpdateBone(osg::Node& root)
{
    osg::Node* joint = findRootJoint(root);
    osg::Callback* callback = joint ? joint->getUpdateCallback() : nullptr;
    for (; callback; callback = callback->getNestedCallback()) {
        if (auto* update = dynamic_cast<KivAnimation::UpdateBone*>(callback)) {
            return update;
        }
    }
    return nullptr;
}

}  // namespace

void takeOverRootJointMatrix(osg::Node& oldRoot, osg::Node& newRoot)
{
    const KivAnimation::UpdateBone* oldUpdate = findUpdateBone(oldRoot);
    KivAnimation::UpdateBone* newUpdate = findUpdateBone(newRoot);
    if (oldUpdate && newUpdate) {
        newUpdate->ApplyOtherMatrix(*oldUpdate);
    }
}

}  // namespace KivCharacterization
