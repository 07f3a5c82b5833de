#pragma once

#include <string>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/commandonloan.h"
#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivCharacterization {

/// Makes the camera follow an actor, or stop.
/// - prepare: sets the render state's camera-trace flag and id.
/// - execute, finish: nothing.
class CameraTraceCmdExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    /// @param actors carried along, not read.
    CameraTraceCmdExcHandler(ActorTable* actors, const std::string& traceId, bool traceOn);
    bool prepare() override;
    bool execute() override { return true; }
    bool finish() override { return true; }

private:
    [[maybe_unused]] ActorTable* m_pActors;
    std::string m_strTraceId;
    bool m_bTraceOn;
    [[maybe_unused]] CommandOnLoan m_onLoan;
};

/// Sends the cameras home.
/// - prepare: nothing.
/// - execute: home on the manipulator of every view, then the trace matrix back to identity. A missing
///   viewer or manipulator is skipped.
/// - finish: nothing.
class CameraHomePositionCmdExcHandler : public KivTaskCommand::ICmdExcDelegate
{
public:
    CameraHomePositionCmdExcHandler();
    bool prepare() override { return true; }
    bool execute() override;
    bool finish() override { return true; }
};

}  // namespace KivCharacterization
