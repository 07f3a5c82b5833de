#pragma once

#include <osg/Node>
#include <osg/observer_ptr>

#include <cstddef>
#include <string>
#include <vector>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/commandonloan.h"
#include "KivCommonDef/stickcontact.h"
#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivCharacterization {

/// The tables behind the pointers belong to the manager, which outlives its commands.

/// Empties the scene of actors. The avatar and the font stay.
/// - prepare: nothing.
/// - execute: takes every actor's root out of the character scene, empties the table, resets the motion
///   reader. The actors' animations stay registered with the animation manager: the host drops them with
///   its own session.
/// - finish: nothing.
class ResetCharacterizaionSessionCmdExcHandler : public KivTaskCommand::ICmdExcDelegate  // frozen
{
public:
    explicit ResetCharacterizaionSessionCmdExcHandler(ActorTable* actors);
    bool prepare() override { return true; }
    bool execute() override;
    bool finish() override { return true; }

private:
    ActorTable* m_pActors;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

/// What is to be removed of one actor; gone already, it is skipped.
struct SActorRemoval
{
    int actorNumber = 0;
    osg::observer_ptr<osg::Node> root;
    osg::observer_ptr<KivAnimation::Animation> animation;
};

/// Removes one actor or all of them.
/// - prepare: selects what to remove; false if more actors are asked for than there are.
/// - execute: takes the selected ones out of scene, animation manager and table, then shows or hides the
///   names of those that are left.
/// - finish: nothing.
class CmdRequireActorCountExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    /// @param count   0 selects every actor, whatever the id.
    /// @param actorId the actor's key; empty selects none.
    CmdRequireActorCountExcHandler(ActorTable* actors, std::size_t count, const std::string& actorId);
    bool prepare() override;
    bool execute() override;
    bool finish() override { return true; }

private:
    void select(ActorTable::const_iterator actor);

    ActorTable* m_pActors;
    std::size_t m_nCount;
    std::string m_strActorId;
    std::vector<SActorRemoval> m_vecRemovals;
    std::vector<std::string> m_vecRemovedKeys;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

/// Changes the text of an actor's name label.
/// - prepare: nothing.
/// - execute: sets the text; false for an unknown actor or one without a label.
/// - finish: nothing.
class ChangeActorNameExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    /// @param fonts carried along, not read.
    ChangeActorNameExcHandler(ActorTable* actors, FontTable* fonts, const std::string& actorId,
                              const std::string& newName);
    bool prepare() override { return true; }
    bool execute() override;
    bool finish() override { return true; }

private:
    ActorTable* m_pActors;
    [[maybe_unused]] FontTable* m_pFonts;
    std::string m_strActorId;
    std::string m_strNewName;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

/// Sets the contact colour of a joint.
/// - prepare: stores the colour with the render state, for actors to come.
/// - execute: repaints the joint on every actor there is.
/// - finish: nothing.
class ChangeStickContactColorCmdExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    ChangeStickContactColorCmdExcHandler(ActorTable* actors,
                                         const KivCommonDef::KIV_STICKCONTACT_COLOR& colour,
                                         const std::string& jointName);
    bool prepare() override;
    bool execute() override;
    bool finish() override { return true; }

private:
    ActorTable* m_pActors;
    KivCommonDef::KIV_STICKCONTACT_COLOR m_color;
    std::string m_strJointName;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

}  // namespace KivCharacterization
