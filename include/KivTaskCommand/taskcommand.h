#pragma once

#include <memory>

#include "KivCommonDef/sharedlibrary.h"
#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivTaskCommand {

/// A command of the host: an empty hull until somebody attaches the work to it. Not synchronised; one
/// thread at a time holds a command.
class KIV_TASKCOMMAND_API TaskCommand
{
public:
    TaskCommand();
    ~TaskCommand();
    TaskCommand(const TaskCommand&) = delete;
    TaskCommand& operator=(const TaskCommand&) = delete;

    /// Takes ownership of the work; an earlier one is destroyed. Null empties the command. Always true.
    bool setCmdExcImp(ICmdExcDelegate* delegate);

    /// The attached work, still owned by the command; null when there is none.
    ICmdExcDelegate* cmdExcImp() const;

    /// Runs prepare, execute and finish on the calling thread, each whatever an earlier one answered: a
    /// replacement that fails must still take the old actor out of the scene, and the state must return to
    /// ready.
    /// @return true only if all three answered true; false for an empty command.
    /// @throws what a stage threw first, after finish has run.
    bool run();

private:
    std::unique_ptr<ICmdExcDelegate> m_spDelegate;
};

}  // namespace KivTaskCommand
