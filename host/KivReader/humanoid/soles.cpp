#include "host/KivReader/humanoid/soles.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr double kSoleLow = 0.03;    ///< of the height: a foot that stands is no higher above the lowest ones
constexpr double kSlow = 0.15;       ///< heights a second
constexpr double kLowestPart = 0.1;  ///< of the poses lie below what counts as the lowest
constexpr std::size_t kEnough = 3;   ///< standing poses; with fewer speed does not count
constexpr double kAgreement = 0.9;   ///< of the directions found for the sole
constexpr double kSteepestSole = 0.9;    ///< sine: what points down more is no foot's line
constexpr double kToesAhead = 0.3;       ///< cosine: toes that point farther from where knees do are none
constexpr double kPointsNowhere = 0.02;  ///< of the height: shorter feet do not tell where they point

osg::Vec3d unit(osg::Vec3d vector)
{
    vector.normalize();
    return vector;
}

class SoleFinder
{
public:
    SoleFinder(const PosedBody& body, std::size_t foot) : m_body(body), m_foot(foot)
    {
        const auto joint = static_cast<std::int32_t>(foot);
        m_steps = simplified(stepsBetween(body.figure, -1, joint));
    }

    /// The mean of what is up in the foot's frame while it stands.
    osg::Vec3d up() const
    {
        std::vector<std::size_t> standing = standingPoses(true);
        if (standing.size() < kEnough)
            standing = standingPoses(false);
        osg::Vec3d sum;
        for (const std::size_t pose : standing)
            sum += m_body.sample.poses[pose][m_foot].turn.conj() * osg::Vec3d(0, 0, 1);
        if (standing.empty() || sum.length() < kAgreement * static_cast<double>(standing.size()))
            return {};
        return unit(sum);
    }

private:
    double heightIn(std::size_t pose) const { return m_body.sample.poses[pose][m_foot].place.z(); }

    /// Where feet stand, whichever of the two.
    double lowest() const
    {
        double lower = lowestOf(m_foot);
        for (const char* foot : {"LeftFoot", "RightFoot"})
            lower = m_body.has(foot) ? std::min(lower, lowestOf(m_body.at(foot))) : lower;
        return lower;
    }

    double lowestOf(std::size_t foot) const
    {
        std::vector<double> heights;
        for (const Placements& pose : m_body.sample.poses)
            heights.push_back(pose[foot].place.z());
        const auto nth = heights.begin() + static_cast<std::ptrdiff_t>(kLowestPart * double(heights.size()));
        std::nth_element(heights.begin(), nth, heights.end());
        return *nth;
    }

    bool isSlowIn(std::size_t pose) const
    {
        const std::size_t frame = m_body.sample.frames[pose];
        const MotionDocument& document = m_body.motion.document;
        const std::size_t other = frame + 1 < document.frames ? frame + 1 : frame - 1;
        if (document.frames < 2 || document.frameTime <= 0.0)
            return true;
        const osg::Vec3d then = moved(Placement(), m_steps, m_body.motion.row(other)).place;
        const double distance = (then - m_body.sample.poses[pose][m_foot].place).length();
        return distance < kSlow * m_body.height * document.frameTime;
    }

    std::vector<std::size_t> standingPoses(bool slowOnly) const
    {
        std::vector<std::size_t> standing;
        if (m_body.sample.poses.empty())
            return standing;
        const double highest = lowest() + kSoleLow * m_body.height;
        for (std::size_t i = 0; i < m_body.sample.poses.size(); ++i) {
            if (heightIn(i) <= highest && (!slowOnly || isSlowIn(i)))
                standing.push_back(i);
        }
        return standing;
    }

    const PosedBody& m_body;
    std::size_t m_foot;
    std::vector<KivAnimation::PoseStep> m_steps;  ///< from the scene to the foot's joint
};

/// What of the direction lies in the sole's plane.
osg::Vec3d level(const osg::Vec3d& direction, const osg::Vec3d& up)
{
    return direction - up * (direction * up);
}

/// From the foot's joint to its toes in its own frame, length 1; 0 where it is too short or too steep to
/// tell.
osg::Vec3d footLine(const PosedBody& body, std::size_t foot)
{
    const std::int32_t toes = toesOf(body.figure, foot);
    if (toes < 0)
        return {};
    const osg::Vec3d line = body.figure.joints[static_cast<std::size_t>(toes)].offset;
    return line.length() > kPointsNowhere * body.height ? unit(line) : osg::Vec3d();
}

}  // namespace

std::int32_t toesOf(const MotionFigure& figure, std::size_t foot)
{
    std::int32_t toes = -1;
    double farthest = 0.0;
    bool isJoint = false;
    for (std::size_t i = foot + 1; i < figure.joints.size(); ++i) {
        const MotionFigure::Joint& child = figure.joints[i];
        if (child.parent != static_cast<std::int32_t>(foot))
            continue;
        const bool isSameKind = isJoint != child.endSite;
        const bool isBetter = isSameKind ? child.offset.length() > farthest : !child.endSite || toes < 0;
        if (!isBetter)
            continue;
        toes = static_cast<std::int32_t>(i);
        farthest = child.offset.length();
        isJoint = !child.endSite;
    }
    return toes;
}

Sole soleOf(const PosedBody& body, const std::string& side, const osg::Quat& usual)
{
    const std::size_t foot = body.at(side + "Foot");
    Sole sole;
    sole.up = SoleFinder(body, foot).up();
    if (sole.up.length2() == 0.0)
        sole.up = usual.conj() * osg::Vec3d(0, 0, 1);
    osg::Vec3d line = footLine(body, foot);
    if (std::fabs(line * sole.up) > kSteepestSole)
        line = {};
    const osg::Vec3d byLine = unit(level(line, sole.up));
    const osg::Vec3d byKnee = unit(level(usual.conj() * osg::Vec3d(0, -1, 0), sole.up));
    sole.forward = byLine * byKnee > kToesAhead || byKnee.length2() == 0.0 ? byLine : byKnee;
    return sole;
}

}  // namespace KivReader
