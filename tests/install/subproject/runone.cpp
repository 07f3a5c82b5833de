// Runs one command, which reports to the sink.

#include "KivErrorOperator/tavrincommonerrormsg.h"
#include "KivTaskCommand/taskcommand.h"

namespace {

class Report : public KivTaskCommand::ICmdExcDelegate
{
public:
    Report() : ICmdExcDelegate(1, 101, 102, 103) {}
    bool prepare() override { return true; }
    bool execute() override
    {
        KivErrorOperator::TavrinCommonErrorMsg::instance()->LogInfo("the command ran");
        return true;
    }
    bool finish() override { return true; }
};

}  // namespace

int main()
{
    KivTaskCommand::TaskCommand command;
    command.setCmdExcImp(new Report);
    return command.run() ? 0 : 1;
}
