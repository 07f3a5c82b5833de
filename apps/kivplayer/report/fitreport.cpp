#include "apps/kivplayer/report/fitreport.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "KivCharacterization/naming.h"

namespace KivPlayer {

namespace {

using Segments = std::map<std::string, AvatarFile::Segment>;
using Unmatched = KivReader::ProfileRecord::Unmatched;

Segments segmentsOf(const DressedActor& actor)
{
    Segments segments;
    for (const DressedActor::Joint& joint : actor.joints()) {
        for (unsigned i = 0; i < joint.bone->getNumChildren(); ++i) {
            const auto* child = dynamic_cast<const KivAnimation::Bone*>(joint.bone->getChild(i));
            if (!child)
                continue;
            const osg::Vec3d offset = child->getInitialMatrix().getTrans();
            const std::string_view name = KivCharacterization::withoutQualifier(child->getName());
            segments[KivCharacterization::SegmentKey(joint.name, name)] = {offset.length(), offset};
        }
    }
    return segments;
}

/// One that is missing has no length, as dressing takes it.
AvatarFile::Segment segmentOf(const Segments& segments, const char* key)
{
    const auto found = segments.find(key);
    return found == segments.end() ? AvatarFile::Segment() : found->second;
}

double hipWidth(const Segments& segments)
{
    return (segmentOf(segments, KivCharacterization::kLeftHipSegment).offset -
            segmentOf(segments, KivCharacterization::kRightHipSegment).offset)
        .length();
}

double palmLength(const Segments& segments)
{
    return segmentOf(segments, KivCharacterization::kHandSegment).length;
}

std::optional<double> ratio(double actor, double avatar)
{
    const double value = actor / avatar;
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::vector<ActorFit::Segment> sharedSegments(const Segments& actor, const Segments& avatar)
{
    std::vector<ActorFit::Segment> shared;
    for (const auto& [key, segment] : actor) {
        const auto own = avatar.find(key);
        if (own != avatar.end())
            shared.push_back(
                {key, own->second.length, segment.length, ratio(segment.length, own->second.length)});
    }
    return shared;
}

std::vector<ActorFit::SkippedPiece> skippedPieces(const std::vector<DressedPiece>& worn,
                                                  const std::set<std::string>& joints, bool isPerson,
                                                  const AvatarFile& avatar)
{
    std::set<std::pair<std::string, std::string>> wornNames;
    for (const DressedPiece& piece : worn)
        wornNames.emplace(piece.joint, piece.name);
    std::vector<ActorFit::SkippedPiece> skipped;
    for (const auto& [joint, pieces] : avatar.joints) {
        for (const std::string& piece : pieces) {
            if (wornNames.count({joint, piece}) > 0)
                continue;
            std::string reason = isPerson ? "was not attached" : "the figure is not recognised as a person";
            if (joints.count(joint) == 0)
                reason = "the skeleton has no joint " + joint;
            else if (piece.find(KivCharacterization::kPieceEndMark) == std::string::npos)
                reason = "its name has no closing $";
            skipped.push_back({piece, reason});
        }
    }
    return skipped;
}

bool isEndSite(const DressedActor::Joint& joint)
{
    return joint.isLeaf && joint.name.size() > 3 && joint.name.compare(joint.name.size() - 3, 3, "End") == 0;
}

/// As the reader reports them; where it left the joints as they are, those that the avatar does not have.
std::vector<Unmatched> unmatchedJoints(const LoadedActor& actor, const AvatarFile& avatar)
{
    std::vector<Unmatched> unmatched = actor.profile.unmatched;
    if (actor.profile.isHumanoid || !unmatched.empty())
        return unmatched;
    for (const DressedActor::Joint& joint : actor.dressed.joints())
        if (avatar.joints.count(joint.name) == 0 && !isEndSite(joint))
            unmatched.push_back({joint.name, {}});
    return unmatched;
}

std::vector<std::string> warningsOf(const LoadedActor& actor)
{
    std::vector<std::string> warnings;
    for (const KivReader::Diagnostic& warning : actor.document.warnings)
        warnings.push_back(placeText({actor.file, warning.line, warning.column, ""}) + ": " +
                           warning.message);
    for (const std::string& warning : actor.profile.warnings)
        warnings.push_back(actor.file + ": " + warning);
    return warnings;
}

ActorFit fitOf(const LoadedActor& actor, const AvatarFile& avatar)
{
    const std::vector<std::string> names = actor.dressed.jointNames();
    const Segments segments = segmentsOf(actor.dressed);
    const std::vector<DressedPiece> worn = actor.dressed.pieces();
    ActorFit fit;
    fit.file = actor.file;
    fit.actorId = actor.id();
    fit.name = actor.name;
    fit.isPerson = actor.isPerson;
    fit.joints = names.size();
    std::copy_if(names.begin(), names.end(), std::back_inserter(fit.matched),
                 [&avatar](const std::string& name) { return avatar.joints.count(name) > 0; });
    fit.unmatched = unmatchedJoints(actor, avatar);
    fit.profile = actor.profile;
    fit.attached = worn.size();
    fit.skipped = skippedPieces(worn, {names.begin(), names.end()}, actor.isPerson, avatar);
    fit.segments = sharedSegments(segments, avatar.segments);
    fit.hipRatio = ratio(hipWidth(segments), hipWidth(avatar.segments));
    fit.handRatio = ratio(palmLength(segments), palmLength(avatar.segments));
    fit.frames = actor.frames();
    fit.frameTime = actor.document.frameTime;
    fit.warnings = warningsOf(actor);
    return fit;
}

}  // namespace

FitReport fitReportOf(const std::map<unsigned, LoadedActor>& actors, const AvatarFile& avatar,
                      const std::vector<Diagnostic>& errors)
{
    FitReport report;
    for (const auto& [index, actor] : actors)
        report.actors.push_back(fitOf(actor, avatar));
    report.errors = errors;
    return report;
}

}  // namespace KivPlayer
