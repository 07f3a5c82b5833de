#include "KivCharacterization/Characterization/modelloading.h"

#include <gtest/gtest.h>
#include <osg/Geode>
#include <osg/Geometry>

#include <limits>

#include "KivCharacterization/Characterization/osgreaders.h"
#include "KivCharacterization/Characterization/scenedefect.h"
#include "tests/support/contentfolder.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"
#include "tests/support/manageraccess.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using KivErrorOperator::TavrinCommonErrorMsg;

const char* const kLoadFailed =
    "File Name: KivCharacterization\\Characterization\\characterizationmanager\t Line Number: "
    "122\"can not successfully load the ive file!\"";
const char* const kAnalysisFailed =
    "File Name: KivCharacterization\\Characterization\\characterizationmanager\t Line Number: "
    "161\"can not successfully analysis the ive file!\"";

class Loading : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        content = std::make_unique<ContentFolder>("loading");
    }

    static CharacterizationManager& manager() { return *CharacterizationManager::instance(); }
    static std::vector<std::string> history() { return TavrinCommonErrorMsg::instance()->history(); }
    std::string avatarLine(const std::string& outcome) const
    {
        return "Read file :" + content->root() + "/Data/IVE/avatar.ive" + outcome;
    }
    std::string fontLine(const std::string& outcome) const
    {
        return "Read file :" + content->root() + "/Data/Font/arial.ttf" + outcome;
    }

    std::unique_ptr<ContentFolder> content;
};

TEST_F(Loading, reportsAMissingAvatarAndAMissingFont)
{
    EXPECT_FALSE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(), (std::vector<std::string>{content->root(), kLoadFailed, avatarLine("failed!"),
                                                   fontLine("failed!")}));
    EXPECT_EQ(TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message, fontLine("failed!"));
    CharacterizationManagerAccess access(manager());
    EXPECT_TRUE(access.avatars.empty());
    EXPECT_TRUE(access.fonts.empty());
}

TEST_F(Loading, answersWithTheFontAloneWhenTheAvatarIsMissing)
{
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[2], avatarLine("failed!"));
    EXPECT_EQ(history()[3], fontLine("successed!"));
}

TEST_F(Loading, refusesAnEmptyAvatarAndOneThatIsNoScene)
{
    content->writeAvatarBytes("");
    manager().initalCharacterModel(content->root());
    EXPECT_EQ(history()[1], kLoadFailed);
    content->writeAvatarBytes("this is no scene at all, but some bytes of text");
    EXPECT_FALSE(CharacterizationManagerAccess(manager()).loadIveFile(content->avatarFile().string()));
}

TEST_F(Loading, refusesATruncatedAvatar)
{
    content->writeAvatar(*smallAvatar());
    const auto size = std::filesystem::file_size(content->avatarFile());
    std::filesystem::resize_file(content->avatarFile(), size / 2);
    EXPECT_FALSE(CharacterizationManagerAccess(manager()).loadIveFile(content->avatarFile().string()));
    EXPECT_EQ(TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message, kLoadFailed);
}

TEST_F(Loading, keepsAnAvatarWhoseRootIsNoGroupWithEmptyTables)
{
    content->copyFont();
    const osg::ref_ptr<osg::Node> noGroup = new osg::Node;
    content->writeAvatar(*noGroup);
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[1], kAnalysisFailed);
    EXPECT_EQ(history()[2], avatarLine("failed!"));

    // It counts as loaded from now on.
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history()[5], avatarLine("successed!"));
    CharacterizationManagerAccess access(manager());
    ASSERT_EQ(access.avatars.size(), 1u);
    EXPECT_TRUE(access.avatars.begin()->second.jointMap.empty());
    EXPECT_TRUE(access.avatars.begin()->second.segmentMap.empty());
}

TEST_F(Loading, analysesTheAvatarUnderItsFullPath)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(),
              (std::vector<std::string>{content->root(), avatarLine("successed!"), fontLine("successed!")}));
    CharacterizationManagerAccess access(manager());
    ASSERT_EQ(access.avatars.count(content->root() + "/Data/IVE/avatar.ive"), 1u);
    const CommonTypeDef::SIveInfo& info = access.avatars.begin()->second;
    EXPECT_TRUE(info.node.valid());
    EXPECT_EQ(info.jointMap.count("Hips"), 1u);
    EXPECT_EQ(info.segmentMap.count("Hips&LeftUpLeg"), 1u);
    EXPECT_TRUE(info.skeletonExtra.empty());
    EXPECT_EQ(access.fonts.size(), 1u);
    EXPECT_EQ(access.rootDir, content->root());
}

TEST_F(Loading, readsNothingTheSecondTimeButReportsTwoSuccesses)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    manager().initalCharacterModel(content->root());
    std::filesystem::remove(content->avatarFile());
    std::filesystem::remove(content->fontFile());
    TavrinCommonErrorMsg::instance()->clear();
    EXPECT_TRUE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history(),
              (std::vector<std::string>{content->root(), avatarLine("successed!"), fontLine("successed!")}));
}

TEST_F(Loading, looksUnderTheWorkingDirectoryWhenTheRootIsEmptyAndDoesNotStoreIt)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(content->root());
    const bool loaded = manager().initalCharacterModel("");
    const std::string workingDir = std::filesystem::current_path().string();
    std::filesystem::current_path(before);
    EXPECT_TRUE(loaded);
    EXPECT_EQ(history(), (std::vector<std::string>{
                             workingDir, "Read file :" + workingDir + "/Data/IVE/avatar.ivesuccessed!",
                             "Read file :" + workingDir + "/Data/Font/arial.ttfsuccessed!"}));
    EXPECT_EQ(CharacterizationManagerAccess(manager()).rootDir, "");
}

TEST_F(Loading, keepsTheDoubleSlashOfARootThatEndsInOne)
{
    content->writeAvatar(*smallAvatar());
    content->copyFont();
    EXPECT_TRUE(manager().initalCharacterModel(content->root() + "/"));
    EXPECT_EQ(history()[1], "Read file :" + content->root() + "//Data/IVE/avatar.ivesuccessed!");
    EXPECT_EQ(history()[2], "Read file :" + content->root() + "//Data/Font/arial.ttfsuccessed!");
    EXPECT_EQ(
        CharacterizationManagerAccess(manager()).avatars.count(content->root() + "//Data/IVE/avatar.ive"),
        1u);
}

TEST_F(Loading, refusesAFontThatIsNoFont)
{
    content->writeFontBytes("no font");
    EXPECT_FALSE(manager().initalCharacterModel(content->root()));
    EXPECT_EQ(history().back(), fontLine("failed!"));
}

TEST_F(Loading, doesNotSearchOtherFoldersForAMissingFile)
{
    content->writeAvatar(*smallAvatar());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(content->avatarFile().parent_path());
    const bool found = ReaderWriterIVE().readNode("/nowhere/avatar.ive", nullptr).success();
    std::filesystem::current_path(before);
    EXPECT_FALSE(found);
}

struct Defect
{
    const char* name;
    void (*spoil)(osg::Geometry& geometry, osg::MatrixTransform& transform);
    const char* reason;
};

class DamagedScenes : public testing::TestWithParam<Defect>
{
};

TEST_P(DamagedScenes, areNamedAsDefect)
{
    osg::ref_ptr<osg::Geometry> triangle = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array(3);
    (*vertices)[1].set(1, 0, 0);
    (*vertices)[2].set(0, 1, 0);
    triangle->setVertexArray(vertices);
    triangle->setNormalArray(new osg::Vec3Array(3), osg::Array::BIND_PER_VERTEX);
    triangle->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform;
    transform->setName("Hips");
    transform->addChild(triangle);
    ASSERT_EQ(SceneDefect(*transform), "");
    GetParam().spoil(*triangle, *transform);
    EXPECT_EQ(SceneDefect(*transform), GetParam().reason);
    transform->removeChildren(0, transform->getNumChildren());  // a circle would keep itself alive
}

INSTANTIATE_TEST_SUITE_P(
    , DamagedScenes,
    testing::Values(
        Defect{"aMatrixThatIsNotFinite",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   transform.setMatrix(osg::Matrixd::scale(std::numeric_limits<double>::quiet_NaN(), 1, 1));
               },
               "the matrix of \"Hips\" is not finite"},
        Defect{"aVertexThatIsNotFinite",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   (*static_cast<osg::Vec3Array*>(geometry.getVertexArray()))[2].x() =
                       std::numeric_limits<float>::infinity();
               },
               "a vertex is not finite"},
        Defect{"aMatrixThatIsTooLarge",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   transform.setMatrix(osg::Matrixd::scale(1e300, 1e300, 1e300));
               },
               "\"Hips\" is too large to have a bound"},
        Defect{"aVertexThatIsTooFarAway",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   (*static_cast<osg::Vec3Array*>(geometry.getVertexArray()))[2].x() = -3e32f;
                   geometry.setName("Mesh");
                   geometry.dirtyBound();
               },
               "\"Mesh\" is too large to have a bound"},
        Defect{"anIndexBehindTheLastVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   osg::ref_ptr<osg::DrawElementsUShort> indices = new osg::DrawElementsUShort(GL_TRIANGLES);
                   indices->push_back(0);
                   indices->push_back(1);
                   indices->push_back(3);
                   geometry.setPrimitiveSet(0, indices);
               },
               "an index points outside the vertices"},
        Defect{"aDrawBehindTheLastVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setPrimitiveSet(0, new osg::DrawArrays(GL_TRIANGLES, 1, 3));
               },
               "an index points outside the vertices"},
        Defect{"tooFewNormals",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setNormalArray(new osg::Vec3Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"tooFewTextureCoordinates",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setTexCoordArray(1, new osg::Vec2Array(2), osg::Array::BIND_PER_VERTEX);
               },
               "a geometry has an array that is shorter than its vertices"},
        Defect{"aDrawBeforeTheFirstVertex",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setPrimitiveSet(0, new osg::DrawArrays(GL_TRIANGLES, -2, 3));
               },
               "an index points outside the vertices"},
        Defect{"aNodeBelowItself",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   osg::ref_ptr<osg::Group> inner = new osg::Group;
                   transform.addChild(inner);
                   inner->addChild(&transform);
               },
               "a node lies below itself"},
        Defect{"noVertices",
               [](osg::Geometry& geometry, osg::MatrixTransform&) { geometry.setVertexArray(nullptr); },
               "a geometry has no vertices"},
        Defect{"verticesOfAnOddType",
               [](osg::Geometry& geometry, osg::MatrixTransform&) {
                   geometry.setVertexArray(new osg::UIntArray(3));
               },
               "vertices are of no type that can be drawn"},
        Defect{"nodesNestedTooDeeply",
               [](osg::Geometry&, osg::MatrixTransform& transform) {
                   osg::ref_ptr<osg::Group> at = new osg::Group;
                   transform.addChild(at);
                   for (int depth = 0; depth < 300; ++depth) {
                       osg::ref_ptr<osg::Group> next = new osg::Group;
                       at->addChild(next);
                       at = next;
                   }
               },
               "nodes are nested more than 256 deep"}),
    [](const auto& tested) { return std::string(tested.param.name); });

osg::ref_ptr<osg::Geometry> triangleWith(float corner)
{
    osg::ref_ptr<osg::Geometry> triangle = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array(3);
    (*vertices)[1].x() = corner;
    triangle->setVertexArray(vertices);
    triangle->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLES, 0, 3));
    return triangle;
}

TEST(DamagedMeshes, areNamedWhereverTheDamagedMeshStandsAmongSoundOnes)
{
    const auto sound = triangleWith(1.0f);
    const auto damaged = triangleWith(std::numeric_limits<float>::quiet_NaN());
    for (const bool damagedFirst : {true, false}) {
        osg::ref_ptr<osg::Group> scene = new osg::Group;
        scene->addChild(damagedFirst ? damaged : sound);
        scene->addChild(damagedFirst ? sound : damaged);
        EXPECT_EQ(SceneDefect(*scene), "a vertex is not finite");
    }
}

}  // namespace
