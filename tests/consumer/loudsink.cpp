// A library of one's own in place of the host's: an error sink that speaks on stderr and keeps no history.

#include <iostream>
#include <mutex>

#include "KivErrorOperator/tavrincommonerrormsg.h"

namespace KivErrorOperator {

struct TavrinCommonErrorMsg::Record
{
    std::mutex mutex;
    SErrorMsg lastError;
};

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
    std::cerr << "note: " << text << std::endl;
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
    std::cerr << "error: " << error.message << std::endl;
    m_spRecord->lastError = error;
}

SErrorMsg TavrinCommonErrorMsg::GetLastErrorMsg() const
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    return m_spRecord->lastError;
}

std::vector<std::string> TavrinCommonErrorMsg::history() const
{
    return {};
}

void TavrinCommonErrorMsg::clear()
{
    const std::lock_guard<std::mutex> lock(m_spRecord->mutex);
    m_spRecord->lastError = SErrorMsg();
}

}  // namespace KivErrorOperator
