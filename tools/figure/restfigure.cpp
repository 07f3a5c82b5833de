#include "tools/figure/restfigure.h"

#include <stdexcept>

namespace KivFigure {

namespace {

struct Phalanges
{
    const char* name;
    Offset metacarpal, knuckle, second, third, tip;
};

constexpr Phalanges kFingers[] = {
    {"Index", {3.2, 0.3, 2.1}, {6.3, -0.1, 0.8}, {3.9, 0, 0.1}, {2.3, 0, 0}, {1.9, 0, 0}},
    {"Middle", {3.4, 0.5, 0.7}, {6.2, 0, 0.15}, {4.3, 0, 0}, {2.7, 0, 0}, {2.0, 0, 0}},
    {"Ring", {3.2, 0.3, -0.8}, {5.7, 0, -0.45}, {4.0, 0, -0.1}, {2.5, 0, 0}, {1.9, 0, 0}},
    {"Pinky", {2.8, 0, -2.1}, {5.2, -0.1, -1.0}, {3.1, 0, -0.15}, {1.8, 0, 0}, {1.7, 0, 0}},
};

class Sides
{
public:
    explicit Sides(bool left) : m_prefix(left ? "Left" : "Right"), m_sign(left ? 1.0 : -1.0) {}

    std::string name(const std::string& part) const { return m_prefix + part; }
    Offset offset(const Offset& left) const { return {m_sign * left[0], left[1], left[2]}; }
    RestJoint joint(const std::string& part, const std::string& parent, const Offset& left) const
    {
        return {name(part), parent, offset(left)};
    }

private:
    std::string m_prefix;
    double m_sign;
};

void addLeg(std::vector<RestJoint>& joints, const Sides& side)
{
    joints.push_back(side.joint("UpLeg", "Hips", {9, -3.5, 0}));
    joints.push_back(side.joint("Leg", side.name("UpLeg"), {0, -43, 0}));
    joints.push_back(side.joint("Foot", side.name("Leg"), {0, -41, 0}));
}

void addHand(std::vector<RestJoint>& joints, const Sides& side)
{
    const std::string hand = side.name("Hand");
    joints.push_back(side.joint("HandThumb1", hand, {2.2, -0.8, 2.4}));
    joints.push_back(side.joint("HandThumb2", side.name("HandThumb1"), {3.2, -0.7, 2.6}));
    joints.push_back(side.joint("HandThumb3", side.name("HandThumb2"), {2.6, -0.2, 1.6}));
    for (const Phalanges& finger : kFingers) {
        const std::string name = finger.name;
        joints.push_back(side.joint("InHand" + name, hand, finger.metacarpal));
        joints.push_back(side.joint("Hand" + name + "1", side.name("InHand" + name), finger.knuckle));
        joints.push_back(side.joint("Hand" + name + "2", side.name("Hand" + name + "1"), finger.second));
        joints.push_back(side.joint("Hand" + name + "3", side.name("Hand" + name + "2"), finger.third));
    }
}

void addArm(std::vector<RestJoint>& joints, const Sides& side)
{
    joints.push_back(side.joint("Shoulder", "Spine3", {4, 6.5, 0}));
    joints.push_back(side.joint("Arm", side.name("Shoulder"), {13, -1.5, 0}));
    joints.push_back(side.joint("ForeArm", side.name("Arm"), {28, 0, 0}));
    joints.push_back(side.joint("Hand", side.name("ForeArm"), {25, 0, 0}));
    addHand(joints, side);
}

std::vector<RestJoint> makeJoints()
{
    std::vector<RestJoint> joints;
    joints.push_back({"Hips", "", {0, 96, 0}});
    addLeg(joints, Sides(true));
    addLeg(joints, Sides(false));
    joints.push_back({"Spine", "Hips", {0, 9.5, 0}});
    joints.push_back({"Spine1", "Spine", {0, 10.5, 0}});
    joints.push_back({"Spine2", "Spine1", {0, 10.5, 0}});
    joints.push_back({"Spine3", "Spine2", {0, 10.5, 0}});
    joints.push_back({"Neck", "Spine3", {0, 12, -0.8}});
    joints.push_back({"Head", "Neck", {0, 9, 1.3}});
    addArm(joints, Sides(true));
    addArm(joints, Sides(false));
    return joints;
}

std::vector<RestJoint> makePropsJoints()
{
    const Offset underThePalm = {8.2, -7.6, 0.6};
    return {Sides(true).joint("Props", "LeftHand", underThePalm),
            Sides(false).joint("Props", "RightHand", underThePalm)};
}

std::vector<RestEnd> makeEnds()
{
    std::vector<RestEnd> ends;
    ends.push_back({"Head", {0, 17, 0}});
    for (const Sides& side : {Sides(true), Sides(false)}) {
        ends.push_back({side.name("Foot"), side.offset({0, -6.5, 17.5})});
        ends.push_back({side.name("HandThumb3"), side.offset({2.1, -0.1, 1.1})});
        for (const Phalanges& finger : kFingers)
            ends.push_back({side.name("Hand" + std::string(finger.name) + "3"), side.offset(finger.tip)});
    }
    return ends;
}

}  // namespace

const std::vector<RestJoint>& restJoints()
{
    static const std::vector<RestJoint> joints = makeJoints();
    return joints;
}

const std::vector<RestJoint>& propsJoints()
{
    static const std::vector<RestJoint> joints = makePropsJoints();
    return joints;
}

const std::vector<RestEnd>& restEnds()
{
    static const std::vector<RestEnd> ends = makeEnds();
    return ends;
}

const RestJoint* findRestJoint(const std::string& name)
{
    for (const auto* table : {&restJoints(), &propsJoints()})
        for (const RestJoint& joint : *table)
            if (joint.name == name)
                return &joint;
    return nullptr;
}

Offset restPosition(const std::string& name)
{
    Offset position = {0, 0, 0};
    std::string current = name;
    while (!current.empty()) {
        const RestJoint* joint = findRestJoint(current);
        if (!joint)
            throw std::invalid_argument("no joint of the rest figure is named '" + current + "'");
        for (std::size_t i = 0; i < position.size(); ++i)
            position[i] += joint->offset[i];
        current = joint->parent;
    }
    return position;
}

}  // namespace KivFigure
