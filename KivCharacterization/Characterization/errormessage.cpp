#include "KivCharacterization/Characterization/errormessage.h"

namespace KivCharacterization {

std::string FormatErrorMessage(const std::string& source, int line, const std::string& message)
{
    return "File Name: " + source + "\t Line Number: " + std::to_string(line) + "\"" + message + "\"";
}

}  // namespace KivCharacterization
