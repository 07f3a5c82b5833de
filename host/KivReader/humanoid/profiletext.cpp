#include <algorithm>
#include <sstream>

#include "KivReader/humanoidprofile.h"

namespace KivReader {

namespace {

constexpr std::size_t kSignatureNames = 4;

/// What the table's syntax takes for something else cannot stand in it.
bool canBeWritten(const std::string& name)
{
    return !name.empty() && name.find_first_of("{},=&|<>\n\r") == std::string::npos && name.front() != '#';
}

/// A table names joints without their namespace.
std::string nameInTable(const std::string& name)
{
    const std::size_t colon = name.rfind(':');
    return colon == std::string::npos ? name : name.substr(colon + 1);
}

std::string percent(double confidence)
{
    return std::to_string(static_cast<int>(confidence * 100.0 + 0.5)) + " %";
}

std::string reasonsOf(const ProfileRecord::Evidence& evidence)
{
    std::string text;
    for (const std::string& reason : evidence.reasons)
        text += (text.empty() ? "" : "; ") + reason;
    return text;
}

void writeSignature(std::ostream& text, const ProfileRecord& record)
{
    std::string signature;
    std::size_t count = 0;
    for (const ProfileRecord::Evidence& evidence : record.evidence) {
        const std::string name = nameInTable(evidence.fileJoint);
        if (count == kSignatureNames || !canBeWritten(name))
            continue;
        signature += (count == 0 ? "" : " & ") + name;
        ++count;
    }
    text << "when " << signature << "\n";
}

void writeJoint(std::ostream& text, const ProfileRecord::Evidence& evidence)
{
    if (evidence.confidence < ProfileRecord::kGuess)
        text << "# a guess, " << percent(evidence.confidence) << " sure: " << reasonsOf(evidence) << "\n";
    const std::string name = nameInTable(evidence.fileJoint);
    if (canBeWritten(name))
        text << "name " << name << " = " << evidence.joint << "\n";
    else
        text << "# the name of the joint that is " << evidence.joint << " cannot be written in a table\n";
}

}  // namespace

std::string profileTextOf(const ProfileRecord& record)
{
    std::ostringstream text;
    text << "# What was recognised. Correct it, and pass it back as the profile.\n"
            "# NAME = TARGET: the joint of this name is the avatar's TARGET; \"-\": it is none of the "
            "avatar's.\n";
    if (!record.isHumanoid)
        text << "# Not recognised as a person: " << record.whyNot << "\n";
    if (record.evidence.empty())
        return text.str();
    text << "dialect recognised\n";
    writeSignature(text, record);
    for (const ProfileRecord::Evidence& evidence : record.evidence)
        writeJoint(text, evidence);
    for (const ProfileRecord::Unmatched& joint : record.unmatched) {
        if (canBeWritten(nameInTable(joint.joint)))
            text << "# name " << nameInTable(joint.joint) << " = -\n";
    }
    return text.str();
}

}  // namespace KivReader
