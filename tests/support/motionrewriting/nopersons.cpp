#include "tests/support/motionrewriting/nopersons.h"

#include <cmath>
#include <limits>
#include <set>
#include <string>

#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/plantedtwins.h"

namespace KivTestSupport {

namespace {

using KivReader::MotionDocument;

constexpr std::size_t kFrames = 30;

/// Still, its root at a height, with frames to be filled.
MovingFigure figureOf(std::vector<MovingFigure::Joint> joints, double height)
{
    MovingFigure figure;
    figure.joints = std::move(joints);
    figure.joints.front().isMoved = true;
    figure.frames = kFrames;
    figure.frameTime = 1.0 / 30.0;
    figure.hasMotion = true;
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        for (const MovingFigure::Joint& joint : figure.joints)
            figure.places.push_back({joint.offset, osg::Quat()});
        figure.at(frame, 0).move = osg::Vec3d(0.0, height, 0.0);
    }
    return figure;
}

/// A swing from frame to frame, each joint a little behind the one before.
void swing(MovingFigure& figure, double radians, const osg::Vec3d& about)
{
    for (std::size_t frame = 0; frame < figure.frames; ++frame) {
        for (std::size_t i = 1; i < figure.joints.size(); ++i) {
            const double phase = 0.4 * static_cast<double>(frame) - 0.5 * static_cast<double>(i);
            figure.at(frame, i).turn = osg::Quat(radians * std::sin(phase), about);
        }
    }
}

std::int32_t add(std::vector<MovingFigure::Joint>& joints, const std::string& name, std::int32_t parent,
                 const osg::Vec3d& offset)
{
    MovingFigure::Joint joint;
    joint.name = name;
    joint.parent = parent;
    joint.offset = offset;
    joints.push_back(joint);
    return static_cast<std::int32_t>(joints.size()) - 1;
}

/// The figure without these joints and all that hangs from them.
MovingFigure without(const MovingFigure& figure, const std::set<std::string>& names)
{
    MovingFigure rest = figure;
    rest.joints.clear();
    rest.places.clear();
    std::vector<std::int32_t> placeOf(figure.joints.size(), -1);
    std::vector<std::size_t> kept;
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        MovingFigure::Joint joint = figure.joints[i];
        const bool hangsFromGone = joint.parent >= 0 && placeOf[static_cast<std::size_t>(joint.parent)] < 0;
        if (hangsFromGone || names.count(joint.name) > 0)
            continue;
        if (joint.parent >= 0)
            joint.parent = placeOf[static_cast<std::size_t>(joint.parent)];
        placeOf[i] = static_cast<std::int32_t>(kept.size());
        kept.push_back(i);
        rest.joints.push_back(joint);
    }
    for (std::size_t frame = 0; frame < figure.frames; ++frame) {
        for (const std::size_t joint : kept)
            rest.places.push_back(figure.at(frame, joint));
    }
    return rest;
}

}  // namespace

MotionDocument oneJoint()
{
    std::vector<MovingFigure::Joint> joints;
    add(joints, "Hips", -1, {});
    return documentOf(figureOf(joints, 90.0));
}

MotionDocument walkWithoutOffsets()
{
    MotionDocument document = walk();
    for (MotionDocument::Joint& joint : document.joints)
        joint.offset = {};
    return document;
}

MotionDocument walkWithRowsOfNoNumbers()
{
    MotionDocument document = walk();
    for (const std::size_t row : {std::size_t(0), document.frames / 2, document.frames - 1}) {
        for (std::size_t column = 0; column < document.columns; column += 3)
            document.values[row * document.columns + column] = std::numeric_limits<float>::quiet_NaN();
    }
    return document;
}

MotionDocument bush(std::size_t count)
{
    std::vector<MovingFigure::Joint> joints;
    add(joints, "bush", -1, {});
    for (std::size_t i = 1; i < count; ++i) {
        const auto angle = static_cast<double>(i) * 2.4;
        add(joints, "twig" + std::to_string(i), static_cast<std::int32_t>((i - 1) * 2 / 5),
            {8.0 * std::cos(angle), 5.0 + static_cast<double>(i % 7), 8.0 * std::sin(angle)});
    }
    MovingFigure figure = figureOf(joints, 0.0);
    swing(figure, 0.1, {1.0, 0.0, 0.0});
    return documentOf(figure);
}

MotionDocument snake()
{
    std::vector<MovingFigure::Joint> joints;
    add(joints, "head", -1, {});
    for (std::int32_t i = 0; i < 60; ++i)
        add(joints, "body" + std::to_string(i), i, {0.0, 0.0, -5.0});
    MovingFigure figure = figureOf(joints, 3.0);
    swing(figure, 0.3, {0.0, 1.0, 0.0});
    return documentOf(figure);
}

MotionDocument dog()
{
    std::vector<MovingFigure::Joint> joints;
    const std::int32_t hips = add(joints, "pelvis", -1, {});
    std::int32_t back = hips;
    for (int i = 1; i <= 3; ++i)
        back = add(joints, "spine" + std::to_string(i), back, {0.0, 0.0, 18.0});
    const std::int32_t neck = add(joints, "neck", back, {0.0, 8.0, 10.0});
    add(joints, "jaw", add(joints, "head", neck, {0.0, 10.0, 12.0}), {0.0, -2.0, 14.0});
    for (const auto& [side, x] : {std::pair("l", 7.0), std::pair("r", -7.0)}) {
        for (const auto& [which, above] : {std::pair("hind", hips), std::pair("fore", back)}) {
            const std::string limb = std::string(side) + "_" + which;
            std::int32_t joint = add(joints, limb + "_upper", above, {x, -4.0, 0.0});
            joint = add(joints, limb + "_lower", joint, {0.0, -18.0, 4.0});
            joint = add(joints, limb + "_pastern", joint, {0.0, -16.0, -6.0});
            add(joints, limb + "_paw", joint, {0.0, -10.0, 5.0});
        }
    }
    std::int32_t tail = hips;
    for (int i = 1; i <= 4; ++i)
        tail = add(joints, "tail" + std::to_string(i), tail, {0.0, 2.0, -8.0});
    MovingFigure figure = figureOf(joints, 50.0);
    swing(figure, 0.25, {1.0, 0.0, 0.0});
    return documentOf(figure);
}

MotionDocument twoPeople()
{
    const MovingFigure one = movingFigureOf(walk());
    std::vector<MovingFigure::Joint> joints;
    add(joints, "Scene", -1, {});
    const std::size_t count = one.joints.size();
    for (std::size_t person = 0; person < 2; ++person) {
        for (MovingFigure::Joint joint : one.joints) {
            joint.parent =
                joint.parent < 0 ? 0 : joint.parent + 1 + static_cast<std::int32_t>(person * count);
            joints.push_back(joint);
        }
    }
    MovingFigure both = one;
    both.joints = joints;
    both.places.clear();
    for (std::size_t frame = 0; frame < one.frames; ++frame) {
        both.places.emplace_back();
        for (std::size_t person = 0; person < 2; ++person) {
            for (std::size_t i = 0; i < count; ++i) {
                both.places.push_back(one.at(frame, i));
                if (i == 0)
                    both.places.back().move.x() += person == 0 ? -60.0 : 60.0;
            }
        }
    }
    return documentOf(both);
}

MotionDocument personWithoutArms()
{
    return documentOf(without(movingFigureOf(walk()), {"LeftShoulder", "RightShoulder"}));
}

MotionDocument bust()
{
    return documentOf(without(movingFigureOf(walk()), {"LeftUpLeg", "RightUpLeg"}));
}

MotionDocument handAlone()
{
    std::vector<MovingFigure::Joint> joints;
    add(joints, "wrist", -1, {});
    const char* const names[] = {"thumb", "index", "middle", "ring", "pinky"};
    for (int finger = 0; finger < 5; ++finger) {
        std::int32_t joint = 0;
        for (int i = 1; i <= 3; ++i) {
            const osg::Vec3d offset = i > 1        ? osg::Vec3d(3.0, 0.0, 0.0)
                                      : finger > 0 ? osg::Vec3d(9.0, 0.0, 4.0 - 2.0 * finger)
                                                   : osg::Vec3d(3.0, -1.0, 4.0);
            joint = add(joints, names[finger] + std::to_string(i), joint, offset);
        }
    }
    MovingFigure figure = figureOf(joints, 0.0);
    swing(figure, 0.3, {0.0, 0.0, 1.0});
    return documentOf(figure);
}

}  // namespace KivTestSupport
