#pragma once

#include <osg/Group>
#include <osg/observer_ptr>

#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/commandonloan.h"
#include "KivCharacterization/common/iveinfo.h"
#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivCharacterization {

/// Turns BVH text into a dressed actor of the scene, in place of an earlier actor of the same key.
/// - prepare: says that characterization is building; reads the text, builds the actor's subtree and its
///   record, dresses the skeleton. False for a text that is refused, without an avatar, or where memory is
///   short; an earlier actor's record is gone either way. What the fitting throws reaches the caller.
/// - execute: takes the earlier actor out of the scene and the new one in, plays it, shows or hides the
///   names. False when there is no new actor, or no memory to take it in: then it is not in the scene.
/// - finish: says that characterization is ready.
class BVHBuildHierarchyFromStringCmdExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    /// The tables belong to the manager. The first avatar is the one that is fitted, the first font that of
    /// the label.
    BVHBuildHierarchyFromStringCmdExcHandler(IveInfoTable* avatars, ActorTable* actors, FontTable* fonts,
                                             const std::string& hierarchy, const std::string& actorId,
                                             const std::string& actorName);
    bool prepare() override;
    bool execute() override;
    bool finish() override;

private:
    bool build();
    void rememberOldActor();
    void buildScene(const std::string& id, osg::Group& skeleton, KivAnimation::Animation& animation);
    bool dress();
    bool complete();
    bool swapIn();
    void takeOut();

    IveInfoTable* m_pAvatars;
    ActorTable* m_pActors;
    FontTable* m_pFonts;
    std::string m_strHierarchy;
    std::string m_strActorId;
    std::string m_strActorName;
    std::string m_strBuiltId;  ///< the key of the record, which the reader gives where the caller did not
    osg::observer_ptr<osg::Group> m_opSkeleton;
    osg::observer_ptr<osg::Group> m_opNewRoot;
    osg::observer_ptr<osg::Group> m_opOldRoot;
    osg::observer_ptr<KivAnimation::Animation> m_opOldAnimation;
    osg::observer_ptr<KivAnimation::Animation> m_opNewAnimation;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

}  // namespace KivCharacterization
