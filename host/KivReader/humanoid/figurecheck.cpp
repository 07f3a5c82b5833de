#include "host/KivReader/humanoid/figurecheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "host/KivReader/humanoid/watchedfigure.h"

namespace KivReader {

namespace {

using Check = ProfileRecord::Check;

constexpr double kUnlevel = 30.0;  ///< degrees: soles of feet that stand
constexpr double kTurnedHead = 60.0;
constexpr double kSkyward = 50.0;    ///< degrees: heads are not held farther from upright
constexpr double kTwisted = 60.0;    ///< degrees between chest and pelvis
constexpr double kFeetAside = 75.0;  ///< degrees between feet and pelvis
constexpr double kMostly = 0.7;      ///< share of the poses
constexpr double kShortest = 90.0;   ///< centimetres
constexpr double kTallest = 250.0;
constexpr double kOffGround = 0.1;  ///< of the height
constexpr double kInTrunk = 0.025;  ///< of the height: elbows and hands come no nearer to the spine
constexpr double kFat = 1.4;        ///< times as long, against the hips' width, as the avatar's belly
constexpr double kUnsteady = 0.25;  ///< of a bone's length: they do not grow and shrink

const char* const kTryRest = ": the rest pose may be wrong; try --first-frame-is-rest";
const char* const kTryUp = ": another axis may be up; try --up";

std::string number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3g", value);
    return text;
}

Check made(const char* name, bool passed, double value, const char* unit, const std::string& said,
           const char* advice)
{
    if (!std::isfinite(value))
        return {name, false, 0.0, unit, "it cannot be measured: " + said + advice};
    return {name, passed, value, unit, passed ? said : said + advice};
}

Check soles(const WatchedFigure& figure)
{
    const double off = std::max(figure.soleOffLevel("Left"), figure.soleOffLevel("Right"));
    return made("soles level", off <= kUnlevel, off, "degrees",
                "the feet stand " + number(off) + "° off level", kTryRest);
}

Check face(const WatchedFigure& figure)
{
    const double off = figure.angleBetweenFronts("Head", "Spine3");
    return made("face and chest one way", off <= kTurnedHead, off, "degrees",
                "the face looks " + number(off) + "° away from the chest's front", kTryRest);
}

Check gaze(const WatchedFigure& figure)
{
    const double off = figure.leanOfHead();
    return made("head upright", off <= kSkyward, off, "degrees",
                "the head leans by " + number(off) + "° against the trunk", kTryRest);
}

Check trunk(const WatchedFigure& figure)
{
    const double off = figure.angleBetweenFronts("Spine3", "Hips");
    return made("chest over pelvis", off <= kTwisted, off, "degrees",
                "the chest is turned by " + number(off) + "° against the pelvis", kTryRest);
}

Check feet(const WatchedFigure& figure)
{
    const double off = std::max(figure.angleBetweenFronts("LeftFoot", "Hips"),
                                figure.angleBetweenFronts("RightFoot", "Hips"));
    return made("feet ahead", off <= kFeetAside, off, "degrees",
                "the feet point " + number(off) + "° away from the pelvis's front", kTryRest);
}

Check knees(const WatchedFigure& figure)
{
    const double share = std::min(figure.kneesAhead("Left"), figure.kneesAhead("Right"));
    return made(
        "knees toward the feet", share >= kMostly, share, "share",
        "where a knee is bent it is on the side of the toes in " + number(100.0 * share) + " % of the poses",
        ": legs or their left and right may be mistaken; try --first-frame-is-rest");
}

Check upright(const WatchedFigure& figure)
{
    const double share = figure.headBelowHips();
    return made("head above hips", share <= 0.5, share, "share",
                "the head is below the hips in " + number(100.0 * share) + " % of the poses", kTryUp);
}

Check height(const WatchedFigure& figure)
{
    const double height = figure.height();
    return made("height of a person", height >= kShortest && height <= kTallest, height, "cm",
                "from foot to crown it is " + number(height) + " cm", "; try --unit");
}

Check ground(const WatchedFigure& figure)
{
    const double off = figure.lowestSole();
    return made("on the ground", std::fabs(off) <= kOffGround * figure.height(), off, "cm",
                "the lowest sole is at a height of " + number(off) + " cm",
                "; some rows may be out of place");
}

Check limbs(const WatchedFigure& figure)
{
    const double share = figure.limbsInTrunk(kInTrunk);
    return made("no limb through the trunk", share <= 1.0 - kMostly, share, "share",
                "an elbow or a hand is inside the trunk in " + number(100.0 * share) + " % of the poses",
                ": limbs may be mistaken for others");
}

Check belly(const WatchedFigure& figure)
{
    const double factor = figure.bellyAgainstHips();
    return made("slim belly", factor <= kFat, factor, "times",
                "the belly is " + number(factor) + " times as thick, against the hips, as the avatar's",
                ": spine joints may be mistaken");
}

Check steadiness(const WatchedFigure& figure)
{
    const double change = figure.worstChangeOfLength();
    return made("bones keep their lengths", change <= kUnsteady, change, "share",
                "a bone's length changes by " + number(100.0 * change) + " %",
                ": the file itself may be broken");
}

}  // namespace

std::vector<Check> checkFigure(const MotionDocument& document, const MotionFigure& figure,
                               const RestFigure& avatar, const std::vector<std::size_t>& leftOut)
{
    const WatchedFigure watched(document, figure, avatar, leftOut);
    if (!watched.isWhole())
        return {made("a whole body", false, 0.0, "", "there are joints missing", "")};
    std::vector<Check> checks;
    for (const auto check :
         {soles, face, gaze, trunk, feet, knees, upright, height, ground, limbs, belly, steadiness})
        checks.push_back(check(watched));
    return checks;
}

std::size_t failuresOf(const std::vector<Check>& checks)
{
    return static_cast<std::size_t>(
        std::count_if(checks.begin(), checks.end(), [](const Check& check) { return !check.passed; }));
}

}  // namespace KivReader
