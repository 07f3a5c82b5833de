#include "apps/kivplayer/report/reportfile.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <iostream>

#include "apps/kivplayer/support/atomicfile.h"

namespace KivPlayer {

using nlohmann::ordered_json;

namespace {

using Profile = KivReader::ProfileRecord;

/// JSON has no word for what is no number.
double finite(double value, double otherwise = 0.0)
{
    return std::isfinite(value) ? value : otherwise;
}

ordered_json orNull(const std::optional<double>& value)
{
    return value ? ordered_json(*value) : ordered_json(nullptr);
}

/// A list of what every entry is made into.
template <typename Entries, typename Make>
ordered_json list(const Entries& entries, const Make& make)
{
    ordered_json array = ordered_json::array();
    for (const auto& entry : entries)
        array.push_back(make(entry));
    return array;
}

ordered_json profileJson(const Profile& profile)
{
    return {{"humanoid", profile.isHumanoid},
            {"reason", profile.whyNot},
            {"renamed", list(profile.renamed,
                             [](const Profile::Renamed& joint) -> ordered_json {
                                 return {{"from", joint.from}, {"to", joint.to}};
                             })},
            {"folded", list(profile.folded,
                            [](const Profile::Folded& joint) -> ordered_json {
                                return {{"joint", joint.joint}, {"into", joint.into}};
                            })},
            {"inserted",
             list(profile.inserted,
                  [](const Profile::Inserted& joint) -> ordered_json {
                      return {{"joint", joint.joint}, {"parent", joint.parent}, {"along", joint.along}};
                  })},
            {"reframed", profile.reframed},
            {"left", profile.left},
            {"ambiguous", profile.ambiguous},
            {"unit", profile.unit},
            {"centimetresPerUnit", finite(profile.centimetresPerUnit, 1.0)},
            {"unitReason", profile.unitReason},
            {"upAxis", profile.upAxis},
            {"upReason", profile.upReason},
            {"height", finite(profile.height)},
            {"hipWidth", finite(profile.hipWidth)},
            {"hipWidthMeasured", finite(profile.hipWidthMeasured)},
            {"hipWidthReason", profile.hipWidthReason},
            {"groundShift", finite(profile.groundShift)}};
}

ordered_json piecesJson(const ActorFit& fit)
{
    return {{"attached", fit.attached},
            {"skipped", list(fit.skipped, [](const ActorFit::SkippedPiece& piece) -> ordered_json {
                 return {{"piece", piece.piece}, {"reason", piece.reason}};
             })}};
}

ordered_json segmentJson(const ActorFit::Segment& segment)
{
    return {{"key", segment.key},
            {"avatarLength", finite(segment.avatarLength)},
            {"actorLength", finite(segment.actorLength)},
            {"factor", orNull(segment.factor)}};
}

ordered_json evidenceJson(const Profile::Evidence& evidence)
{
    return {{"joint", evidence.joint},
            {"fileJoint", evidence.fileJoint},
            {"confidence", finite(evidence.confidence)},
            {"reasons", evidence.reasons}};
}

ordered_json checkJson(const Profile::Check& check)
{
    return {{"name", check.name},
            {"passed", check.passed},
            {"value", finite(check.value)},
            {"unit", check.unit},
            {"sentence", check.sentence}};
}

ordered_json actorJson(const ActorFit& fit)
{
    const std::string& dialect = fit.profile.dialect;
    return {{"file", fit.file},
            {"actorId", fit.actorId},
            {"name", fit.name},
            {"dialect", dialect.empty() ? ordered_json(nullptr) : ordered_json(dialect)},
            {"humanoid", fit.profile.isHumanoid},
            {"confidence", finite(fit.profile.confidence)},
            {"evidence", list(fit.profile.evidence, evidenceJson)},
            {"restPose",
             {{"choice", fit.profile.restPose.choice},
              {"reason", fit.profile.restPose.reason},
              {"score", finite(fit.profile.restPose.score)}}},
            {"checks", list(fit.profile.checks, checkJson)},
            {"joints", fit.joints},
            {"matched", fit.matched},
            {"unmatched", list(fit.unmatched,
                               [](const Profile::Unmatched& joint) -> ordered_json {
                                   return {{"joint", joint.joint}, {"nearest", joint.nearest}};
                               })},
            {"profile", profileJson(fit.profile)},
            {"pieces", piecesJson(fit)},
            {"segments", list(fit.segments, segmentJson)},
            {"hipRatio", orNull(fit.hipRatio)},
            {"handRatio", orNull(fit.handRatio)},
            {"frames", fit.frames},
            {"frameTime", finite(fit.frameTime)},
            {"warnings", fit.warnings}};
}

ordered_json errorJson(const Diagnostic& error)
{
    ordered_json entry{
        {"file", error.file}, {"line", nullptr}, {"column", nullptr}, {"message", error.message}};
    if (error.line > 0)
        entry["line"] = error.line;
    if (error.line > 0 && error.column > 0)
        entry["column"] = error.column;
    return entry;
}

}  // namespace

std::string reportText(const FitReport& report)
{
    const ordered_json all{{"actors", list(report.actors, actorJson)},
                           {"errors", list(report.errors, errorJson)}};
    // Names may hold bytes that are no text.
    return all.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

void writeReport(const std::string& file, const FitReport& report, Console& console)
{
    const std::string text = reportText(report);
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
