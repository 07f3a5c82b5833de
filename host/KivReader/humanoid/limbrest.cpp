#include "host/KivReader/humanoid/limbrest.h"

#include <cmath>

#include "host/KivReader/humanoid/hinges.h"
#include "host/KivReader/humanoid/restaxes.h"
#include "host/KivReader/humanoid/soles.h"

namespace KivReader {

namespace {

constexpr double kOddKnee = 0.2;  ///< cosine: knees that bend farther from the hips' line are not believed

class LimbTurner
{
public:
    LimbTurner(RestTurns& turns, const PosedBody& body) : m_turns(turns), m_body(body) {}

    /// From a joint to a place that is rigid with it, on the average, length 1.
    osg::Vec3d boneTo(std::size_t joint, std::size_t next) const
    {
        osg::Vec3d sum;
        for (const Placements& pose : m_body.sample.poses) {
            osg::Vec3d bone = pose[joint].inward(pose[next].place);
            sum += bone;
        }
        sum.normalize();
        return sum;
    }

    /// The bone along the avatar's, the hinge about its axis.
    osg::Quat byHinge(const osg::Vec3d& bone, const osg::Vec3d& hinge, const osg::Vec3d& avatarBone,
                      const osg::Vec3d& avatarHinge) const
    {
        return turnBetween({bone, hinge}, {avatarBone, avatarHinge});
    }

    /// The bone along the avatar's, and about it as it is when it gets where it is by the shortest way.
    /// @param above the joint that it moves against; its turn is known.
    osg::Quat byShortestWay(std::size_t joint, std::size_t above, const osg::Vec3d& bone,
                            const osg::Vec3d& avatarBone, const osg::Vec3d& whenOpposite) const
    {
        MeanTurn mean;
        const osg::Quat toAvatar = m_turns.at(above);
        for (const Placements& pose : m_body.sample.poses) {
            const osg::Quat turn = pose[joint].turn * pose[above].turn.conj() * toAvatar;
            mean.add(turn * leastTurn(turn * bone, avatarBone, whenOpposite));
        }
        return mean.value();
    }

protected:
    RestTurns& m_turns;
    const PosedBody& m_body;
};

/// The end of a limb: its last joint, or what hangs from the middle one.
std::size_t endOf(const PosedBody& body, const std::string& last, std::size_t middle)
{
    if (body.has(last))
        return body.at(last);
    const std::int32_t next = toesOf(body.figure, middle);
    return next < 0 ? middle : static_cast<std::size_t>(next);
}

class LegTurner : private LimbTurner
{
public:
    LegTurner(RestTurns& turns, const PosedBody& body, const std::string& side)
        : LimbTurner(turns, body), m_side(side)
    {
        m_leg.upper = body.at(side + "UpLeg");
        m_leg.middle = body.at(side + "Leg");
        m_leg.end = endOf(body, side + "Foot", m_leg.middle);
    }

    void turn()
    {
        const std::size_t hips = m_body.at("Hips");
        if (m_turns.count(hips) == 0)
            return;
        const osg::Vec3d thigh = boneTo(m_leg.upper, m_leg.middle);
        const osg::Vec3d shin = boneTo(m_leg.middle, m_leg.end);
        const osg::Quat plain = byShortestWay(m_leg.upper, hips, thigh, kDown, kLeft);
        const Hinge knee = hingeOf(m_body.sample.poses, m_leg);
        const bool isKnee = knee.isTrusted() && (plain * knee.axis) * kLeft > kOddKnee;
        m_turns[m_leg.upper] = isKnee ? byHinge(thigh, knee.axis, kDown, kLeft) : plain;
        if (m_leg.end == m_leg.middle)
            return;
        m_turns[m_leg.middle] = isKnee ? byHinge(shin, knee.axisBelow, kDown, kLeft)
                                       : byShortestWay(m_leg.middle, m_leg.upper, shin, kDown, kLeft);
        if (m_body.has(m_side + "Foot"))
            turnFoot();
    }

private:
    void turnFoot()
    {
        const osg::Quat toShin = meanTurnAgainst(m_body, m_leg.end, m_leg.middle);
        const osg::Quat asItIs = toShin * m_turns.at(m_leg.middle);
        const Sole sole = soleOf(m_body, m_side, asItIs);
        m_turns[m_leg.end] = turnBetween({sole.up, sole.forward}, {kUp, kAhead});
    }

    const osg::Vec3d kUp{0, 0, 1};
    const osg::Vec3d kDown{0, 0, -1};
    const osg::Vec3d kLeft{1, 0, 0};
    const osg::Vec3d kAhead{0, -1, 0};
    const std::string& m_side;
    LimbJoints m_leg;
};

class ArmTurner : private LimbTurner
{
public:
    ArmTurner(RestTurns& turns, const PosedBody& body, const std::string& side)
        : LimbTurner(turns, body),
          m_outward(side == "Left" ? 1.0 : -1.0, 0, 0),
          m_hinge(0, 0, side == "Left" ? -1.0 : 1.0),
          m_side(side)
    {
        m_arm.upper = body.at(side + "Arm");
        m_arm.middle = body.at(side + "ForeArm");
        m_arm.end = endOf(body, side + "Hand", m_arm.middle);
    }

    void turn()
    {
        const std::size_t chest = commonAncestor(m_body.figure, m_body.at("LeftArm"), m_body.at("RightArm"));
        if (m_turns.count(chest) == 0)
            return;
        const osg::Vec3d upper = boneTo(m_arm.upper, m_arm.middle);
        const osg::Vec3d lower = boneTo(m_arm.middle, m_arm.end);
        const Hinge elbow = hingeOf(m_body.sample.poses, m_arm);
        m_turns[m_arm.upper] = elbow.isTrusted()
                                   ? byHinge(upper, elbow.axis, m_outward, m_hinge)
                                   : byShortestWay(m_arm.upper, chest, upper, m_outward, kUpright);
        if (m_arm.end == m_arm.middle)
            return;
        m_turns[m_arm.middle] = elbow.isTrusted()
                                    ? byHinge(lower, elbow.axisBelow, m_outward, m_hinge)
                                    : byShortestWay(m_arm.middle, m_arm.upper, lower, m_outward, kUpright);
        if (m_body.has(m_side + "Hand"))
            m_turns[m_arm.end] = meanTurnAgainst(m_body, m_arm.end, m_arm.middle) * m_turns.at(m_arm.middle);
    }

private:
    const osg::Vec3d kUpright{0, 0, 1};
    osg::Vec3d m_outward;
    osg::Vec3d m_hinge;  ///< with the palm down an elbow bends forward
    const std::string& m_side;
    LimbJoints m_arm;
};

}  // namespace

osg::Quat meanTurnAgainst(const PosedBody& body, std::size_t joint, std::size_t other)
{
    MeanTurn mean;
    for (const Placements& pose : body.sample.poses)
        mean.add(pose[joint].turn * pose[other].turn.conj());
    return mean.value();
}

void addLegTurns(RestTurns& turns, const PosedBody& body, const std::string& side)
{
    LegTurner(turns, body, side).turn();
}

void addArmTurns(RestTurns& turns, const PosedBody& body, const std::string& side)
{
    ArmTurner(turns, body, side).turn();
}

}  // namespace KivReader
