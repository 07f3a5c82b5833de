#include "host/KivReader/humanoid/groundlevel.h"

#include <algorithm>
#include <array>
#include <limits>

namespace KivReader {

namespace {

constexpr std::size_t kGroundFrames = 500;

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

double lowestSole(const MatchedMotion& motion, const Soles& soles, double height)
{
    std::vector<std::size_t> frames = motion.sampledFrames(kGroundFrames);
    if (frames.empty())
        return soles.lowestAtRest();
    if (beginsBelowTheMotion(motion, soles, height))
        frames.front() = 1;
    double lowest = std::numeric_limits<double>::max();
    for (const std::size_t frame : frames)
        lowest = std::min(lowest, soles.lowestIn(motion.row(frame)));
    return lowest;
}

}  // namespace

double groundShift(const MatchedMotion& motion, const MotionFigure& figure, double height)
{
    const double lowest = lowestSole(motion, Soles(motion.avatar, figure), height);
    return lowest < -kSunk * height || lowest > kFloating * height ? -lowest : 0.0;
}

}  // namespace KivReader
