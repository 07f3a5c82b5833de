#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <osg/Geode>
#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osgDB/ReadFile>
#include <regex>
#include <set>

#include "tests/support/motionlibrary.h"
#include "tools/figure/restfigure.h"

namespace {

namespace fs = std::filesystem;

fs::path freshFolder(const std::string& name)
{
    const fs::path folder = fs::temp_directory_path() / ("makeavatar_test_" + name);
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

int runProgram(const std::string& arguments, const fs::path& complaints = "/dev/null")
{
    const std::string command =
        std::string("'") + MAKEAVATAR_PROGRAM + "' " + arguments + " 2> '" + complaints.string() + "'";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class Census : public osg::NodeVisitor
{
public:
    Census() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) {}

    void apply(osg::MatrixTransform& node) override
    {
        const std::string& name = node.getName();
        (name.compare(0, 6, "Joint:") == 0 ? pieces : joints).push_back(&node);
        traverse(node);
    }

    std::vector<osg::MatrixTransform*> joints, pieces;
};

class AvatarFile : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const fs::path file = freshFolder("file") / "avatar.ive";
        ASSERT_EQ(runProgram("'" + file.string() + "'"), 0);
        s_avatar = osgDB::readRefNodeFile(file.string());
        ASSERT_TRUE(s_avatar);
    }
    static void TearDownTestSuite() { s_avatar = nullptr; }

    void SetUp() override { s_avatar->accept(m_census); }

    static osg::ref_ptr<osg::Node> s_avatar;
    Census m_census;
};

osg::ref_ptr<osg::Node> AvatarFile::s_avatar;

TEST(MakeAvatarProgram, asksForAnOutput)
{
    const fs::path complaints = freshFolder("usage") / "complaints";
    EXPECT_EQ(runProgram("", complaints), 2);
    EXPECT_EQ(KivTestSupport::readWholeFile(complaints), "makeavatar: one argument is needed: OUTPUT.ive\n");
}

TEST(MakeAvatarProgram, refusesAnotherFormat)
{
    const fs::path folder = freshFolder("format");
    EXPECT_EQ(runProgram("'" + (folder / "avatar.obj").string() + "'"), 2);
    EXPECT_FALSE(fs::exists(folder / "avatar.obj"));
}

TEST(MakeAvatarProgram, failsWhereTheFolderIsMissing)
{
    const fs::path folder = freshFolder("missing");
    EXPECT_EQ(runProgram("'" + (folder / "none" / "avatar.ive").string() + "'", folder / "complaints"), 1);
    EXPECT_NE(KivTestSupport::readWholeFile(folder / "complaints").find("makeavatar: cannot write"),
              std::string::npos);
}

TEST(MakeAvatarProgram, writesTheSameBytesEveryTime)
{
    const fs::path folder = freshFolder("bytes");
    ASSERT_EQ(runProgram("'" + (folder / "a.ive").string() + "'"), 0);
    ASSERT_EQ(runProgram("'" + (folder / "b.ive").string() + "'"), 0);
    const std::string first = KivTestSupport::readWholeFile(folder / "a.ive");
    EXPECT_GT(first.size(), 100000u);
    EXPECT_TRUE(first == KivTestSupport::readWholeFile(folder / "b.ive"));
}

TEST_F(AvatarFile, isAGroupWithSixtyOneJoints)
{
    EXPECT_TRUE(s_avatar->asGroup());
    std::set<std::string> names;
    for (const osg::MatrixTransform* joint : m_census.joints)
        names.insert(joint->getName());
    EXPECT_EQ(m_census.joints.size(), 61u);
    EXPECT_EQ(names.size(), 61u);
}

TEST_F(AvatarFile, placesEveryJointByItsRestOffsetUnderItsParent)
{
    for (osg::MatrixTransform* joint : m_census.joints) {
        const KivFigure::RestJoint* rest = KivFigure::findRestJoint(joint->getName());
        ASSERT_NE(rest, nullptr) << joint->getName();
        const osg::Vec3d offset(rest->offset[0], rest->offset[1], rest->offset[2]);
        EXPECT_EQ(joint->getMatrix(), osg::Matrixd::translate(offset)) << joint->getName();
        EXPECT_EQ(joint->getParent(0)->getName(), rest->parent.empty() ? "Avatar" : rest->parent);
    }
}

TEST_F(AvatarFile, namesEveryPieceByTheGrammarUnderItsJoint)
{
    const std::regex grammar("Joint:([A-Za-z0-9]+)(&[A-Za-z0-9]+)?(#(Inner|Outer|[1-6]))?\\$");
    std::set<std::string> names;
    for (const osg::MatrixTransform* piece : m_census.pieces) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(piece->getName(), match, grammar)) << piece->getName();
        EXPECT_EQ(piece->getParent(0)->getName(), match[1].str());
        EXPECT_TRUE(names.insert(piece->getName()).second) << piece->getName();
    }
    EXPECT_GT(m_census.pieces.size(), 60u);
}

TEST_F(AvatarFile, dressesThePiecesThatAreScaledByProportion)
{
    std::set<std::string> names;
    for (const osg::MatrixTransform* piece : m_census.pieces)
        names.insert(piece->getName());
    for (const char* name : {"Joint:Hips&Spine$", "Joint:Spine1$", "Joint:Spine2$", "Joint:Spine3&Neck$",
                             "Joint:LeftHand$", "Joint:RightHand$"})
        EXPECT_TRUE(names.count(name)) << name;
}

TEST_F(AvatarFile, carriesVertexColoursAndNoTextures)
{
    for (osg::MatrixTransform* piece : m_census.pieces) {
        ASSERT_EQ(piece->getNumChildren(), 1u);
        const osg::Geode* geode = piece->getChild(0)->asGeode();
        ASSERT_TRUE(geode && geode->getNumDrawables() == 1) << piece->getName();
        const osg::Geometry* geometry = geode->getDrawable(0)->asGeometry();
        ASSERT_NE(geometry, nullptr);
        const unsigned count = geometry->getVertexArray()->getNumElements();
        EXPECT_EQ(geometry->getNormalArray()->getNumElements(), count);
        EXPECT_EQ(geometry->getColorArray()->getNumElements(), count);
        EXPECT_EQ(geometry->getNumTexCoordArrays(), 0u);
        ASSERT_NE(geometry->getStateSet(), nullptr);
        EXPECT_TRUE(geometry->getStateSet()->getTextureAttributeList().empty());
        EXPECT_TRUE(geometry->getStateSet()->getAttribute(osg::StateAttribute::MATERIAL));
    }
}

}  // namespace
