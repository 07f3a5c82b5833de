#include "host/KivReader/humanoid/groundlevel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace KivReader {

namespace {

constexpr std::size_t kGroundFrames = 200;
constexpr double kSlow = 0.1;              ///< heights a second, up and down: feet that stand are no faster
constexpr double kClose = 0.02;            ///< of the height: soles on one level are no farther apart
constexpr std::size_t kFewest = 3;         ///< poses on one level
constexpr std::size_t kPartOnGround = 20;  ///< of the poses at least one in so many stands on the ground
constexpr std::size_t kPartBelow = 20;     ///< where none is slow, one in so many may be below the ground
constexpr std::size_t kHundredth = 100;
constexpr double kDeepest = 0.01;  ///< of the height: so far soles may sink in, but for one row in a hundred

constexpr double kHeel = -0.25;  ///< of the toes' distance ahead of the foot's joint
constexpr double kBall = 0.8;

constexpr double kSunk = 0.01;       ///< of the height: soles so far below the ground are lifted
constexpr double kFloating = 0.015;  ///< of the height: soles never nearer to the ground are let down
constexpr double kLeap = 0.1;        ///< of the height: nobody gets up so far from one frame to the next

/// What the avatar's feet stand on, carried by the figure's.
class Soles
{
public:
    Soles(const RestFigure& avatar, const MotionFigure& figure) : m_figure(figure)
    {
        for (const char* foot : {"LeftFoot", "RightFoot"})
            add(avatar, foot);
    }

    double lowestIn(const float* row) const
    {
        double lowest = std::numeric_limits<double>::max();
        for (const Sole& sole : m_soles)
            lowest = std::min(lowest, sole.lowestUnder(moved(Placement(), sole.steps, row)));
        return lowest;
    }

    double lowestAtRest() const
    {
        const Placements rest = MatchedMotion::atRest(m_figure);
        double lowest = std::numeric_limits<double>::max();
        for (const Sole& sole : m_soles)
            lowest = std::min(lowest, sole.lowestUnder(rest[sole.joint]));
        return lowest;
    }

private:
    struct Sole
    {
        std::size_t joint = 0;
        std::vector<KivAnimation::PoseStep> steps;  ///< from the scene to the foot's joint
        std::array<osg::Vec3d, 3> points;           ///< from the joint: the heel, the ball, the toes' tip

        double lowestUnder(const Placement& foot) const
        {
            double lowest = std::numeric_limits<double>::max();
            for (const osg::Vec3d& point : points)
                lowest = std::min(lowest, foot.outward(point).z());
            return lowest;
        }
    };

    void add(const RestFigure& avatar, const std::string& foot)
    {
        const auto joint = std::find_if(m_figure.joints.begin(), m_figure.joints.end(),
                                        [&](const auto& candidate) { return candidate.name == foot; });
        const osg::Vec3d& toes = avatar.ends.at(foot);
        const double ground = -avatar.place(foot).z();
        Sole sole;
        sole.joint = static_cast<std::size_t>(joint - m_figure.joints.begin());
        sole.steps = simplified(stepsBetween(m_figure, -1, static_cast<std::int32_t>(sole.joint)));
        sole.points = {osg::Vec3d(toes.x(), kHeel * toes.y(), ground),
                       osg::Vec3d(toes.x(), kBall * toes.y(), ground), toes};
        m_soles.push_back(std::move(sole));
    }

    const MotionFigure& m_figure;
    std::vector<Sole> m_soles;
};

/// Many files begin with one frame that is no part of the motion, such as a T-pose with its hips at the
/// origin: it would hold the whole motion up in the air.
bool beginsBelowTheMotion(const MatchedMotion& motion, const Soles& soles, double height)
{
    return motion.document.frames > 1 &&
           soles.lowestIn(motion.row(0)) < soles.lowestIn(motion.row(1)) - kLeap * height;
}

std::vector<std::size_t> tellingFrames(const MatchedMotion& motion, const Soles& soles, double height,
                                       const std::vector<std::size_t>& leftOut)
{
    std::vector<std::size_t> frames = motion.sampledFrames(kGroundFrames);
    if (!frames.empty() && beginsBelowTheMotion(motion, soles, height))
        frames.front() = 1;
    std::vector<std::size_t> telling;
    std::set_difference(frames.begin(), frames.end(), leftOut.begin(), leftOut.end(),
                        std::back_inserter(telling));
    return telling.empty() ? frames : telling;
}

/// Of heights in ascending order the middle of the lowest ones that lie close together, if these are enough
/// to be no accident.
std::optional<double> lowestLevel(const std::vector<double>& heights, double height)
{
    const auto least = std::max<std::size_t>(kFewest, heights.size() / kPartOnGround);
    for (std::size_t first = 0; first + least <= heights.size(); ++first) {
        const auto end = std::upper_bound(heights.begin(), heights.end(), heights[first] + kClose * height);
        const auto count = static_cast<std::size_t>(end - heights.begin()) - first;
        if (count >= least)
            return heights[first + count / 2];
    }
    return std::nullopt;
}

/// The level that feet stand on where they hardly move up and down. A sole that sinks in a little now and
/// then is no ground; deeper than soles are soft it would be seen.
double lowestSole(const MatchedMotion& motion, const Soles& soles, double height,
                  const std::vector<std::size_t>& leftOut)
{
    std::vector<double> all;
    std::vector<double> slow;
    const double slowest = kSlow * height * motion.document.frameTime;
    for (const std::size_t frame : tellingFrames(motion, soles, height, leftOut)) {
        all.push_back(soles.lowestIn(motion.row(frame)));
        if (frame + 1 < motion.document.frames &&
            std::fabs(soles.lowestIn(motion.row(frame + 1)) - all.back()) < slowest)
            slow.push_back(all.back());
    }
    if (all.empty())
        return soles.lowestAtRest();
    std::sort(slow.begin(), slow.end());
    std::sort(all.begin(), all.end());
    const double level = lowestLevel(slow, height).value_or(all[all.size() / kPartBelow]);
    return std::min(level, all[all.size() / kHundredth] + kDeepest * height);
}

}  // namespace

double groundShift(const MatchedMotion& motion, const MotionFigure& figure, double height,
                   const std::vector<std::size_t>& leftOut)
{
    const double lowest = lowestSole(motion, Soles(motion.avatar, figure), height, leftOut);
    return lowest < -kSunk * height || lowest > kFloating * height ? -lowest : 0.0;
}

}  // namespace KivReader
