#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/profiletable.h"
#include "tests/host/KivReader/csvtable.h"
#include "tests/support/motionlibrary.h"

namespace {

using namespace KivReader;
using testing::HasSubstr;

MotionFigure figureOf(const std::vector<std::string>& names)
{
    MotionFigure figure;
    for (const std::string& name : names) {
        MotionFigure::Joint joint;
        joint.name = name;
        joint.parent = static_cast<std::int32_t>(figure.joints.size()) - 1;
        figure.joints.push_back(joint);
    }
    return figure;
}

std::string matchedAs(const JointMatching& matching, const MotionFigure& figure, const std::string& name)
{
    for (const auto& [target, joint] : matching.joints) {
        if (figure.joints[joint].name == name)
            return target;
    }
    return {};
}

TEST(ProfileTable, saysWhichLineItCannotRead)
{
    struct
    {
        const char* text;
        const char* reason;
    } const rows[] = {{"dialect a\nwhen\n", "line 2"},
                      {"\nname A = B\n", "line 2: a dialect must come first"},
                      {"dialect a\nname {A,B} = {C,D,E}\n", "as many names"},
                      {"dialect a\nname A\n", "FOREIGN = TARGET"},
                      {"dialect a\nnames A = B\n", "unknown statement 'names'"},
                      {"joint A - 0 0\n", "three numbers"},
                      {"joint A - 0 0 nan\n", "three numbers"},
                      {"joint A - 0 0 0\njoint B C 0 0 0\n", "line 2"},
                      {"joint A - 0 0 0\njoint A A 0 0 0\n", "comes twice"},
                      {"end Nose 0 0 1\n", "'Nose'"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        try {
            parseProfileTable(row.text, "my.profile");
            ADD_FAILURE() << "taken";
        } catch (const std::runtime_error& refusal) {
            EXPECT_THAT(refusal.what(), HasSubstr("my.profile, line "));
            EXPECT_THAT(refusal.what(), HasSubstr(row.reason));
        }
    }
}

TEST(ProfileTable, matchesPatternsAndNothingLikeThem)
{
    EXPECT_TRUE(matchesPattern("Bip<n><_>L<_>Thigh", "Bip01 L Thigh"));
    EXPECT_TRUE(matchesPattern("Bip<n><_>L<_>Thigh", "Bip2_L_Thigh"));
    EXPECT_TRUE(matchesPattern("mixamorig<n>Hips", "mixamorigHips"));
    EXPECT_FALSE(matchesPattern("Bip<n><_>L<_>Thigh", "Bip01LThigh"));
    EXPECT_FALSE(matchesPattern("Bip<n><_>L<_>Thigh", "Bip01 L Thigh2"));
    EXPECT_FALSE(matchesPattern("Hips", "hips"));
    EXPECT_FALSE(matchesPattern("Hips", "Hip"));
}

TEST(ProfileTable, writesChoicesInStep)
{
    const ProfileTable table =
        parseProfileTable("dialect a\nname {l,r}{Arm,Leg} = {Left,Right}{ForeArm,UpLeg}\n", "t");
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"lArm", "LeftForeArm"}, {"lLeg", "LeftUpLeg"}, {"rArm", "RightForeArm"}, {"rLeg", "RightUpLeg"}};
    EXPECT_EQ(table.dialects.front().names, expected);
}

/// Foreign names and their targets, by dialect.
std::map<std::string, std::map<std::string, std::string>> knownNames()
{
    std::map<std::string, std::map<std::string, std::string>> known;
    for (const auto& row : KivReaderTest::readCsv(KivTestSupport::motionLibrary() / "aliases.csv"))
        known[row.at("dialect")][row.at("foreign")] = row.at("target");
    return known;
}

void expectNamesMatched(const std::string& dialect, const std::map<std::string, std::string>& names)
{
    static const std::map<std::string, std::vector<std::string>> s_signs = {
        {"cmu-max", {"LHipJoint"}}, {"cmu-mb", {"LHipJoint", "LeftUpLeg"}}};
    std::vector<std::string> all;
    if (s_signs.count(dialect) > 0)
        all = s_signs.at(dialect);
    for (const auto& name : names)
        all.push_back(name.first);
    const MotionFigure figure = figureOf(all);
    const JointMatching matching = matchJoints(figure, builtInProfileTable());
    EXPECT_EQ(matching.dialect, dialect);
    for (const auto& [foreign, target] : names) {
        EXPECT_TRUE(matching.has(target)) << target;
        const std::string found = matchedAs(matching, figure, foreign);
        EXPECT_TRUE(found.empty() || found == target) << foreign << " as " << found;
    }
}

TEST(DialectTables, knowEveryDialectAndItsNames)
{
    KIV_REQUIRE_MOTION_LIBRARY();
    const auto known = knownNames();
    ASSERT_GE(known.size(), 19U);
    std::set<std::string> ours;
    for (const Dialect& dialect : builtInProfileTable().dialects)
        ours.insert(dialect.name);
    for (const auto& [dialect, names] : known) {
        SCOPED_TRACE(dialect);
        EXPECT_EQ(ours.count(dialect), 1U);
        // A spine of five is spread otherwise here: what carries the arms is the last of the avatar's four.
        if (dialect != "mh-default" && names.size() > 1)
            expectNamesMatched(dialect, names);
    }
}

TEST(DialectTables, goByTheSignatureBeforeAnyName)
{
    const JointMatching plain = matchJoints(figureOf({"Hips", "LeftShoulder"}), builtInProfileTable());
    EXPECT_TRUE(plain.has("LeftShoulder"));
    const JointMatching biovision =
        matchJoints(figureOf({"Hips", "LeftCollar", "LeftShoulder", "LeftElbow"}), builtInProfileTable());
    EXPECT_EQ(biovision.dialect, "biovision");
    EXPECT_EQ(biovision.at("LeftShoulder"), 1U);
    EXPECT_EQ(biovision.at("LeftArm"), 2U);
}

TEST(DialectTables, dropNamespacesAndProducersPrefixes)
{
    for (const std::string prefix : {"mixamorig:", "mixamorig7:", "mixamorig", "ns:mixamorig:", "rig:", ""}) {
        SCOPED_TRACE(prefix);
        const MotionFigure figure = figureOf({prefix + "Hips", prefix + "LeftUpLeg", prefix + "LeftForeArm"});
        const JointMatching matching = matchJoints(figure, builtInProfileTable());
        EXPECT_EQ(matching.joints.size(), 3U);
    }
}

TEST(DialectTables, leaveNamesWithoutTheProducersPrefixAlone)
{
    const MotionFigure figure = figureOf({"Character1_Hips", "Character1_Neck", "Neck"});
    const JointMatching matching = matchJoints(figure, builtInProfileTable());
    EXPECT_EQ(matching.dialect, "mobu");
    EXPECT_EQ(matching.at("Neck"), 1U);
    EXPECT_TRUE(matching.ambiguous.empty());
}

TEST(DialectTables, tellOfTwoJointsForOneName)
{
    const JointMatching matching =
        matchJoints(figureOf({"pelvis", "thigh.L", "upper_arm.L", "hips"}), builtInProfileTable());
    EXPECT_EQ(matching.at("Hips"), 0U);
    ASSERT_EQ(matching.ambiguous.size(), 1U);
    EXPECT_THAT(matching.ambiguous.front(), HasSubstr("both pelvis and hips"));
}

TEST(DialectTables, takeAUsersTableFirst)
{
    const std::string file = testing::TempDir() + "users.profile";
    std::ofstream(file) << "dialect mine\nwhen Becken\nname {Becken,Kopf} = {Hips,Head}\n";
    const ProfileTable table = profileTableWith(file);
    std::remove(file.c_str());
    const JointMatching matching = matchJoints(figureOf({"Becken", "Kopf", "Neck", "lShldr"}), table);
    EXPECT_EQ(matching.dialect, "mine");
    EXPECT_EQ(matching.at("Head"), 1U);
    EXPECT_TRUE(matching.has("Neck"));
    EXPECT_EQ(matchJoints(figureOf({"LThigh", "LForearm"}), table).dialect, "ipi");
    EXPECT_EQ(table.figure.joints.size(), builtInProfileTable().figure.joints.size());
}

TEST(DialectTables, nameTheNearestOfTheAvatarsNames)
{
    EXPECT_EQ(nearestNames("ns:LeftUpLegs", builtInProfileTable().figure).front(), "LeftUpLeg");
    EXPECT_TRUE(nearestNames(std::string(10000, 'x'), builtInProfileTable().figure).empty());
    EXPECT_TRUE(nearestNames("tongue03", builtInProfileTable().figure).empty());
}

TEST(DialectTables, offerNoJointItsOwnName)
{
    const std::vector<std::string> nearest = nearestNames("rig:LeftArm", builtInProfileTable().figure);
    EXPECT_THAT(nearest, testing::Not(testing::Contains("LeftArm")));
    EXPECT_THAT(nearest, testing::Contains("LeftForeArm"));
}

TEST(ProfileFigure, isTheAvatarsRest)
{
    const RestFigure& figure = builtInProfileTable().figure;
    EXPECT_EQ(figure.joints.size(), 59U);
    EXPECT_NEAR(figure.place("LeftHand").x(), 70.0, 1e-9);
    EXPECT_NEAR(figure.place("Head").z(), 158.0, 1e-9);
    EXPECT_NEAR(figure.height(), 175.0, 1e-9);
}

}  // namespace
