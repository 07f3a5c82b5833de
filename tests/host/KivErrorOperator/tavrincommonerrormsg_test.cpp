#include "KivErrorOperator/tavrincommonerrormsg.h"

#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <vector>

namespace {

using KivErrorOperator::SErrorMsg;
using KivErrorOperator::TavrinCommonErrorMsg;
using testing::ElementsAre;
using testing::IsEmpty;

class ErrorSink : public testing::Test
{
protected:
    void SetUp() override { m_sink.clear(); }
    void TearDown() override { m_sink.clear(); }

    TavrinCommonErrorMsg& m_sink = *TavrinCommonErrorMsg::instance();
};

TEST_F(ErrorSink, hasNothingToSayAtFirst)
{
    EXPECT_EQ(m_sink.GetLastErrorMsg().message, "");
    EXPECT_THAT(m_sink.history(), IsEmpty());
}

TEST_F(ErrorSink, doesNotTakeANoteForAnError)
{
    m_sink.SetLastErrorMsg("no such file");
    m_sink.LogInfo("loading");
    EXPECT_EQ(m_sink.GetLastErrorMsg().message, "no such file");
}

TEST_F(ErrorSink, keepsEveryFieldOfTheLastError)
{
    SErrorMsg error;
    error.message = "broken";
    error.code = 12;
    error.severity = 3;
    m_sink.SetLastErrorMsg(error);
    EXPECT_EQ(m_sink.GetLastErrorMsg().message, "broken");
    EXPECT_EQ(m_sink.GetLastErrorMsg().code, 12);
    EXPECT_EQ(m_sink.GetLastErrorMsg().severity, 3);
    m_sink.SetLastErrorMsg("another");
    EXPECT_EQ(m_sink.GetLastErrorMsg().code, 0);
}

TEST_F(ErrorSink, tellsErrorsAndNotesOldestFirst)
{
    m_sink.LogInfo("one");
    m_sink.SetLastErrorMsg("two");
    m_sink.LogInfo("three");
    EXPECT_THAT(m_sink.history(), ElementsAre("one", "two", "three"));
}

TEST_F(ErrorSink, keepsTheNewestThousand)
{
    for (int i = 0; i < 1002; ++i) {
        m_sink.LogInfo(std::to_string(i));
    }
    const std::vector<std::string> history = m_sink.history();
    ASSERT_EQ(history.size(), 1000u);
    EXPECT_EQ(history.front(), "2");
    EXPECT_EQ(history.back(), "1001");
}

TEST_F(ErrorSink, losesNothingWhenSeveralThreadsReport)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([this] {
            for (int i = 0; i < 100; ++i) {
                m_sink.LogInfo("note");
                m_sink.SetLastErrorMsg("error");
                EXPECT_EQ(m_sink.GetLastErrorMsg().message, "error");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(m_sink.history().size(), 800u);
}

}  // namespace
