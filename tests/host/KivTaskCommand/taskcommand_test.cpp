#include "KivTaskCommand/taskcommand.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/host/KivTaskCommand/recordingdelegate.h"

namespace {

using KivTaskCommand::TaskCommand;
using KivTaskCommandTest::RecordingDelegate;

class Command : public testing::Test
{
protected:
    RecordingDelegate& attach()
    {
        auto* delegate = new RecordingDelegate(m_record);
        EXPECT_TRUE(m_command.setCmdExcImp(delegate));
        return *delegate;
    }

    std::string m_record;
    TaskCommand m_command;
};

const auto kFails = [] { return false; };

RecordingDelegate::Stage throwing(const char* what)
{
    return [what]() -> bool { throw std::runtime_error(what); };
}

TEST_F(Command, answersFalseWhenItIsEmpty)
{
    EXPECT_FALSE(m_command.run());
    EXPECT_EQ(m_command.cmdExcImp(), nullptr);
}

TEST_F(Command, executesAndFinishesThoughPreparingFailed)
{
    attach().onPrepare = kFails;
    EXPECT_FALSE(m_command.run());
    EXPECT_EQ(m_record, "pef");
}

TEST_F(Command, answersFalseIfAnyStageDid)
{
    attach().onExecute = kFails;
    EXPECT_FALSE(m_command.run());
    attach().onFinish = kFails;
    EXPECT_FALSE(m_command.run());
    EXPECT_EQ(m_record, "pef~pef");
}

TEST_F(Command, finishesBeforeItPassesAnExceptionOn)
{
    attach().onPrepare = throwing("broken");
    EXPECT_THROW(m_command.run(), std::runtime_error);
    EXPECT_EQ(m_record, "pef");
}

TEST_F(Command, passesTheFirstOfSeveralExceptionsOn)
{
    RecordingDelegate& delegate = attach();
    delegate.onExecute = throwing("first");
    delegate.onFinish = throwing("second");
    try {
        m_command.run();
        FAIL() << "the exception was swallowed";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "first");
    }
    EXPECT_EQ(m_record, "pef");
}

TEST_F(Command, runsItsStagesInOrderEachTimeItIsRun)
{
    attach();
    EXPECT_TRUE(m_command.run());
    EXPECT_TRUE(m_command.run());
    EXPECT_EQ(m_record, "pefpef");
}

TEST_F(Command, freesEarlierWorkWhenItGetsOther)
{
    attach();
    RecordingDelegate& second = attach();
    EXPECT_EQ(m_record, "~");
    EXPECT_EQ(m_command.cmdExcImp(), &second);
    EXPECT_TRUE(m_command.setCmdExcImp(&second));
    EXPECT_EQ(m_record, "~");
    EXPECT_TRUE(m_command.setCmdExcImp(nullptr));
    EXPECT_EQ(m_record, "~~");
    EXPECT_EQ(m_command.cmdExcImp(), nullptr);
}

TEST_F(Command, freesItsWorkWithItself)
{
    {
        TaskCommand command;
        command.setCmdExcImp(new RecordingDelegate(m_record));
    }
    EXPECT_EQ(m_record, "~");
}

TEST_F(Command, carriesTheCodesOfItsWork)
{
    attach();
    EXPECT_EQ(m_command.cmdExcImp()->m_codes[0], 1);
    EXPECT_EQ(m_command.cmdExcImp()->m_codes[1], 10);
    EXPECT_EQ(m_command.cmdExcImp()->m_codes[3], 12);
}

}  // namespace
