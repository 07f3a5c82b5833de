#include "host/KivReader/humanoid/handplan.h"

#include <array>

#include "host/KivReader/humanoid/restaxes.h"
#include "host/KivReader/humanoid/spot.h"

namespace KivReader {

namespace {

const std::array<const char*, 5> kFingers = {"Thumb", "Index", "Middle", "Ring", "Pinky"};

constexpr double kNearest = 0.4;  ///< of the avatar's proportion: a knuckle is between these from the wrist
constexpr double kFarthest = 2.0;
constexpr double kStubby = 0.01;     ///< of the height: what is shorter points nowhere
constexpr double kBentWrist = 60.0;  ///< degrees

class HandPlanner
{
public:
    HandPlanner(BodyPlan& plan, const BodySource& source, const osg::Quat& heading, std::string side)
        : m_plan(plan),
          m_source(source),
          m_heading(heading),
          m_side(std::move(side)),
          m_hand(plan.index.at(m_side + "Hand")),
          m_scale(source.height / source.avatar.height())
    {}

    void plan()
    {
        turnHand();
        for (const std::string finger : kFingers)
            addFinger(finger);
    }

private:
    std::string named(const std::string& part) const { return m_side + "Hand" + part; }
    const PlannedJoint& hand() const { return m_plan.joints[m_hand]; }

    /// From the wrist, on the avatar.
    osg::Vec3d avatarTo(const std::string& joint) const
    {
        return m_source.avatar.place(joint) - m_source.avatar.place(m_side + "Hand");
    }
    osg::Vec3d fileTo(const std::string& joint) const
    {
        return m_heading.conj() * (m_source.rest[m_source.matching.at(joint)].place - hand().place);
    }

    /// A joint in the middle of the palm that stands for all fingers is no knuckle.
    bool hasFinger(const std::string& finger) const
    {
        const std::string first = named(finger + "1");
        if (!m_source.matching.has(first))
            return false;
        const double length = fileTo(first).length();
        const double proportion = avatarTo(first).length() * m_scale;
        return length > kNearest * proportion && length < kFarthest * proportion;
    }

    /// Towards the knuckles, as far as the file has them.
    Pair knuckles(bool ofAvatar) const
    {
        Pair pair;
        for (const std::string finger : {"Index", "Middle", "Ring", "Pinky"}) {
            if (!hasFinger(finger))
                continue;
            osg::Vec3d direction = ofAvatar ? avatarTo(named(finger + "1")) : fileTo(named(finger + "1"));
            direction.normalize();
            pair.first += direction;
        }
        if (hasFinger("Index") && hasFinger("Pinky"))
            pair.second = ofAvatar ? avatarTo(named("Index1")) - avatarTo(named("Pinky1"))
                                   : fileTo(named("Index1")) - fileTo(named("Pinky1"));
        else if (m_source.matching.has(named("Thumb1")))
            pair.second =
                ofAvatar ? avatarTo(named("Thumb3")) + m_source.avatar.ends.at(named("Thumb3")) : thumb();
        return pair;
    }

    osg::Vec3d thumb() const
    {
        return m_heading.conj() * (tipOf(m_source, m_source.matching.at(named("Thumb1"))) - hand().place);
    }

    /// Without knuckles a hand goes on as its arm does, or to its end site.
    osg::Vec3d straightOn(const osg::Quat& arm) const
    {
        const osg::Vec3d along = arm * m_source.avatar.offset(m_side + "Hand");
        for (std::size_t i = 0; hand().isSource && i < m_source.figure.joints.size(); ++i) {
            const MotionFigure::Joint& child = m_source.figure.joints[i];
            if (child.parent != hand().source || isThumb(i))
                continue;
            const osg::Vec3d end = m_heading.conj() * (tipOf(m_source, i) - hand().place);
            if (end.length() > kStubby * m_source.height && isWithin(along, end, kBentWrist))
                return end;
        }
        return along;
    }

    bool isThumb(std::size_t joint) const
    {
        const auto thumbJoint = m_source.matching.joints.find(named("Thumb1"));
        return thumbJoint != m_source.matching.joints.end() && thumbJoint->second == joint;
    }

    void turnHand()
    {
        const osg::Quat arm = m_plan.at(m_side + "ForeArm").turn * m_heading.conj();
        Pair avatar = knuckles(true);
        Pair file = knuckles(false);
        if (file.first.length2() == 0.0) {
            avatar.first = m_source.avatar.offset(m_side + "Hand");
            file.first = straightOn(arm);
        }
        const bool thumbTells = file.second.length() > kStubby * m_source.height;
        const osg::Quat turn = thumbTells && avatar.isTelling() && file.isTelling()
                                   ? turnBetween(avatar, file)
                                   : arm * leastTurn(arm * avatar.first, file.first, osg::Vec3d(0, 1, 0));
        m_plan.joints[m_hand].turn = turn * m_heading;
    }

    void add(const std::string& name, const std::string& parent, const Spot& spot, const osg::Quat& turn)
    {
        PlannedJoint planned;
        planned.name = name;
        planned.parent = static_cast<std::int32_t>(m_plan.index.at(parent));
        planned.source = spot.source;
        planned.place = spot.place;
        planned.isSource = spot.isSource;
        planned.along = spot.along;
        planned.turn = turn;
        m_plan.index[name] = m_plan.joints.size();
        m_plan.joints.push_back(planned);
    }

    /// As the avatar's joint stands to its parent, rigid with what the parent is rigid with.
    void addRigid(const std::string& name)
    {
        const RestFigure::Joint& joint = m_source.avatar.joint(name);
        const PlannedJoint parent = m_plan.at(joint.parent);
        Spot spot;
        spot.source = parent.source;
        spot.place = parent.place + parent.turn * joint.offset * m_scale;
        spot.along = joint.parent;
        add(name, joint.parent, spot, parent.turn);
    }

    void addFinger(const std::string& finger)
    {
        const bool isReal = hasFinger(finger);
        if (finger != "Thumb")
            addMetacarpal(finger, isReal);
        for (const char* phalanx : {"1", "2", "3"}) {
            const std::string name = named(finger + phalanx);
            if (isReal && hasPhalanx(name))
                addPhalanx(name);
            else if (isReal && phalanx[0] != '1')
                addTowardsTip(name, finger);
            else
                addRigid(name);
        }
    }

    void addMetacarpal(const std::string& finger, bool isReal)
    {
        const std::string name = m_side + "InHand" + finger;
        if (!isReal) {
            addRigid(name);
            return;
        }
        const std::string first = named(finger + "1");
        const osg::Vec3d knuckle = m_source.rest[m_source.matching.at(first)].place;
        if (m_source.matching.has(name)) {
            const Spot spot = spotOf(m_source, m_source.matching.at(name));
            if (isApart(spot.place, hand().place) && isApart(spot.place, knuckle)) {
                add(name, m_side + "Hand", spot, hand().turn);
                return;
            }
        }
        const double part = m_source.avatar.offset(name).length() /
                            (m_source.avatar.offset(name).length() + m_source.avatar.offset(first).length());
        Spot spot;
        spot.source = hand().source;
        spot.place = hand().place + (knuckle - hand().place) * part;
        spot.along = m_side + "Hand&" + first;
        add(name, m_side + "Hand", spot, hand().turn);
    }

    bool isApart(const osg::Vec3d& a, const osg::Vec3d& b) const
    {
        return (a - b).length() > 0.1 * kStubby * m_source.height;
    }

    bool hasPhalanx(const std::string& name) const
    {
        return m_source.matching.has(name) && isApart(m_source.rest[m_source.matching.at(name)].place,
                                                      m_plan.at(m_source.avatar.joint(name).parent).place);
    }

    void addPhalanx(const std::string& name)
    {
        const std::string& parent = m_source.avatar.joint(name).parent;
        const std::size_t joint = m_source.matching.at(name);
        const Spot spot = spotOf(m_source, joint);
        const std::string next = name.substr(0, name.size() - 1) + static_cast<char>(name.back() + 1);
        const bool isLast = m_source.avatar.ends.count(name) > 0;
        const osg::Vec3d& avatar = isLast ? m_source.avatar.ends.at(name) : m_source.avatar.offset(next);
        const osg::Vec3d end = !isLast && m_source.matching.has(next)
                                   ? m_source.rest[m_source.matching.at(next)].place
                                   : tipOf(m_source, joint);
        osg::Quat turn = m_plan.at(name.back() == '1' ? m_side + "Hand" : parent).turn;
        if (isApart(end, spot.place))
            turn = turn * leastTurn(turn * avatar, end - spot.place, turn * osg::Vec3d(0, 1, 0));
        add(name, parent, spot, turn);
    }

    /// A finger with too few joints: the missing ones on the way from its last one to its tip.
    void addTowardsTip(const std::string& name, const std::string& finger)
    {
        const PlannedJoint parent = m_plan.at(m_source.avatar.joint(name).parent);
        const osg::Vec3d tip = tipOf(m_source, static_cast<std::size_t>(parent.source));
        if (!isApart(tip, parent.place)) {
            addRigid(name);
            return;
        }
        double rest = m_source.avatar.ends.at(named(finger + "3")).length();
        for (char phalanx = '3'; phalanx >= name.back(); --phalanx)
            rest += m_source.avatar.offset(named(finger + phalanx)).length();
        Spot spot;
        spot.source = parent.source;
        spot.place = parent.place + (tip - parent.place) * (m_source.avatar.offset(name).length() / rest);
        spot.along = parent.name + "&" + parent.name + "End";
        add(name, parent.name, spot, parent.turn);
    }

    BodyPlan& m_plan;
    const BodySource& m_source;
    osg::Quat m_heading;
    std::string m_side;
    std::size_t m_hand;
    double m_scale;
};

}  // namespace

void planHand(BodyPlan& plan, const BodySource& source, const osg::Quat& heading, const std::string& side)
{
    HandPlanner(plan, source, heading, side).plan();
}

}  // namespace KivReader
