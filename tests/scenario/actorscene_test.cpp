#include <gtest/gtest.h>

#include <fstream>

#include "KivCharacterization/Characterization/bvhbuildhierarchyfromstringcmdexchandler.h"
#include "KivCharacterization/Characterization/modelloading.h"
#include "tests/scenario/hostfixture.h"
#include "tests/support/builtpaths.h"
#include "tests/support/figures.h"
#include "tests/support/motionlibrary.h"
#include "tests/support/scenedump.h"

namespace {

using namespace KivTestSupport;

/// A whole actor as text. What differs is written beside the build, ready to be looked at and taken over.
class ActorScene : public ShippedHost
{
protected:
    void expectScene(const std::string& bvh, const std::string& golden)
    {
        KivCharacterization::IveInfoTable avatars;
        avatars["small"] = analysed(smallAvatar().get());
        KivCharacterization::ActorTable actors;
        KivCharacterization::FontTable fonts;
        ASSERT_TRUE(KivCharacterization::loadLabelFont(
            std::string(KivTestSupport::kRuntimeRoot) + "/Data/Font/arial.ttf", fonts));
        KivTaskCommand::TaskCommand command;
        command.setCmdExcImp(new KivCharacterization::BVHBuildHierarchyFromStringCmdExcHandler(
            &avatars, &actors, &fonts, bvh, "7", "Seven"));
        ASSERT_TRUE(command.run());
        updateScene();

        const std::string actual = dumpScene(scene());
        const std::string file = std::string(KivTestSupport::kSourceFolder) + "/tests/scenario/" + golden;
        const std::string expected = readWholeFile(file);
        if (actual != expected) {
            const std::string written = testing::TempDir() + golden;
            std::ofstream(written) << actual;
            ADD_FAILURE() << "the scene differs from " << golden << "; what it is now stands in " << written;
        }
        EXPECT_EQ(actual, expected);
    }
};

TEST_F(ActorScene, ofASmallFigureIsBuiltAsListed)
{
    expectScene(smallFigureBvh(), "smallfigure.scene.txt");
}

TEST_F(ActorScene, ofAFigureWithPropsIsBuiltAsListed)
{
    expectScene(smallFigureWithPropsBvh(), "figurewithprops.scene.txt");
}

}  // namespace
