#pragma once

#include <memory>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"

namespace KivErrorOperator {

struct SErrorMsg
{
    std::string message;
    int code = 0;
    int severity = 0;
};

/// The host's error sink. Every operation is synchronised.
class KIV_ERROROPERATOR_API TavrinCommonErrorMsg
{
public:
    static TavrinCommonErrorMsg* instance();

    TavrinCommonErrorMsg(const TavrinCommonErrorMsg&) = delete;
    TavrinCommonErrorMsg& operator=(const TavrinCommonErrorMsg&) = delete;

    /// A progress note; it enters the history and leaves the last error as it is.
    void LogInfo(const std::string& text);

    /// Something that the user must learn of; it enters the history and becomes the last error.
    void SetLastErrorMsg(const std::string& text);
    void SetLastErrorMsg(const SErrorMsg& error);

    /// The last error; an empty message when there was none.
    SErrorMsg GetLastErrorMsg() const;

    /// Errors and notes as bare texts, oldest first; the newest thousand are kept.
    std::vector<std::string> history() const;

    /// Forgets the history and the last error.
    void clear();

private:
    TavrinCommonErrorMsg();
    ~TavrinCommonErrorMsg();

    struct Record;
    std::unique_ptr<Record> m_spRecord;
};

}  // namespace KivErrorOperator
