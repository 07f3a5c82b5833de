// What is no person is never dressed in fragments, and nothing of it breaks the step.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "host/KivReader/figure/figurepose.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "tests/support/motionrewriting/nopersons.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace {

using namespace KivReader;
using namespace KivTestSupport;

struct Case
{
    const char* name;
    std::function<MotionDocument()> make;
};

class NoPerson : public testing::TestWithParam<Case>
{
};

bool isFinite(const MotionFigure& figure)
{
    for (const MotionFigure::Joint& joint : figure.joints) {
        if (!std::isfinite((joint.offset + joint.fitShift).length()))
            return false;
        for (const KivAnimation::PoseStep& step : figure.stepsOf(joint)) {
            if (!std::isfinite(step.vector.length() + step.rotation.length()))
                return false;
        }
    }
    return true;
}

TEST_P(NoPerson, isLeftAsItIsWithAReason)
{
    const MotionDocument document = GetParam().make();
    for (const MotionDocument& said : {document, withNumberedNames(document).document}) {
        const ProfiledFigure profiled = makeProfiledFigure(said, ProfileOptions());
        EXPECT_FALSE(profiled.record.isHumanoid);
        EXPECT_FALSE(profiled.record.whyNot.empty());
        EXPECT_TRUE(profiled.record.renamed.empty());
        EXPECT_EQ(profiled.figure.joints.size(), said.joints.size());
        EXPECT_TRUE(isFinite(profiled.figure));
    }
}

const std::vector<Case> kNoPersons = {{"oneJoint", oneJoint},
                                      {"bushOf500Joints", [] { return bush(500); }},
                                      {"snake", snake},
                                      {"dog", dog},
                                      {"personWithoutArms", personWithoutArms},
                                      {"bust", bust},
                                      {"handAlone", handAlone}};

INSTANTIATE_TEST_SUITE_P(Motion, NoPerson, testing::ValuesIn(kNoPersons),
                         [](const auto& each) { return std::string(each.param.name); });

TEST(OddPersons, areFoundInSpiteOfRowsOfNoNumbers)
{
    const MotionDocument document = walkWithRowsOfNoNumbers();
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    EXPECT_TRUE(profiled.record.isHumanoid) << profiled.record.whyNot;
    EXPECT_TRUE(isFinite(profiled.figure));
    EXPECT_NEAR(profiled.record.height, 175.0, 2.0);
    EXPECT_LT(std::fabs(profiled.record.groundShift), 20.0);
}

/// Two in one file: all joints that are taken for the avatar's belong to one of them.
TEST(OddPersons, areNeverPutTogetherOutOfTwo)
{
    const MotionDocument document = twoPeople();
    const ProfiledFigure profiled = makeProfiledFigure(document, ProfileOptions());
    if (!profiled.record.isHumanoid)
        return;
    const std::size_t second = 1 + document.joints.size() / 2;
    const MotionFigure& figure = profiled.figure;
    for (const MotionFigure::Joint& joint : figure.joints) {
        if (joint.name == "LeftFoot" || joint.name == "RightHand" || joint.name == "Head") {
            EXPECT_GT(joint.line, 1U) << joint.name;
            EXPECT_LE(joint.line, second) << joint.name;
        }
    }
}

}  // namespace
