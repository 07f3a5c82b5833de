#include <gtest/gtest.h>

#include <vector>

#include "host/KivReader/figure/figurepose.h"

namespace {

using namespace KivReader;
using KivAnimation::PoseStep;

PoseStep step(PoseStep::Kind kind, std::uint8_t axis, std::uint32_t column, float factor)
{
    PoseStep made;
    made.kind = kind;
    made.axis = axis;
    made.column = column;
    made.factor = factor;
    return made;
}

PoseStep translation(const osg::Vec3f& vector)
{
    PoseStep made;
    made.vector = vector;
    return made;
}

PoseStep rotation(const osg::Quat& turn)
{
    PoseStep made;
    made.kind = PoseStep::Kind::Rotate;
    made.rotation = turn;
    return made;
}

const std::vector<float> kRow = {30.0f, -70.0f, 4.0f, 115.0f};

std::vector<PoseStep> someSteps()
{
    return {translation({1, 2, 3}), step(PoseStep::Kind::Turn, 2, 0, 1.0f),
            rotation(osg::Quat(0.7, osg::Vec3d(0.6, 0.0, 0.8))), step(PoseStep::Kind::Shift, 1, 2, 2.5f),
            step(PoseStep::Kind::Turn, 0, 1, -1.0f)};
}

void expectSame(const Placement& a, const Placement& b)
{
    EXPECT_LT((a.place - b.place).length(), 1e-6);
    const osg::Vec3d probe(1, 2, 3);
    EXPECT_LT((a.turn * probe - b.turn * probe).length(), 1e-6);
}

TEST(PoseSteps, areUndoneByTheirOpposites)
{
    std::vector<PoseStep> steps = someSteps();
    const std::vector<PoseStep> back = undone(steps);
    steps.insert(steps.end(), back.begin(), back.end());
    expectSame(moved(Placement(), steps, kRow.data()), Placement());
    EXPECT_TRUE(simplified(steps).empty());
}

TEST(PoseSteps, meanTheSameInFewer)
{
    std::vector<PoseStep> steps = {translation({0, 0, 0}), translation({1, 0, 0}), translation({0, 2, 0})};
    for (const PoseStep& more : someSteps())
        steps.push_back(more);
    steps.push_back(rotation(osg::Quat(0.5, osg::Vec3d(1, 0, 0))));
    steps.push_back(rotation(osg::Quat(0.9, osg::Vec3d(0, 0, 1))));
    steps.push_back(rotation(osg::Quat()));
    const std::vector<PoseStep> fewer = simplified(steps);
    EXPECT_EQ(fewer.size(), 6U);
    expectSame(moved(Placement(), steps, kRow.data()), moved(Placement(), fewer, kRow.data()));
}

TEST(PoseSteps, leadFromAnyJointToAnyOther)
{
    MotionFigure figure;
    const std::int32_t parents[] = {-1, 0, 1, 0, 3};
    for (std::size_t i = 0; i < 5; ++i) {
        MotionFigure::Joint joint;
        joint.parent = parents[i];
        std::vector<PoseStep> steps = someSteps();
        steps.push_back(step(PoseStep::Kind::Turn, static_cast<std::uint8_t>(i % 3), 3, 1.0f));
        figure.addJoint(joint, steps);
    }
    const Placements placements = placed(figure, kRow.data());
    for (std::int32_t from = -1; from < 5; ++from) {
        for (std::int32_t to = 0; to < 5; ++to) {
            const Placement start = from < 0 ? Placement() : placements[static_cast<std::size_t>(from)];
            expectSame(moved(start, stepsBetween(figure, from, to), kRow.data()),
                       placements[static_cast<std::size_t>(to)]);
        }
    }
}

}  // namespace
