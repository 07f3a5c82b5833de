#include "apps/kivplayer/report/aliastable.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "apps/kivplayer/support/atomicfile.h"
#include "apps/kivplayer/support/printable.h"

namespace KivPlayer {

namespace {

using KivReader::ProfileRecord;

constexpr std::size_t kSignatureNames = 4;

/// Braces, pattern signs and control characters would be read as something else than the name.
bool canStandInATable(const std::string& name)
{
    return !name.empty() && name == printable(name) && name.find_first_of("{}<>\n") == std::string::npos;
}

/// Names by which the file is known again.
std::string signatureOf(const std::vector<std::string>& names)
{
    std::string signature;
    std::size_t count = 0;
    for (const std::string& name : names)
        if (canStandInATable(name) && name.find_first_of("&|") == std::string::npos &&
            count < kSignatureNames)
            signature += (count++ > 0 ? " & " : "") + name;
    return signature;
}

std::string confidenceNote(const ProfileRecord& profile, const std::string& fileJoint)
{
    const auto evidence =
        std::find_if(profile.evidence.begin(), profile.evidence.end(),
                     [&](const ProfileRecord::Evidence& one) { return one.fileJoint == fileJoint; });
    const bool guess = evidence != profile.evidence.end() && evidence->confidence < ProfileRecord::kGuess;
    return guess ? "# The next one is a guess.\n" : "";
}

std::string nameLine(const std::string& from, const std::string& to)
{
    if (!canStandInATable(from))
        return "# " + printable(from) + " cannot be written in a table.\n";
    return "name " + from + " = " + to + "\n";
}

}  // namespace

std::string aliasTableOf(const LoadedActor& actor)
{
    const ProfileRecord& profile = actor.profile;
    std::vector<std::string> names;
    for (const ProfileRecord::Renamed& joint : profile.renamed)
        names.push_back(joint.from);
    for (const ProfileRecord::Unmatched& joint : profile.unmatched)
        names.push_back(joint.joint);
    names.insert(names.end(), profile.matched.begin(), profile.matched.end());
    std::string text =
        "# Which joints of " + printable(actor.file) + " were taken for which of a person's.\n";
    text += "# Correct it and pass it back with --profile; \"-\" stands for nothing.\n";
    text += "dialect " + printable(actor.name) + "\n";
    text += "when " + signatureOf(names) + "\n";
    for (const ProfileRecord::Renamed& joint : profile.renamed)
        text += confidenceNote(profile, joint.from) + nameLine(joint.from, joint.to);
    for (const ProfileRecord::Unmatched& joint : profile.unmatched)
        text += nameLine(joint.joint, "-");
    return text;
}

void writeAliasTable(const std::string& file, const std::map<unsigned, LoadedActor>& actors, Console& console)
{
    std::string text;
    for (const auto& [index, actor] : actors)
        text += (text.empty() ? "" : "\n") + aliasTableOf(actor);
    if (file == "-") {
        std::cout << text << std::flush;
        return;
    }
    const std::string problem =
        writeAtomically(file, [&](std::ostream& stream) { return static_cast<bool>(stream << text); });
    if (!problem.empty())
        console.error({file, 0, 0, problem});
}

}  // namespace KivPlayer
