#include "apps/kivplayer/output/actorfile.h"

#include <gmock/gmock.h>
#include <osg/ComputeBoundsVisitor>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osgDB/ReadFile>

#include <map>
#include <string>

#include "tests/apps/kivplayer/playerfixture.h"
#include "tests/support/builtpaths.h"

namespace {

using KivPlayer::Session;
using testing::HasSubstr;

osg::BoundingBox boundsOf(osg::Node& node)
{
    osg::ComputeBoundsVisitor bounds;
    node.accept(bounds);
    return bounds.getBoundingBox();
}

/// What a scene is made of, and where its transforms stand.
class Inventory : public osg::NodeVisitor
{
public:
    Inventory() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        callbacks += node.getUpdateCallback() || node.getEventCallback() || node.getCullCallback() ? 1 : 0;
        if (node.getName().rfind("Joint:", 0) == 0)
            ++pieces[node.getName()];
        else if (node.asTransform())
            places[node.getName()] = osg::computeLocalToWorld(getNodePath()).getTrans();
        traverse(node);
    }

    int callbacks = 0;
    std::map<std::string, int> pieces;
    std::map<std::string, osg::Vec3d> places;
};

class ActorFile : public PlayerFixture
{
protected:
    void SetUp() override
    {
        PlayerFixture::SetUp();
        ASSERT_TRUE(m_session.start(KivTestSupport::kRuntimeRoot));
    }

    osg::ref_ptr<osg::Node> readBack(const std::string& name, double seconds)
    {
        const std::string path = (m_folder / name).string();
        EXPECT_EQ(KivPlayer::writeActors(path, m_session, seconds), "");
        return osgDB::readRefNodeFile(path);
    }

    static int count(const std::map<std::string, int>& pieces)
    {
        int sum = 0;
        for (const auto& [name, times] : pieces)
            sum += times;
        return sum;
    }

    Session m_session{m_console};
};

TEST_F(ActorFile, saysThatTheDiskIsFullAndLeavesNothing)
{
    ASSERT_TRUE(m_session.load(0, sample("walk"), "walk"));
    std::filesystem::create_symlink("/dev/full", m_folder / "walk.osgb.part");
    EXPECT_THAT(KivPlayer::writeActors((m_folder / "walk.osgb").string(), m_session, 0.0),
                HasSubstr("No space left on device"));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder));
}

TEST_F(ActorFile, isReadBackWithEveryPieceAndJointInItsPlace)
{
    ASSERT_TRUE(m_session.load(0, sample("juggle"), "Ann"));
    const auto& dressed = m_session.actors().at(0).dressed;
    for (const char* name : {"ann.osgb", "ann.osgt"}) {
        const osg::ref_ptr<osg::Node> scene = readBack(name, 1.5);
        ASSERT_TRUE(scene) << name;
        Inventory inventory;
        scene->accept(inventory);
        EXPECT_EQ(count(inventory.pieces), static_cast<int>(dressed.pieces().size()));
        EXPECT_GT(dressed.pieces().size(), 60u) << "props too";
        const std::vector<osg::Vec3d> places = dressed.positions();
        ASSERT_FALSE(places.empty());
        for (std::size_t i = 0; i < places.size(); ++i)
            EXPECT_LT((inventory.places[dressed.joints()[i].name] - places[i]).length(), 1e-3)
                << dressed.joints()[i].name;
        EXPECT_EQ(inventory.callbacks, 0);
        EXPECT_EQ(scene->asGroup()->getChild(0)->getName(), "Ann");
        // What a figure covers: a head above, soles on the ground.
        const osg::BoundingBox bounds = boundsOf(*scene);
        EXPECT_NEAR(bounds.zMax(), 178.0f, 8.0f);
        EXPECT_NEAR(bounds.zMin(), 0.0f, 3.0f);
    }
}

TEST_F(ActorFile, standsAsTheMotionHasItAtThatTime)
{
    ASSERT_TRUE(m_session.load(0, sample("walk"), "Ann"));
    const osg::ref_ptr<osg::Node> first = readBack("first.osgb", 0.0);
    const osg::ref_ptr<osg::Node> later = readBack("later.osgb", 3.0);
    ASSERT_TRUE(first && later);
    EXPECT_GT((boundsOf(*first).center() - boundsOf(*later).center()).length(), 100.0f);
}

TEST_F(ActorFile, needsNothingOfThePlayerToBeRead)
{
    ASSERT_TRUE(m_session.load(0, sample("juggle"), "Ann"));
    ASSERT_TRUE(m_session.load(1, sample("wave"), "Bob"));
    const std::string path = (m_folder / "both.osgt").string();
    ASSERT_EQ(KivPlayer::writeActors(path, m_session, 0.0), "");
    std::ifstream stream(path);
    const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    EXPECT_THAT(text, HasSubstr("\"Ann\""));
    EXPECT_THAT(text, HasSubstr("\"Bob\""));
    for (const char* own : {"Kiv", "kiv", "Callback", "osgText"})
        EXPECT_EQ(text.find(own), std::string::npos) << own;
}

TEST_F(ActorFile, leavesTheActorsInTheSceneAsTheyAre)
{
    ASSERT_TRUE(m_session.load(0, sample("walk"), "Ann"));
    const std::size_t before = m_session.actors().at(0).dressed.pieces().size();
    const osg::StateSet* state =
        m_session.actors().at(0).dressed.pieces().front().holder->getChild(0)->getStateSet();
    const std::size_t uniforms = state ? state->getUniformList().size() : 0;
    ASSERT_TRUE(readBack("walk.osgb", 1.0));
    EXPECT_EQ(m_session.actors().at(0).dressed.pieces().size(), before);
    EXPECT_EQ(state ? state->getUniformList().size() : 0, uniforms);
    EXPECT_EQ(actorsInTheScene(), 1u);
}

}  // namespace
