#include "apps/kivplayer/report/profilereport.h"

namespace KivPlayer {

using nlohmann::ordered_json;

nlohmann::ordered_json profileReport(const KivReader::ProfileRecord& profile)
{
    ordered_json renamed = ordered_json::array();
    for (const KivReader::ProfileRecord::Renamed& joint : profile.renamed)
        renamed.push_back({{"from", joint.from}, {"to", joint.to}});
    ordered_json folded = ordered_json::array();
    for (const KivReader::ProfileRecord::Folded& joint : profile.folded)
        folded.push_back({{"joint", joint.joint}, {"into", joint.into}});
    ordered_json inserted = ordered_json::array();
    for (const KivReader::ProfileRecord::Inserted& joint : profile.inserted)
        inserted.push_back({{"joint", joint.joint}, {"parent", joint.parent}, {"along", joint.along}});
    const ordered_json restPose = {{"choice", profile.restPose.choice},
                                   {"reason", profile.restPose.reason},
                                   {"score", profile.restPose.score}};
    ordered_json checks = ordered_json::array();
    for (const KivReader::ProfileRecord::Check& check : profile.checks)
        checks.push_back({{"name", check.name},
                          {"passed", check.passed},
                          {"value", check.value},
                          {"unit", check.unit},
                          {"sentence", check.sentence}});
    return {{"humanoid", profile.isHumanoid},
            {"reason", profile.whyNot},
            {"renamed", renamed},
            {"folded", folded},
            {"inserted", inserted},
            {"reframed", profile.reframed},
            {"left", profile.left},
            {"ambiguous", profile.ambiguous},
            {"unit", profile.unit},
            {"centimetresPerUnit", profile.centimetresPerUnit},
            {"unitReason", profile.unitReason},
            {"upAxis", profile.upAxis},
            {"upReason", profile.upReason},
            {"height", profile.height},
            {"hipWidth", profile.hipWidth},
            {"hipWidthMeasured", profile.hipWidthMeasured},
            {"hipWidthReason", profile.hipWidthReason},
            {"groundShift", profile.groundShift},
            {"restPose", restPose},
            {"checks", checks},
            {"thrownFrames", profile.thrownFrames}};
}

}  // namespace KivPlayer
