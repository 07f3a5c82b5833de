#pragma once

#include <functional>
#include <string>

#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivTaskCommandTest {

/// Work that does what a test tells it to and writes its stages down: "p", "e", "f", and "~" when it dies.
class RecordingDelegate : public KivTaskCommand::ICmdExcDelegate
{
public:
    using Stage = std::function<bool()>;

    explicit RecordingDelegate(std::string& record) : ICmdExcDelegate(1, 10, 11, 12), m_record(record) {}
    ~RecordingDelegate() override { m_record += '~'; }

    bool prepare() override { return run('p', onPrepare); }
    bool execute() override { return run('e', onExecute); }
    bool finish() override { return run('f', onFinish); }

    Stage onPrepare;
    Stage onExecute;
    Stage onFinish;

private:
    bool run(char letter, const Stage& stage)
    {
        m_record += letter;
        return stage ? stage() : true;
    }

    std::string& m_record;
};

}  // namespace KivTaskCommandTest
