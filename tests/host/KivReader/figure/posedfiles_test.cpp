#include <gtest/gtest.h>

#include <osg/Group>
#include <osg/ref_ptr>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivReader/motiondocument.h"
#include "KivReader/readerwriterbvh.h"
#include "tests/host/KivReader/forwardkinematics.h"
#include "tests/support/motionlibrary.h"

namespace {

using KivAnimation::Animation;
using KivAnimation::Bone;
using KivReader::MotionDocument;

/// Bones in the order in which the file declares them: parents first, children as they were added.
std::vector<const Bone*> bonesOf(osg::Node& node)
{
    std::vector<const Bone*> bones;
    std::vector<osg::Group*> open = {node.asGroup()};
    while (!open.empty()) {
        osg::Group* group = open.back();
        open.pop_back();
        if (const auto* bone = dynamic_cast<const Bone*>(group))
            bones.push_back(bone);
        for (unsigned i = group->getNumChildren(); i > 0; --i)
            open.push_back(group->getChild(i - 1)->asGroup());
    }
    return bones;
}

double extentOf(const std::vector<std::array<double, 3>>& places)
{
    double extent = 0.0;
    for (const auto& place : places) {
        for (const double coordinate : place)
            extent = std::max(extent, std::fabs(coordinate));
    }
    return extent;
}

double worstDistance(const std::vector<const Bone*>& bones, const std::vector<std::array<double, 3>>& places)
{
    double worst = 0.0;
    for (std::size_t i = 0; i < bones.size(); ++i) {
        const osg::Vec3d upright(places[i][0], -places[i][2], places[i][1]);
        worst = std::max(worst, (bones[i]->getMatrixInSkeletonSpace().getTrans() - upright).length());
    }
    return worst;
}

void expectPosedLikeTheDocument(const std::string& text)
{
    const KivReader::MotionReading reading = KivReader::readMotionDocument(text);
    ASSERT_TRUE(reading.document) << reading.error.text();
    osg::Node* rawNode = nullptr;
    Animation* rawAnimation = nullptr;
    std::string name = "a";
    ASSERT_TRUE(KivReader::ReaderWriterBVH::readBVHNode(text, nullptr, &rawNode, &rawAnimation, name, false));
    const osg::ref_ptr<osg::Node> node = rawNode;
    const osg::ref_ptr<Animation> animation = rawAnimation;
    const std::vector<const Bone*> bones = bonesOf(*node);
    ASSERT_EQ(bones.size(), reading.document->joints.size());
    for (std::size_t i = 0; i < bones.size(); ++i)
        ASSERT_EQ(bones[i]->getName(), reading.document->joints[i].name);
    const std::size_t stride = std::max<std::size_t>(1, reading.document->frames / 40);
    for (std::size_t frame = 0; frame < reading.document->frames; frame += stride) {
        animation->pose(static_cast<double>(frame) * reading.document->frameTime);
        const auto places = KivReaderTest::placesOf(*reading.document, frame);
        // Single precision, over a chain of joints and angles of up to some turns.
        ASSERT_LE(worstDistance(bones, places), 2e-5 * extentOf(places) + 1e-6) << "frame " << frame;
    }
}

void expectEveryFilePosedLikeItsDocument(const char* folder)
{
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KivTestSupport::motionLibrary() / folder)) {
        if (entry.path().extension() != ".bvh")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        expectPosedLikeTheDocument(KivTestSupport::readWholeFile(entry.path()));
        ++files;
    }
    EXPECT_GE(files, 27U);
}

TEST(PosedFile, realSkeletonsStandWherePlainForwardKinematicsPutsThem)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    expectEveryFilePosedLikeItsDocument("real");
}

TEST(PosedFile, syntheticSkeletonsStandWherePlainForwardKinematicsPutsThem)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    expectEveryFilePosedLikeItsDocument("synthetic");
}

}  // namespace
