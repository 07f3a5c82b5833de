// What the player tells of a dressed actor against the module's own records.
#include <osg/MatrixTransform>

#include <set>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"
#include "apps/kivplayer/report/fitreport.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"
#include "tests/support/manageraccess.h"

namespace {

using KivCharacterization::CharacterizationManager;
using KivCharacterization::CharacterizationManagerAccess;

class FitRecord : public PlayerFixture, public testing::WithParamInterface<const char*>
{
};

TEST_P(FitRecord, agreesWithTheReport)
{
    KivPlayer::Session session(m_console);
    ASSERT_TRUE(session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample(GetParam()), "A")) << m_said.str();
    const KivPlayer::ActorFit fit = KivPlayer::fitReportOf(session.actors(), session.avatar()).actors.at(0);

    CharacterizationManagerAccess manager(*CharacterizationManager::instance());
    const auto& fitting = manager.actors.at("0").fitting;
    const auto& ive = manager.avatars.begin()->second;
    EXPECT_EQ(fit.joints, fitting.jointMap.size());

    std::size_t pieces = 0;
    std::set<std::string> matched;
    for (const auto& [joint, bone] : fitting.jointMap) {
        const auto entry = ive.jointMap.find(joint);
        if (entry == ive.jointMap.end())
            continue;
        matched.insert(joint);
        pieces += entry->second.pieces.size();
    }
    EXPECT_EQ(std::set<std::string>(fit.matched.begin(), fit.matched.end()), matched);
    EXPECT_EQ(fit.attached, pieces);

    std::size_t segments = 0;
    for (const KivPlayer::ActorFit::Segment& segment : fit.segments) {
        const std::string& key = segment.key;
        ASSERT_EQ(fitting.segmentMap.count(key), 1u) << key;
        ASSERT_EQ(ive.segmentMap.count(key), 1u) << key;
        EXPECT_NEAR(segment.actorLength, fitting.segmentMap.at(key).length, 1e-4) << key;
        EXPECT_NEAR(segment.avatarLength, ive.segmentMap.at(key).length, 1e-4) << key;
        ++segments;
    }
    std::size_t shared = 0;
    for (const auto& [key, segment] : ive.segmentMap)
        shared += fitting.segmentMap.count(key);
    EXPECT_EQ(segments, shared);
    const auto distance = [](const auto& map) {
        return (map.at("Hips&LeftUpLeg").offset - map.at("Hips&RightUpLeg").offset).length();
    };
    EXPECT_NEAR(fit.hipRatio.value(), distance(fitting.segmentMap) / distance(ive.segmentMap), 1e-5);
}

INSTANTIATE_TEST_SUITE_P(Samples, FitRecord, testing::Values("walk", "wave", "juggle"),
                         [](const auto& example) { return std::string(example.param); });

}  // namespace
