#include "KivTaskCommand/taskcommand.h"

#include "host/KivTaskCommand/commandstages.h"

namespace KivTaskCommand {

TaskCommand::TaskCommand() = default;

TaskCommand::~TaskCommand() = default;

bool TaskCommand::setCmdExcImp(ICmdExcDelegate* delegate)
{
    if (delegate != m_spDelegate.get()) {
        m_spDelegate.reset(delegate);
    }
    return true;
}

ICmdExcDelegate* TaskCommand::cmdExcImp() const
{
    return m_spDelegate.get();
}

bool TaskCommand::run()
{
    return m_spDelegate && runCommandStages(*m_spDelegate, [](const auto& execute) { execute(); });
}

}  // namespace KivTaskCommand
