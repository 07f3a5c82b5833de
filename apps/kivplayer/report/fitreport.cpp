#include "apps/kivplayer/report/fitreport.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <set>

#include "KivCharacterization/naming.h"
#include "KivReader/editdistance.h"
#include "apps/kivplayer/report/profilereport.h"

namespace KivPlayer {

using nlohmann::ordered_json;

namespace {

struct ActorSegment
{
    double length = 0.0;
    osg::Vec3d offset;
};

/// A joint's name as people mean it.
std::string plainName(const std::string& name)
{
    const std::size_t colon = name.rfind(':');
    std::string plain;
    for (const char letter : colon == std::string::npos ? name : name.substr(colon + 1))
        if (std::isalnum(static_cast<unsigned char>(letter)))
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return plain;
}

/// Numbers that JSON has no word for become null.
ordered_json finite(double value)
{
    return std::isfinite(value) ? ordered_json(value) : ordered_json(nullptr);
}

std::map<std::string, ActorSegment> segmentsOf(const DressedActor& actor)
{
    std::map<std::string, ActorSegment> segments;
    for (const DressedActor::Joint& joint : actor.joints()) {
        for (unsigned i = 0; i < joint.bone->getNumChildren(); ++i) {
            const auto* child = dynamic_cast<const KivAnimation::Bone*>(joint.bone->getChild(i));
            if (!child)
                continue;
            const osg::Vec3d offset = child->getInitialMatrix().getTrans();
            segments[KivCharacterization::SegmentKey(joint.name, withoutQualifier(child->getName()))] = {
                offset.length(), offset};
        }
    }
    return segments;
}

/// The distance between the ends of two segments of one joint; 0 for what is missing, as dressing takes it.
template <typename Segments>
double spread(const Segments& segments, const char* one, const char* other)
{
    const auto first = segments.find(one);
    const auto second = segments.find(other);
    const osg::Vec3d from = first == segments.end() ? osg::Vec3d() : first->second.offset;
    const osg::Vec3d to = second == segments.end() ? osg::Vec3d() : second->second.offset;
    return (from - to).length();
}

template <typename Segments>
double lengthOf(const Segments& segments, const char* key)
{
    const auto found = segments.find(key);
    return found == segments.end() ? 0.0 : found->second.length;
}

ordered_json piecesReport(const std::vector<DressedPiece>& worn, const std::set<std::string>& joints,
                          const AvatarFile& avatar)
{
    std::set<std::pair<std::string, std::string>> wornNames;
    for (const DressedPiece& piece : worn)
        wornNames.emplace(piece.joint, piece.name);
    ordered_json skipped = ordered_json::array();
    for (const auto& [joint, pieces] : avatar.joints) {
        for (const std::string& piece : pieces) {
            if (wornNames.count({joint, piece}) > 0)
                continue;
            std::string reason = "was not attached";
            if (joints.count(joint) == 0)
                reason = "the skeleton has no joint " + joint;
            else if (piece.find(KivCharacterization::kPieceEndMark) == std::string::npos)
                reason = "its name has no closing $";
            skipped.push_back({{"piece", piece}, {"reason", reason}});
        }
    }
    return {{"attached", worn.size()}, {"skipped", skipped}};
}

ordered_json segmentsReport(const std::map<std::string, ActorSegment>& actorSegments,
                            const AvatarFile& avatar)
{
    ordered_json list = ordered_json::array();
    for (const auto& [key, segment] : actorSegments) {
        const auto own = avatar.segments.find(key);
        if (own == avatar.segments.end())
            continue;
        list.push_back({{"key", key},
                        {"avatarLength", finite(own->second.length)},
                        {"actorLength", finite(segment.length)},
                        {"factor", finite(segment.length / own->second.length)}});
    }
    return list;
}

bool isEndSite(const DressedActor::Joint& joint)
{
    return joint.isLeaf && joint.name.size() > 3 && joint.name.compare(joint.name.size() - 3, 3, "End") == 0;
}

ordered_json matchedReport(const DressedActor& actor, const AvatarFile& avatar)
{
    ordered_json matched = ordered_json::array();
    for (const DressedActor::Joint& joint : actor.joints())
        if (avatar.joints.count(joint.name) > 0)
            matched.push_back(joint.name);
    return matched;
}

ordered_json unmatchedReport(const LoadedActor& actor, const AvatarFile& avatar)
{
    ordered_json unmatched = ordered_json::array();
    for (const KivReader::ProfileRecord::Unmatched& joint : actor.profile.unmatched)
        unmatched.push_back({{"joint", joint.joint}, {"nearest", joint.nearest}});
    if (actor.profile.isHumanoid)
        return unmatched;
    std::vector<std::string> free;
    const std::vector<std::string> all = actor.dressed.jointNames();
    const std::set<std::string> present(all.begin(), all.end());
    for (const auto& [joint, pieces] : avatar.joints)
        if (!joint.empty() && present.count(joint) == 0)
            free.push_back(joint);
    for (const DressedActor::Joint& joint : actor.dressed.joints()) {
        if (avatar.joints.count(joint.name) > 0 || isEndSite(joint))
            continue;
        const std::string nearest = nearestName(joint.name, free);
        unmatched.push_back({{"joint", joint.name},
                             {"nearest", nearest.empty() ? ordered_json::array() : ordered_json{nearest}}});
    }
    return unmatched;
}

/// Sentences, with their place in the file where they have one.
ordered_json warningsReport(const LoadedActor& actor)
{
    ordered_json warnings = ordered_json::array();
    for (const KivReader::Diagnostic& warning : actor.document.warnings)
        warnings.push_back(placeText({actor.file, warning.line, warning.column, ""}) + ": " +
                           warning.message);
    for (const std::string& warning : actor.profile.warnings)
        warnings.push_back(actor.file + ": " + warning);
    return warnings;
}

ordered_json actorReport(const LoadedActor& actor, const AvatarFile& avatar)
{
    const std::vector<std::string> names = actor.dressed.jointNames();
    const std::map<std::string, ActorSegment> segments = segmentsOf(actor.dressed);
    using namespace KivCharacterization;
    const double hips = spread(segments, kLeftHipSegment, kRightHipSegment) /
                        spread(avatar.segments, kLeftHipSegment, kRightHipSegment);
    const double hands = lengthOf(segments, kHandSegment) / lengthOf(avatar.segments, kHandSegment);
    return {{"file", actor.file},
            {"actorId", actor.id()},
            {"name", actor.name},
            {"dialect",
             actor.profile.dialect.empty() ? ordered_json(nullptr) : ordered_json(actor.profile.dialect)},
            {"joints", names.size()},
            {"matched", matchedReport(actor.dressed, avatar)},
            {"unmatched", unmatchedReport(actor, avatar)},
            {"profile", profileReport(actor.profile)},
            {"pieces", piecesReport(actor.dressed.pieces(), {names.begin(), names.end()}, avatar)},
            {"segments", segmentsReport(segments, avatar)},
            {"hipRatio", finite(hips)},
            {"handRatio", finite(hands)},
            {"frames", actor.frames()},
            {"frameTime", actor.document.frameTime},
            {"warnings", warningsReport(actor)}};
}

}  // namespace

std::string nearestName(const std::string& joint, const std::vector<std::string>& known)
{
    const std::string plain = plainName(joint);
    std::string nearest;
    std::size_t least = plain.size() / 2 + 1;
    for (const std::string& name : known) {
        const std::size_t distance = KivReader::editDistance(plain, plainName(name));
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest;
}

ordered_json fitReport(const std::map<unsigned, LoadedActor>& actors, const AvatarFile& avatar,
                       const std::vector<Diagnostic>& errors)
{
    ordered_json actorList = ordered_json::array();
    for (const auto& [index, actor] : actors)
        actorList.push_back(actorReport(actor, avatar));
    ordered_json errorList = ordered_json::array();
    for (const Diagnostic& error : errors) {
        ordered_json entry{
            {"file", error.file}, {"line", nullptr}, {"column", nullptr}, {"message", error.message}};
        if (error.line > 0)
            entry["line"] = error.line;
        if (error.line > 0 && error.column > 0)
            entry["column"] = error.column;
        errorList.push_back(entry);
    }
    return {{"actors", actorList}, {"errors", errorList}};
}

}  // namespace KivPlayer
