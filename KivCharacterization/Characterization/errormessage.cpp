#include "KivCharacterization/Characterization/errormessage.h"

#include "KivErrorOperator/tavrincommonerrormsg.h"

namespace KivCharacterization {

std::string formatErrorMessage(const std::string& source, int line, const std::string& message)
{
    return "File Name: " + source + "\t Line Number: " + std::to_string(line) + "\"" + message + "\"";
}

void reportError(const std::string& source, int line, const std::string& message)
{
    KivErrorOperator::SErrorMsg error;
    error.message = formatErrorMessage(source, line, message);
    KivErrorOperator::TavrinCommonErrorMsg::instance()->SetLastErrorMsg(error);
}

}  // namespace KivCharacterization
