#include "KivRenderState/kivrenderstatemanager.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using namespace KivCharacterizationCommonDef;
using KivRenderState::KivRenderStateManager;

class RenderState : public testing::Test
{
protected:
    void SetUp() override { m_state.reset(); }
    void TearDown() override { m_state.reset(); }

    KivRenderStateManager& m_state = *KivRenderStateManager::instance();
};

void expectStartValues(const KivRenderStateManager& state)
{
    EXPECT_EQ(state.getCharacterizationState(), CharacterizationIdle);
    EXPECT_FALSE(state.getCameraTraceState());
    EXPECT_EQ(state.getCameraTraceIdStr(), "");
    EXPECT_TRUE(state.getCameraTraceMatrix().isIdentity());
    EXPECT_TRUE(state.getBVHContactColor().empty());
    EXPECT_FALSE(state.getCenterOfMassShow());
}

TEST_F(RenderState, startsIdleWithEverythingOff)
{
    expectStartValues(m_state);
}

TEST_F(RenderState, givesBackWhatWasSet)
{
    m_state.setCharacterizationState(CharacterizationReady);
    m_state.setCameraTraceState(true);
    m_state.setCameraTraceIdStr("7");
    m_state.setCameraTraceMatrix(osg::Matrixd::translate(1, 2, 3));
    m_state.setCenterOfMassShow(true);
    EXPECT_EQ(m_state.getCharacterizationState(), CharacterizationReady);
    EXPECT_TRUE(m_state.getCameraTraceState());
    EXPECT_EQ(m_state.getCameraTraceIdStr(), "7");
    EXPECT_EQ(m_state.getCameraTraceMatrix(), osg::Matrixd::translate(1, 2, 3));
    EXPECT_TRUE(m_state.getCenterOfMassShow());
}

TEST_F(RenderState, tellsAJointsFirstColourFromALaterOne)
{
    EXPECT_TRUE(m_state.setBVHContactColor("LeftFoot", {{0, 0, 0}, 1, 0, 0}));
    EXPECT_FALSE(m_state.setBVHContactColor("LeftFoot", {{0, 0, 0}, 0, 1, 0}));
    EXPECT_EQ(m_state.getBVHContactColor().size(), 1u);
    EXPECT_EQ(m_state.getBVHContactColor()["LeftFoot"].green, 1.0f);
}

TEST_F(RenderState, handsOutCopiesOfItsColours)
{
    m_state.setBVHContactColor("Hips", {{0, 0, 0}, 1, 0, 0});
    auto copy = m_state.getBVHContactColor();
    copy.clear();
    EXPECT_EQ(m_state.getBVHContactColor().size(), 1u);
}

TEST_F(RenderState, returnsToItsStartValues)
{
    m_state.setCharacterizationState(CharacterizationBuilding);
    m_state.setCameraTraceState(true);
    m_state.setCameraTraceIdStr("7");
    m_state.setCameraTraceMatrix(osg::Matrixd::scale(2, 2, 2));
    m_state.setBVHContactColor("Hips", {});
    m_state.setCenterOfMassShow(true);
    m_state.reset();
    expectStartValues(m_state);
}

TEST_F(RenderState, isNeverSeenHalfWritten)
{
    const std::string left(100, 'l');
    const std::string right(100, 'r');
    m_state.setCameraTraceIdStr(left);
    m_state.setCameraTraceMatrix(osg::Matrixd::translate(1, 1, 1));
    std::thread writer([&] {
        for (int i = 0; i < 2000; ++i) {
            const double place = i % 2;
            m_state.setCameraTraceIdStr(i % 2 ? left : right);
            m_state.setCameraTraceMatrix(osg::Matrixd::translate(place, place, place));
        }
    });
    for (int i = 0; i < 2000; ++i) {
        const std::string id = m_state.getCameraTraceIdStr();
        ASSERT_TRUE(id == left || id == right);
        const osg::Vec3d place = m_state.getCameraTraceMatrix().getTrans();
        ASSERT_EQ(place.x(), place.z());
    }
    writer.join();
}

}  // namespace
