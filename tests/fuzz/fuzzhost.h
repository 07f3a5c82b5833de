#pragma once

#include <osg/Notify>
#include <osgDB/ReadFile>
#include <osgUtil/UpdateVisitor>

#include <string>

#include "KivAnimation/basicanimationmanager.h"
#include "KivCharacterization/Characterization/actorscene.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/Characterization/modelloading.h"
#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivMemoryShare/actorframemanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivReader/readerwriterbvh.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "KivTaskCommand/taskcommand.h"
#include "tests/fuzz/expectation.h"
#include "tests/support/figures.h"
#include "tests/support/manageraccess.h"

namespace KivTestSupport {

/// A host that keeps the small avatar, the label font and the markers' shapes over a whole fuzzing run.
class FuzzHost
{
public:
    FuzzHost()
    {
        osg::setNotifyLevel(osg::ALWAYS);  // none of the warnings that bad input earns
        KivCharacterization::CharacterizationManagerAccess access(manager());
        m_avatar = smallAvatar();
        KivCharacterization::CommonTypeDef::SIveInfo& info = access.avatars["small"];
        info.node = m_avatar.get();
        KIV_EXPECT(KivCharacterization::analyseAvatar(m_avatar.get(), info));
        KIV_EXPECT(KivCharacterization::loadLabelFont(KIV_FUZZ_FONT, access.fonts));
    }

    static KivCharacterization::CharacterizationManager& manager()
    {
        return *KivCharacterization::CharacterizationManager::instance();
    }
    static osg::Group& scene() { return *KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode(); }
    static KivAnimation::BasicAnimationManager& playback()
    {
        return *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
    }

    static void updateScene()
    {
        const osg::ref_ptr<osgUtil::UpdateVisitor> visitor = new osgUtil::UpdateVisitor;
        scene().accept(*visitor);
    }

    /// Takes everything out again, so that inputs do not depend on each other.
    static void clear()
    {
        KivTaskCommand::TaskCommand removal;
        manager().ClearOrRemoveActor(&removal, 0, 0);
        KIV_EXPECT(removal.run());
        // What stages run out of order, or nodes removed by hand, have left behind.
        scene().removeChildren(0, scene().getNumChildren());
        // A reset leaves the actors' animations to the host.
        for (KivAnimation::Animation* animation : playback().animations()) {
            playback().unregisterAnimation(animation);
        }
        KivMemoryShare::ActorFrameManager::Ins()->Clear();
        KivRenderState::KivRenderStateManager::instance()->reset();
        KivErrorOperator::TavrinCommonErrorMsg::instance()->clear();
        // Links of props live as long as their manager: end it, or a long run is a leak.
        KivCharacterization::KivPropsProertyManager::DestroyInstance();
    }

private:
    osg::ref_ptr<osg::Group> m_avatar;
    /// Actors share their markers' shapes with any that there are: kept, they are built once for a run.
    osg::ref_ptr<osg::Switch> m_markers = KivCharacterization::makeCentreOfMassSwitch();
};

}  // namespace KivTestSupport
