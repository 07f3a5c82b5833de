#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivTaskCommand {

ICmdExcDelegate::ICmdExcDelegate(std::int32_t first, std::int32_t prepareCode, std::int32_t executeCode,
                                 std::int32_t finishCode)
    : m_codes{first, prepareCode, executeCode, finishCode}
{}

ICmdExcDelegate::~ICmdExcDelegate() = default;

}  // namespace KivTaskCommand
