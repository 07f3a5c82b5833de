// Figures whose hips, head or belly are built otherwise than the avatar's torso can be drawn on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <osg/Node>
#include <osg/ref_ptr>
#include <osgDB/Options>

#include <algorithm>
#include <string>

#include "KivAnimation/bone.h"
#include "KivReader/readerwriterbvh.h"
#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "tests/support/foreignfigure.h"

namespace {

using namespace KivReader;
using KivTestSupport::ForeignFigure;

constexpr double kAvatarWidth = 18.0;

MotionDocument documentOf(const ForeignFigure& figure)
{
    MotionReading reading = readMotionDocument(figure.text());
    EXPECT_TRUE(reading.document) << reading.error.text();
    return reading.document ? std::move(*reading.document) : MotionDocument();
}

ForeignFigure withHipsOfWidth(double width)
{
    ForeignFigure figure({});
    figure.place("LeftUpLeg", {width / 2.0, -3.5, 0.0});
    figure.place("RightUpLeg", {-width / 2.0, -3.5, 0.0});
    return figure;
}

osg::Vec3d placeOf(const MotionFigure& figure, const MotionDocument& document, const std::string& joint,
                   std::size_t frame)
{
    const Placements places = placed(figure, document.values.data() + frame * document.columns);
    for (std::size_t i = 0; i < places.size(); ++i)
        if (figure.joints[i].name == joint)
            return places[i].place;
    ADD_FAILURE() << "no joint " << joint;
    return {};
}

bool isInserted(const ProfileRecord& record, const std::string& joint)
{
    return std::any_of(record.inserted.begin(), record.inserted.end(),
                       [&](const auto& inserted) { return inserted.joint == joint; });
}

TEST(TorsoFit, sizesTheTorsoByTheHipsOfAPerson)
{
    struct
    {
        double width, measured;
        const char* reason;
    } const rows[] = {{40.0, 1.05 * kAvatarWidth, "wider than"},
                      {19.0, 19.0, ""},
                      {18.0, 18.0, ""},
                      {16.0, 16.0, ""},
                      {8.0, 0.85 * kAvatarWidth, "narrower than"},
                      {0.0, 0.85 * kAvatarWidth, "narrower than"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.width);
        const ProfileRecord record =
            makeProfiledFigure(documentOf(withHipsOfWidth(row.width)), ProfileOptions()).record;
        const double scale = record.height / 175.0;
        EXPECT_NEAR(record.hipWidth, row.width, 1e-6);
        EXPECT_NEAR(record.hipWidthMeasured, row.reason[0] == '\0' ? row.width : row.measured * scale, 1e-6);
        EXPECT_THAT(record.hipWidthReason, testing::StartsWith(row.reason));
        EXPECT_EQ(record.hipWidthReason.empty(), row.reason[0] == '\0');
    }
}

TEST(TorsoFit, letsTheTorsoBeWiderOnlyWhereTheArmsAre)
{
    ForeignFigure figure = withHipsOfWidth(40.0);
    figure.move("LeftArm", {6.0, 0.0, 0.0});
    figure.move("RightArm", {-6.0, 0.0, 0.0});
    const ProfileRecord record = makeProfiledFigure(documentOf(figure), ProfileOptions()).record;
    EXPECT_NEAR(record.hipWidthMeasured, 1.15 * kAvatarWidth * record.height / 175.0, 1e-6);
}

/// Which hips the torso is sized by is nothing that a joint moves for, in the motion or at rest.
TEST(TorsoFit, movesNoJointForTheHipsThatItMeasures)
{
    const ForeignFigure figure = withHipsOfWidth(40.0);
    const MotionDocument document = documentOf(figure);
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    const MotionFigure plain = makeFigure(document, FileFrame());
    const osg::Vec3d shift(0.0, 0.0, profiled.record.groundShift);
    for (std::size_t frame = 0; frame < document.frames; ++frame)
        for (const char* joint : {"LeftUpLeg", "RightUpLeg", "LeftLeg", "RightFoot", "Hips"})
            EXPECT_LT((placeOf(plain, document, joint, frame) + shift -
                       placeOf(profiled.figure, document, joint, frame))
                          .length(),
                      1e-3)
                << joint;
    for (const MotionFigure::Joint& joint : profiled.figure.joints) {
        if (joint.name == "LeftUpLeg") {
            EXPECT_NEAR(joint.offset.x(), 20.0, 1e-6);
            EXPECT_NEAR(joint.offset.x() + joint.fitShift.x(), profiled.record.hipWidthMeasured / 2.0, 1e-6);
        }
    }
}

const KivAnimation::Bone* findBone(const osg::Node& node, const std::string& name)
{
    if (const auto* bone = dynamic_cast<const KivAnimation::Bone*>(&node); bone && bone->getName() == name)
        return bone;
    const osg::Group* group = node.asGroup();
    for (unsigned i = 0; group && i < group->getNumChildren(); ++i)
        if (const KivAnimation::Bone* bone = findBone(*group->getChild(i), name))
            return bone;
    return nullptr;
}

/// What dressing reads is the bone's rest matrix; a skeleton that nobody has posed yet stands as in the file.
TEST(TorsoFit, tellsDressingByTheRestMatrixAlone)
{
    osg::Node* node = nullptr;
    KivAnimation::Animation* animation = nullptr;
    std::string name;
    const osg::ref_ptr<osgDB::Options> options = new osgDB::Options("profile=auto");
    ASSERT_TRUE(
        ReaderWriterBVH::readBVHNode(withHipsOfWidth(40.0).text(), options, &node, &animation, name, false));
    const osg::ref_ptr<osg::Node> heldNode(node);
    const osg::ref_ptr<KivAnimation::Animation> heldAnimation(animation);
    const KivAnimation::Bone* thigh = findBone(*node, "LeftUpLeg");
    ASSERT_NE(thigh, nullptr);
    EXPECT_NEAR(thigh->getMatrix().getTrans().x(), 20.0, 1e-4);
    EXPECT_LT(thigh->getInitialMatrix().getTrans().x(), 11.0);
}

TEST(TorsoFit, putsHipsThatAreFarFromAPelvisWhereOneIsAndKeepsTheFilesJoint)
{
    ForeignFigure figure({});
    figure.move("LeftUpLeg", {0.0, -12.0, 0.0});
    figure.move("RightUpLeg", {0.0, -12.0, 0.0});
    const MotionDocument document = documentOf(figure);
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    const MotionFigure plain = makeFigure(document, FileFrame());
    EXPECT_TRUE(isInserted(profiled.record, "Hips"));
    EXPECT_THAT(profiled.record.left, testing::Contains("file:Hips"));
    EXPECT_TRUE(profiled.record.unmatched.empty());
    const osg::Vec3d shift(0.0, 0.0, profiled.record.groundShift);
    EXPECT_LT(
        (placeOf(plain, document, "Hips", 1) + shift - placeOf(profiled.figure, document, "file:Hips", 1))
            .length(),
        1e-3);
    const double above = placeOf(profiled.figure, document, "Hips", 1).z() -
                         placeOf(profiled.figure, document, "LeftUpLeg", 1).z();
    EXPECT_NEAR(above, 3.5 * profiled.record.height / 175.0, 0.1);
}

TEST(TorsoFit, drawsTheHeadFromItsBaseWhereTheFileHasItsMiddle)
{
    ForeignFigure figure({});
    figure.move("Head", {0.0, 8.0, 0.0});
    const MotionDocument document = documentOf(figure);
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    EXPECT_TRUE(isInserted(profiled.record, "Head"));
    const double above = placeOf(profiled.figure, document, "Head", 0).z() -
                         placeOf(profiled.figure, document, "LeftArm", 0).z();
    EXPECT_NEAR(above, 16.0 * profiled.record.height / 175.0, 0.5);
    EXPECT_FALSE(
        isInserted(makeProfiledFigure(documentOf(ForeignFigure({})), ProfileOptions()).record, "Head"));
}

TEST(TorsoFit, letsANeckThatIsTooLongTurnTheOneThatIsInserted)
{
    ForeignFigure figure({});
    figure.move("Neck", {0.0, -9.0, 0.0});
    figure.move("Head", {0.0, 9.0, 0.0});
    MotionDocument document = documentOf(figure);
    const ProfiledFigure still = makeProfiledFigure(document, ProfileOptions());
    ASSERT_TRUE(isInserted(still.record, "Neck"));
    EXPECT_THAT(still.record.folded, testing::Contains(testing::FieldsAre("Neck", "Neck")));
    const osg::Vec3d before = placeOf(still.figure, document, "Neck", 0);
    for (const MotionDocument::Joint& joint : document.joints)
        if (joint.name == "Neck")
            document.values[joint.firstColumn + 1] = 30.0F;
    const MotionFigure nodding = makeProfiledFigure(document, ProfileOptions()).figure;
    EXPECT_GT((placeOf(nodding, document, "Neck", 0) - before).length(), 1.0);
}

}  // namespace
