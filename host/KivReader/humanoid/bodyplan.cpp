#include "host/KivReader/humanoid/bodyplan.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/KivReader/humanoid/handplan.h"
#include "host/KivReader/humanoid/humanoidmeasure.h"
#include "host/KivReader/humanoid/restaxes.h"
#include "host/KivReader/humanoid/spineplan.h"
#include "host/KivReader/humanoid/spot.h"
#include "host/KivReader/humanoid/torsoplan.h"

namespace KivReader {

namespace {

constexpr double kOnTop = 0.004;        ///< of the height: joints as near as this coincide
constexpr double kShortShoulder = 0.3;  ///< of the avatar's proportion: shorter ones are none
constexpr double kLongShoulder = 1.25;  ///< longer ones begin at the spine
constexpr double kMostOfTheWay = 0.8;   ///< from between the arms: a shoulder begins no nearer there
constexpr double kStubbyFoot = 0.02;    ///< of the height: what is shorter points nowhere
constexpr double kSteepest = 0.85;      ///< sine: feet that point down more than this are made up
constexpr double kLevel = 0.09;         ///< sine: feet that point down less are drawn in one line
constexpr double kFootSplay = 60.0;     ///< degrees

const std::array<const char*, 2> kSides = {"Left", "Right"};

class BodyPlanner
{
public:
    explicit BodyPlanner(const BodySource& source)
        : m_source(source), m_heading(source.pose.heading), m_scale(source.height / source.avatar.height())
    {}

    BodyPlan plan()
    {
        const HipWidth width = hipWidth(m_source, m_heading);
        m_spots["Hips"] = hipsSpot(m_source, m_heading);
        findSpine(m_spots, m_source, m_heading, width.measured);
        for (const std::string side : kSides) {
            findShoulder(side);
            findLimbEnd(side + "Arm", side + "ForeArm", side + "Hand");
            findLimbEnd(side + "UpLeg", side + "Leg", side + "Foot");
        }
        for (const RestFigure::Joint& joint : m_source.avatar.joints) {
            if (m_spots.count(joint.name) > 0)
                add(joint);
        }
        for (const std::string side : kSides)
            planHand(m_plan, m_source, m_heading, side);
        boundHips(width);
        return std::move(m_plan);
    }

private:
    const osg::Vec3d& placeOf(const std::string& joint) { return m_spots[joint].place; }

    /// A shoulder that reaches from the spine to the arm is cut to the avatar's; one that is missing, or on
    /// the arm, stands on the way from between the arms.
    void findShoulder(const std::string& side)
    {
        const std::size_t arm = m_source.matching.at(side + "Arm");
        const osg::Vec3d& armPlace = m_source.rest[arm].place;
        const double usual = m_source.avatar.offset(side + "Arm").length() * m_scale;
        Spot spot;
        spot.source = m_source.figure.joints[arm].parent;
        spot.along = "LeftArm&RightArm";
        osg::Vec3d root = m_source.arms;
        double length = usual;
        if (m_source.matching.has(side + "Shoulder")) {
            const Spot own = spotOf(m_source, m_source.matching.at(side + "Shoulder"));
            const double ownLength = (armPlace - own.place).length();
            if (ownLength > kShortShoulder * usual) {
                spot = own;
                root = own.place;
                spot.isSource = ownLength < kLongShoulder * usual;
                spot.along = side + "Shoulder&" + side + "Arm";
            }
        }
        if (!spot.isSource) {
            osg::Vec3d outward = armPlace - root;
            length = std::min(length, outward.normalize() * kMostOfTheWay);
            spot.place = armPlace - outward * length;
        }
        m_spots[side + "Shoulder"] = spot;
    }

    /// The last joint of a limb may be missing: then the limb's end site stands for it.
    void findLimbEnd(const std::string& first, const std::string& second, const std::string& last)
    {
        m_spots[first] = spotOf(m_source, m_source.matching.at(first));
        m_spots[second] = spotOf(m_source, m_source.matching.at(second));
        if (m_source.matching.has(last)) {
            m_spots[last] = spotOf(m_source, m_source.matching.at(last));
            return;
        }
        const osg::Vec3d upper = placeOf(second) - placeOf(first);
        const osg::Vec3d tip = tipOf(m_source, m_source.matching.at(second));
        Spot spot;
        spot.source = m_spots[second].source;
        spot.along = second + "&" + second + "End";
        spot.place = tip;
        const double length = (tip - placeOf(second)).length();
        if (length < 0.5 * upper.length() || length > 1.5 * upper.length())
            spot.place = placeOf(second) + upper * (m_source.avatar.offset(last).length() /
                                                    m_source.avatar.offset(second).length());
        m_spots[last] = spot;
    }

    void add(const RestFigure::Joint& joint)
    {
        const Spot& spot = m_spots[joint.name];
        PlannedJoint planned;
        planned.name = joint.name;
        planned.source = spot.source;
        planned.place = spot.place;
        planned.isSource = spot.isSource;
        planned.along = spot.along;
        if (!joint.parent.empty()) {
            planned.parent = static_cast<std::int32_t>(m_plan.index.at(joint.parent));
            keepApart(planned, joint);
        }
        planned.turn = turnOf(planned) * m_heading;
        m_plan.index[planned.name] = m_plan.joints.size();
        m_plan.joints.push_back(planned);
    }

    /// A segment without length has no direction and no size to draw.
    void keepApart(PlannedJoint& planned, const RestFigure::Joint& joint) const
    {
        const PlannedJoint& parent = m_plan.joints[static_cast<std::size_t>(planned.parent)];
        if ((planned.place - parent.place).length() > kOnTop * m_source.height)
            return;
        planned.place = parent.place + parent.turn * joint.offset * (m_scale / 2.0);
        planned.isSource = false;
        planned.along = parent.name + ", for it coincided with it";
    }

    /// The thighs stay where they are; only what the torso is sized by is another width.
    void boundHips(const HipWidth& width)
    {
        PlannedJoint& left = m_plan.joints[m_plan.index.at("LeftUpLeg")];
        PlannedJoint& right = m_plan.joints[m_plan.index.at("RightUpLeg")];
        const double planned = (left.place - right.place).length();
        left.fitShift = width.toLeft * ((width.measured - planned) / 2.0);
        right.fitShift = -left.fitShift;
        m_plan.hips = width;
    }

    /// In the avatar's space, i.e. for a figure that stands and looks as the avatar does.
    osg::Vec3d seen(const osg::Vec3d& direction) const { return m_heading.conj() * direction; }

    osg::Vec3d seenTo(const PlannedJoint& from, const std::string& next)
    {
        return seen(placeOf(next) - from.place);
    }

    osg::Quat turnOf(const PlannedJoint& planned)
    {
        static const std::map<std::string, std::string> s_alone = {
            {"Shoulder", "Arm"}, {"Arm", "ForeArm"}, {"UpLeg", "Leg"}};
        static const std::map<std::string, std::string> s_withParent = {{"ForeArm", "Hand"}, {"Leg", "Foot"}};
        const std::size_t length = planned.name.rfind("Left", 0) == 0    ? 4
                                   : planned.name.rfind("Right", 0) == 0 ? 5
                                                                         : 0;
        if (length == 0)
            return {};  // at rest the trunk is upright and the head looks ahead
        const std::string side = planned.name.substr(0, length);
        const std::string part = planned.name.substr(length);
        if (const auto next = s_alone.find(part); next != s_alone.end())
            return leastTurn(m_source.avatar.offset(side + next->second),
                             seenTo(planned, side + next->second), halfTurnAxis(part));
        if (const auto next = s_withParent.find(part); next != s_withParent.end())
            return carriedOn(planned, m_source.avatar.offset(side + next->second),
                             seenTo(planned, side + next->second), halfTurnAxis(part));
        if (part == "Foot")
            return footTurn(planned);
        return parentTurn(planned);
    }

    static osg::Vec3d halfTurnAxis(const std::string& part)
    {
        return part == "UpLeg" || part == "Leg" ? osg::Vec3d(1, 0, 0) : osg::Vec3d(0, 1, 0);
    }

    osg::Quat parentTurn(const PlannedJoint& planned) const
    {
        return m_plan.joints[static_cast<std::size_t>(planned.parent)].turn * m_heading.conj();
    }

    /// An elbow or a knee bends from where its limb points, without twisting it.
    osg::Quat carriedOn(const PlannedJoint& planned, const osg::Vec3d& avatar, const osg::Vec3d& direction,
                        const osg::Vec3d& axis) const
    {
        const osg::Quat parent = parentTurn(planned);
        return parent * leastTurn(parent * avatar, direction, axis);
    }

    /// Feet stand flat at rest, however high their joint is; only a foot that is drawn as one level line from
    /// the ankle is turned so that its line is the avatar's.
    osg::Quat footTurn(const PlannedJoint& planned) const
    {
        if (!planned.isSource)
            return {};
        const auto joint = static_cast<std::size_t>(planned.source);
        const osg::Vec3d foot = seen(tipOf(m_source, joint) - planned.place);
        const osg::Vec3d flat(foot.x(), foot.y(), 0.0);
        if (foot.length() < kStubbyFoot * m_source.height || -foot.z() > kSteepest * foot.length() ||
            !isWithin(flat, osg::Vec3d(0, -1, 0), kFootSplay))
            return {};
        const osg::Quat splay(std::atan2(flat.x(), -flat.y()), osg::Vec3d(0, 0, 1));
        if (m_source.pose.solesAreLevel || -foot.z() > kLevel * foot.length())
            return splay;
        return splay * leastTurn(splay * m_source.avatar.ends.at(planned.name), foot, osg::Vec3d(1, 0, 0));
    }

    const BodySource& m_source;
    osg::Quat m_heading;
    double m_scale;  ///< of the avatar's lengths
    Spots m_spots;
    BodyPlan m_plan;
};

}  // namespace

BodyPlan planBody(const BodySource& source)
{
    return BodyPlanner(source).plan();
}

}  // namespace KivReader
