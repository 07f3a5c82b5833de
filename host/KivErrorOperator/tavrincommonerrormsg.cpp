#include "KivErrorOperator/tavrincommonerrormsg.h"

#include <cstddef>
#include <deque>
#include <mutex>

namespace KivErrorOperator {

namespace {

constexpr std::size_t kKeptTexts = 1000;

}  // namespace

struct TavrinCommonErrorMsg::Record
{
    std::mutex mutex;
    std::deque<std::string> texts;
    SErrorMsg lastError;

    void keep(const std::string& text)
    {
        texts.push_back(text);
        if (texts.size() > kKeptTexts) {
            texts.pop_front();
        }
    }
};

// Never destroyed: other singletons and worker threads may still report while the program ends.
TavrinCommonErrorMsg* TavrinCommonErrorMsg::instance()
{
    static TavrinCommonErrorMsg* const s_instance = new TavrinCommonErrorMsg;
    return s_instance;
}

TavrinCommonErrorMsg::TavrinCommonErrorMsg() : m_spRecord(std::make_unique<Record>()) {}

TavrinCommonErrorMsg::~TavrinCommonErrorMsg() = default;

void TavrinCommonErrorMsg::LogInfo(const std::string& text)
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    m_spRecord->keep(text);
}

void TavrinCommonErrorMsg::SetLastErrorMsg(const std::string& text)
{
    SErrorMsg error;
    error.message = text;
    SetLastErrorMsg(error);
}

void TavrinCommonErrorMsg::SetLastErrorMsg(const SErrorMsg& error)
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    m_spRecord->keep(error.message);
    m_spRecord->lastError = error;
}

SErrorMsg TavrinCommonErrorMsg::GetLastErrorMsg() const
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    return m_spRecord->lastError;
}

std::vector<std::string> TavrinCommonErrorMsg::history() const
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    return std::vector<std::string>(m_spRecord->texts.begin(), m_spRecord->texts.end());
}

void TavrinCommonErrorMsg::clear()
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    m_spRecord->texts.clear();
    m_spRecord->lastError = SErrorMsg();
}

}  // namespace KivErrorOperator
