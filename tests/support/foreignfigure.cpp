#include "tests/support/foreignfigure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <locale>
#include <sstream>

namespace KivTestSupport {

using KivFigure::Offset;

namespace {

constexpr std::array<double, 3> kPhases = {0.0, 1.0, -1.0};
constexpr double kStride = 25.0;  ///< degrees

bool isOfHand(const std::string& joint)
{
    return joint.find("Hand") != std::string::npos && joint != "LeftHand" && joint != "RightHand";
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

double swingOf(const std::string& joint, double phase)
{
    const double side = contains(joint, "Left") ? phase : -phase;
    if (contains(joint, "UpLeg"))
        return -kStride * side;
    if (contains(joint, "Leg"))
        return side < 0.0 ? kStride : 0.0;
    return 0.0;
}

}  // namespace

void ForeignFigure::leaveOutHands()
{
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints())
        if (isOfHand(joint.name))
            leaveOut(joint.name);
}

void ForeignFigure::place(const std::string& joint, const Offset& offset)
{
    m_offsets[joint] = offset;
}

void ForeignFigure::move(const std::string& joint, const Offset& by)
{
    Offset offset = offsetOf(*KivFigure::findRestJoint(joint));
    for (std::size_t i = 0; i < 3; ++i)
        offset[i] += by[i];
    m_offsets[joint] = offset;
}

void ForeignFigure::stretch(const std::string& part, double factor)
{
    for (const KivFigure::RestJoint& joint : KivFigure::restJoints()) {
        if (!contains(joint.name, part))
            continue;
        Offset offset = offsetOf(joint);
        for (double& value : offset)
            value *= factor;
        m_offsets[joint.name] = offset;
    }
}

std::string ForeignFigure::nameOf(const std::string& joint) const
{
    const auto known = m_names.find(joint);
    return known == m_names.end() ? joint : known->second;
}

Offset ForeignFigure::offsetOf(const KivFigure::RestJoint& joint) const
{
    const auto own = m_offsets.find(joint.name);
    Offset offset = own == m_offsets.end() ? joint.offset : own->second;
    const bool isOfArm = contains(joint.name, "ForeArm") || contains(joint.name, "Hand");
    if (m_armsHang && isOfArm)
        offset = {0.0, -std::fabs(offset[0]), offset[2]};
    return offset;
}

/// What hangs from a joint that is left out hangs from the one before, where it was.
std::vector<ForeignFigure::Joint> ForeignFigure::joints() const
{
    std::vector<Joint> list;
    std::map<std::string, int> index;
    std::map<std::string, Offset> behind;  // from the joint that is there to the one of the rest figure
    for (const KivFigure::RestJoint& rest : KivFigure::restJoints()) {
        Offset offset = rest.parent.empty() ? Offset{} : offsetOf(rest);
        const int parent = rest.parent.empty() ? -1 : index.at(rest.parent);
        for (std::size_t i = 0; !rest.parent.empty() && i < 3; ++i)
            offset[i] += behind[rest.parent][i];
        if (m_leftOut.count(rest.name) > 0) {
            index[rest.name] = parent;
            behind[rest.name] = offset;
            continue;
        }
        Joint joint{rest.name, nameOf(rest.name), parent, offset};
        if (const auto before = m_before.find(rest.name); before != m_before.end()) {
            list.push_back({"", before->second, parent, {}});
            joint.parent = static_cast<int>(list.size()) - 1;
        }
        index[rest.name] = static_cast<int>(list.size());
        list.push_back(joint);
    }
    return list;
}

std::string ForeignFigure::numbers(Offset offset) const
{
    if (m_isZUp)
        offset = {offset[0], -offset[2], offset[1]};
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(9);
    for (const double value : offset)
        text << ' ' << value / m_unit;
    return text.str();
}

std::string ForeignFigure::block(const std::vector<Joint>& joints, std::size_t index) const
{
    const Joint& joint = joints[index];
    std::string text = (joint.parent < 0 ? "ROOT " : "JOINT ") + joint.name + "\n{\nOFFSET" +
                       numbers(joint.offset) + "\nCHANNELS " +
                       (joint.parent < 0 ? "6 Xposition Yposition Zposition " : "3 ") +
                       "Zrotation Xrotation Yrotation\n";
    bool isLeaf = true;
    for (std::size_t i = index + 1; i < joints.size(); ++i) {
        if (joints[i].parent != static_cast<int>(index))
            continue;
        text += block(joints, i);
        isLeaf = false;
    }
    const auto end = std::find_if(KivFigure::restEnds().begin(), KivFigure::restEnds().end(),
                                  [&](const auto& rest) { return rest.parent == joint.restName; });
    if (isLeaf && m_hasEndSites)
        text += "End Site\n{\nOFFSET" +
                numbers(end == KivFigure::restEnds().end() ? Offset{0.0, 0.0, 0.0} : end->offset) + "\n}\n";
    return text + "}\n";
}

std::string ForeignFigure::row(const std::vector<Joint>& joints, double phase) const
{
    Offset root = offsetOf(KivFigure::restJoints().front());
    root[1] += m_lift;
    std::string text = numbers(root).substr(1);
    for (const Joint& joint : joints)
        text += " 0 " + std::to_string(static_cast<int>(swingOf(joint.restName, phase))) + " 0";
    return text + "\n";
}

std::string ForeignFigure::text() const
{
    const std::vector<Joint> all = joints();
    std::string text = "HIERARCHY\n" + block(all, 0) + "MOTION\nFrames: " + std::to_string(kPhases.size()) +
                       "\nFrame Time: 0.5\n";
    for (const double phase : kPhases)
        text += row(all, phase);
    return text;
}

}  // namespace KivTestSupport
