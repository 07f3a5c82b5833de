// What is promised of every humanoid motion, through the player's own path.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>
#include <set>

#include "KivAnimation/basicanimationmanager.h"
#include "apps/kivplayer/report/fitreport.h"
#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/apps/kivplayer/session/dressedbody.h"
#include "tests/host/KivReader/csvtable.h"
#include "tests/support/builtpaths.h"
#include "tests/support/foreignfigure.h"

namespace {

using KivPlayer::ActorFit;
using KivTestSupport::ForeignFigure;

const std::set<std::string> kToys = {"tiny_two_joint.bvh", "fairmotion_sinusoidal.bvh"};

const std::set<std::string> kBody = {
    "Hips",    "LeftUpLeg",   "LeftLeg",  "LeftFoot",      "RightUpLeg", "RightLeg",     "RightFoot",
    "Spine",   "Spine1",      "Spine2",   "Spine3",        "Neck",       "Head",         "LeftShoulder",
    "LeftArm", "LeftForeArm", "LeftHand", "RightShoulder", "RightArm",   "RightForeArm", "RightHand"};

constexpr double kSmallest = 135.0;  ///< of a person, centimetres
constexpr double kTallest = 215.0;
constexpr double kAvatarHeight = 175.0;
/// Of the height: no point of the body is farther below the ground. Soles that sink in for single rows do not
/// lift the whole motion.
constexpr double kSunk = 0.036;
constexpr double kFloating = 0.03;  ///< of the height: some point comes as near to it in some frame
constexpr double kMoments = 60.0;

class FigurePromises : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot)) << m_said.str();
    }

    /// Nothing where the file could not be loaded.
    std::optional<ActorFit> fitOf(const std::string& motion)
    {
        if (!m_session.load(0, motion, "A"))
            return std::nullopt;
        return KivPlayer::fitReportOf(m_session.actors(), m_session.avatar()).actors.at(0);
    }

    static void expectFactors(const ActorFit& actor)
    {
        ASSERT_FALSE(actor.segments.empty());
        for (const ActorFit::Segment& segment : actor.segments) {
            ASSERT_TRUE(segment.factor) << segment.key;
            EXPECT_GT(*segment.factor, 0.05) << segment.key;
            EXPECT_LT(*segment.factor, 5.0) << segment.key;
        }
        ASSERT_TRUE(actor.handRatio);
        EXPECT_GT(*actor.handRatio, 0.5);
        EXPECT_LT(*actor.handRatio, 1.6);
    }

    /// As wide as a person's in proportion to the height, and why if the hips are not.
    static void expectTorso(const ActorFit& actor, double height)
    {
        ASSERT_TRUE(actor.hipRatio);
        const double ratio = *actor.hipRatio * kAvatarHeight / height;
        EXPECT_GT(ratio, 0.84);
        EXPECT_LT(ratio, 1.16);
        EXPECT_EQ(actor.profile.hipWidth == actor.profile.hipWidthMeasured,
                  actor.profile.hipWidthReason.empty());
    }

    /// Bone by bone from the soles to the crown.
    static void expectAPersonsSize(const ActorFit& actor)
    {
        static const std::set<std::string> s_bones = {
            "LeftUpLeg&LeftLeg", "LeftLeg&LeftFoot", "Hips&Spine",  "Spine&Spine1",
            "Spine1&Spine2",     "Spine2&Spine3",    "Spine3&Neck", "Neck&Head"};
        const auto& crown = KivFigure::restEnds().front();
        double height = KivFigure::restPosition("LeftFoot")[1] + crown.offset[1];
        for (const ActorFit::Segment& segment : actor.segments)
            if (s_bones.count(segment.key) > 0)
                height += segment.actorLength;
        EXPECT_GT(height, kSmallest);
        EXPECT_LT(height, kTallest);
    }

    void expectPieces() const
    {
        std::set<std::string> wearing;
        for (const KivPlayer::DressedPiece& piece : m_session.actors().at(0).dressed.pieces())
            if (kBody.count(piece.joint) > 0)
                wearing.insert(piece.joint);
        EXPECT_GE(wearing.size(), 19U);
    }

    /// The body at moments all through the motion.
    void expectOnTheGround(double height) const
    {
        const KivPlayer::LoadedActor& actor = m_session.actors().at(0);
        const DressedBody body(actor.dressed);
        auto& playback = *KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
        double lowest = 1e9;
        for (int i = 0; i <= kMoments; ++i) {
            playback.setTime(actor.duration() * i / kMoments);
            playback.update(0.0);
            ASSERT_TRUE(body.isFinite());
            lowest = std::min(lowest, body.lowest());
        }
        EXPECT_GT(lowest, -kSunk * height) << "in the ground";
        EXPECT_LT(lowest, kFloating * height) << "in the air";
    }

    void expectPromises(const std::string& motion)
    {
        const std::optional<ActorFit> fit = fitOf(motion);
        ASSERT_TRUE(fit) << m_said.str();
        const ActorFit& actor = *fit;
        ASSERT_TRUE(actor.profile.isHumanoid) << actor.profile.whyNot;
        const double height = actor.profile.height;
        EXPECT_GT(height, kSmallest);
        EXPECT_LT(height, kTallest);
        expectAPersonsSize(actor);
        expectFactors(actor);
        expectTorso(actor, height);
        expectPieces();
        expectOnTheGround(height);
    }

    KivPlayer::Session m_session{m_console};
};

TEST_F(FigurePromises, areKeptByEveryHumanoidFileOfTheLibrary)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    unsigned files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KivTestSupport::motionLibrary() / "real")) {
        if (entry.path().extension() != ".bvh" || kToys.count(entry.path().filename().string()) > 0)
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        expectPromises(entry.path().string());
        ++files;
    }
    EXPECT_GE(files, 26U);
}

struct Variant
{
    const char* name;
    void (*change)(ForeignFigure&);
};

/// What other producers do otherwise.
const std::vector<Variant> kVariants = {
    {"as it stands", [](ForeignFigure&) {}},
    {"metres, Z-up",
     [](ForeignFigure& figure) {
         figure.inUnits(100.0);
         figure.upAlongZ();
     }},
    {"millimetres", [](ForeignFigure& figure) { figure.inUnits(0.1); }},
    {"inches, arms hanging",
     [](ForeignFigure& figure) {
         figure.inUnits(2.54);
         figure.hangArms();
     }},
    {"decimetres, no end sites",
     [](ForeignFigure& figure) {
         figure.inUnits(10.0);
         figure.leaveOutEndSites();
     }},
    {"a unit of its own", [](ForeignFigure& figure) { figure.inUnits(37.0); }},
    {"no hands' inside", [](ForeignFigure& figure) { figure.leaveOutHands(); }},
    {"one spine joint",
     [](ForeignFigure& figure) {
         for (const char* joint : {"Spine1", "Spine2", "Spine3"})
             figure.leaveOut(joint);
     }},
    {"no spine joint",
     [](ForeignFigure& figure) {
         for (const char* joint : {"Spine", "Spine1", "Spine2", "Spine3"})
             figure.leaveOut(joint);
     }},
    {"no shoulders, neck, feet",
     [](ForeignFigure& figure) {
         for (const char* joint : {"LeftShoulder", "RightShoulder", "Neck", "LeftFoot", "RightFoot"})
             figure.leaveOut(joint);
         figure.leaveOutHands();
     }},
    {"13 joints",
     [](ForeignFigure& figure) {
         for (const char* joint : {"Spine1", "Spine2", "Spine3", "Neck", "LeftShoulder", "RightShoulder",
                                   "LeftHand", "RightHand"})
             figure.leaveOut(joint);
         figure.leaveOutHands();
     }},
    {"hips without length",
     [](ForeignFigure& figure) {
         figure.place("LeftUpLeg", {0.0, 0.0, 0.0});
         figure.place("RightUpLeg", {0.0, 0.0, 0.0});
     }},
    {"hips without width",
     [](ForeignFigure& figure) {
         figure.place("LeftUpLeg", {0.0, -8.0, 0.0});
         figure.place("RightUpLeg", {0.0, -8.0, 0.0});
     }},
    {"hips as wide as a ladder",
     [](ForeignFigure& figure) {
         figure.place("LeftUpLeg", {20.0, -3.5, 0.0});
         figure.place("RightUpLeg", {-20.0, -3.5, 0.0});
     }},
    {"hips joint in the belly",
     [](ForeignFigure& figure) {
         figure.move("LeftUpLeg", {0.0, -12.0, 0.0});
         figure.move("RightUpLeg", {0.0, -12.0, 0.0});
         figure.lift(12.0);
     }},
    {"head joint in the middle of the head",
     [](ForeignFigure& figure) {
         figure.move("Head", {0, 8, 0});
     }},
    {"second knees and elbows",
     [](ForeignFigure& figure) {
         for (const char* joint : {"LeftLeg", "RightLeg", "LeftForeArm", "RightForeArm"})
             figure.putBefore(joint, std::string("Pass_") + joint);
     }},
    {"long arms, short legs",
     [](ForeignFigure& figure) {
         figure.stretch("Arm", 1.25);
         figure.stretch("Leg", 0.8);
     }},
    {"hips at the origin", [](ForeignFigure& figure) { figure.lift(-96.0); }},
    {"in the air", [](ForeignFigure& figure) { figure.lift(30.0); }},
};

/// What dressing names so by a dialect's table; of several foreign names the first one.
std::map<std::string, ForeignFigure::Names> dialects()
{
    std::map<std::string, ForeignFigure::Names> tables;
    for (const auto& row : KivReaderTest::readCsv(KivTestSupport::motionLibrary() / "aliases.csv"))
        tables[row.at("dialect")].emplace(row.at("target"), row.at("foreign"));
    // These two are a word before every name.
    for (const auto& [dialect, prefix] : {std::pair{"mixamo", "mixamorig:"}, {"mobu", "Character1_"}})
        for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
            tables[dialect][joint.name] = prefix + joint.name;
    return tables;
}

/// A dialect that has no name for a joint of the body is one of files without that joint.
void leaveOutNameless(ForeignFigure& figure, const ForeignFigure::Names& names)
{
    if (names.count("LeftUpLeg") == 0 || names.count("Head") == 0)
        return;  // a table of exceptions from the avatar's names
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
        if (names.count(joint.name) == 0 && joint.name != "Hips")
            figure.leaveOut(joint.name);
}

TEST_F(FigurePromises, areKeptByFiguresOfEveryDialectHoweverTheyAreBuilt)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const auto tables = dialects();
    EXPECT_GE(tables.size(), 19U);
    for (const auto& [dialect, names] : tables) {
        for (const Variant& variant : kVariants) {
            SCOPED_TRACE(dialect + ", " + variant.name);
            ForeignFigure figure(names);
            leaveOutNameless(figure, names);
            if (dialect.rfind("cmu-", 0) == 0) {
                figure.putBefore("LeftUpLeg", "LHipJoint");
                figure.putBefore("RightUpLeg", "RHipJoint");
            }
            variant.change(figure);
            expectPromises(file("figure.bvh", figure.text()));
            EXPECT_EQ(m_session.actors().at(0).profile.dialect, dialect);
        }
    }
}

}  // namespace
