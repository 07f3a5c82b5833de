// What the player tells of a dressed actor against the module's own records.
#include <osg/MatrixTransform>

#include <set>

#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"
#include "apps/kivplayer/report/fitreport.h"
#include "tests/apps/kivplayer/playerfixture.h"
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
    ASSERT_TRUE(session.start(KIV_RUNTIME_ROOT)) << m_said.str();
    ASSERT_TRUE(session.load(0, sample(GetParam()), "A")) << m_said.str();
    const KivPlayer::AvatarFile avatar = KivPlayer::AvatarFile::read(session.avatarPath());
    const nlohmann::ordered_json report =
        KivPlayer::fitReport(session.actors(), avatar, {}).at("actors").at(0);

    CharacterizationManagerAccess manager(*CharacterizationManager::instance());
    const auto& fitting = manager.actors.at("0").fitting;
    const auto& ive = manager.avatars.begin()->second;
    EXPECT_EQ(report.at("joints").get<std::size_t>(), fitting.jointMap.size());

    std::size_t pieces = 0;
    std::set<std::string> matched;
    for (const auto& [joint, bone] : fitting.jointMap) {
        const auto entry = ive.jointMap.find(joint);
        if (entry == ive.jointMap.end())
            continue;
        matched.insert(joint);
        pieces += entry->second.pieces.size();
    }
    EXPECT_EQ(report.at("matched").get<std::set<std::string>>(), matched);
    EXPECT_EQ(report.at("pieces").at("attached").get<std::size_t>(), pieces);

    std::size_t segments = 0;
    for (const auto& segment : report.at("segments")) {
        const std::string key = segment.at("key");
        ASSERT_EQ(fitting.segmentMap.count(key), 1u) << key;
        ASSERT_EQ(ive.segmentMap.count(key), 1u) << key;
        EXPECT_NEAR(segment.at("actorLength").get<double>(), fitting.segmentMap.at(key).length, 1e-4) << key;
        EXPECT_NEAR(segment.at("avatarLength").get<double>(), ive.segmentMap.at(key).length, 1e-4) << key;
        ++segments;
    }
    std::size_t shared = 0;
    for (const auto& [key, segment] : ive.segmentMap)
        shared += fitting.segmentMap.count(key);
    EXPECT_EQ(segments, shared);
    const auto distance = [](const auto& map) {
        return (map.at("Hips&LeftUpLeg").offset - map.at("Hips&RightUpLeg").offset).length();
    };
    EXPECT_NEAR(report.at("hipRatio").get<double>(), distance(fitting.segmentMap) / distance(ive.segmentMap),
                1e-5);
}

INSTANTIATE_TEST_SUITE_P(Samples, FitRecord, testing::Values("walk", "wave", "juggle"),
                         [](const auto& example) { return std::string(example.param); });

}  // namespace
