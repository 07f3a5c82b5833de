#include "KivFrameData/centreofmass.h"

#include <algorithm>
#include <initializer_list>

namespace KivFrameData {

namespace {

using JointNames = std::initializer_list<const char*>;

/// Joint names in order of preference; masses in percent of the body's; the centre as a share of the way from
/// the first point to the second.
struct Part
{
    JointNames from;
    JointNames to;
    double mass;
    double centre;
};

// Head and trunk are measured from the seventh neck vertebra, which is where motion skeletons have their neck
// joint.
const Part kHead{{"Neck", "Head"}, {"HeadEnd", "Head"}, 6.81, 0.508};
constexpr double kTrunkMass = 43.015;
constexpr double kTrunkCentre = 0.505;

/// Names without their side.
const std::array<Part, 6> kLimbs{{{{"Arm"}, {"ForeArm"}, 2.630, 0.576},
                                  {{"ForeArm"}, {"Hand"}, 1.500, 0.457},
                                  {{"Hand"}, {"HandMiddle1", "HandEnd", "Hand"}, 0.585, 0.769},
                                  {{"UpLeg"}, {"Leg"}, 14.470, 0.385},
                                  {{"Leg"}, {"Foot"}, 4.570, 0.444},
                                  {{"Foot"}, {"ToeBaseEnd", "ToeBase", "FootEnd", "Foot"}, 1.330, 0.421}}};

class Joints
{
public:
    explicit Joints(const std::vector<std::string>& names) : m_names(names) {}

    std::optional<std::size_t> find(const std::string& name) const
    {
        const auto found = std::find(m_names.begin(), m_names.end(), name);
        if (found == m_names.end())
            return std::nullopt;
        return static_cast<std::size_t>(found - m_names.begin());
    }

    std::optional<std::size_t> first(const std::string& side, const JointNames& names) const
    {
        for (const char* name : names)
            if (const auto joint = find(side + name))
                return joint;
        return std::nullopt;
    }

private:
    const std::vector<std::string>& m_names;
};

}  // namespace

CentreOfMass::CentreOfMass(const std::vector<std::string>& joints)
{
    const Joints known(joints);
    const auto add = [this](std::size_t from, std::size_t to, const Part& part) {
        m_segments.push_back({{from, from}, {to, to}, part.mass, part.centre});
    };
    const auto neck = known.first("", {"Neck", "Head"});
    const auto leftHip = known.find("LeftUpLeg");
    const auto rightHip = known.find("RightUpLeg");
    if (neck && leftHip && rightHip)
        m_segments.push_back({{*neck, *neck}, {*leftHip, *rightHip}, kTrunkMass, kTrunkCentre});
    const auto headFrom = known.first("", kHead.from);
    const auto headTo = known.first("", kHead.to);
    if (headFrom && headTo)
        add(*headFrom, *headTo, kHead);
    int thighs = 0;
    for (const char* side : {"Left", "Right"}) {
        for (const Part& part : kLimbs) {
            const auto from = known.first(side, part.from);
            const auto to = known.first(side, part.to);
            if (!from || !to)
                continue;
            add(*from, *to, part);
            thighs += &part == &kLimbs[3] ? 1 : 0;
        }
    }
    for (const Segment& segment : m_segments)
        m_mass += segment.mass;
    m_complete = neck && leftHip && rightHip && thighs == 2;
}

std::optional<osg::Vec3d> CentreOfMass::of(const std::vector<osg::Vec3d>& positions) const
{
    if (!m_complete)
        return std::nullopt;
    osg::Vec3d sum;
    for (const Segment& segment : m_segments) {
        const osg::Vec3d from = (positions[segment.from[0]] + positions[segment.from[1]]) * 0.5;
        const osg::Vec3d to = (positions[segment.to[0]] + positions[segment.to[1]]) * 0.5;
        sum += (from + (to - from) * segment.centre) * segment.mass;
    }
    return sum / m_mass;
}

}  // namespace KivFrameData
