#include <osg/Math>

#include <cstdint>
#include <random>

#include "tests/support/motionrewriting/movingfigure.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace KivTestSupport {

using KivReader::MotionDocument;

namespace {

/// The smallest turn that takes one direction of length 1 to another.
osg::Quat leastTurn(const osg::Vec3d& from, const osg::Vec3d& to)
{
    osg::Quat turn;
    turn.makeRotate(from, to);
    return turn;
}

}  // namespace

Rewriting withFramesTurned(const MotionDocument& document, const std::vector<osg::Quat>& turns)
{
    MovingFigure figure = movingFigureOf(document);
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        MovingFigure::Joint& joint = figure.joints[i];
        const osg::Quat above =
            joint.parent < 0 ? osg::Quat() : turns[static_cast<std::size_t>(joint.parent)].conj();
        joint.offset = above * joint.offset;
        for (std::size_t frame = 0; frame < figure.frames; ++frame) {
            LocalPlace& place = figure.at(frame, i);
            place.move = above * place.move;
            place.turn = turns[i] * place.turn * above;
        }
    }
    Rewriting rewriting;
    rewriting.document = documentOf(figure);
    for (std::size_t i = 0; i < figure.joints.size(); ++i)
        rewriting.joints.push_back(i);
    return rewriting;
}

std::vector<osg::Quat> anyTurns(const MotionDocument& document, unsigned seed)
{
    std::mt19937 random(seed);
    // Not std::uniform_real_distribution: its numbers differ from library to library.
    const auto number = [&] { return static_cast<double>(random()) / 4294967296.0 * 2.0 - 1.0; };
    std::vector<osg::Quat> turns;
    while (turns.size() < document.joints.size()) {
        const osg::Quat turn(number(), number(), number(), number());
        if (turn.length2() > 0.01 && turn.length2() < 1.0)
            turns.push_back(turn / turn.length());
    }
    return turns;
}

std::vector<osg::Quat> turnsToFrame(const MotionDocument& document, std::size_t frame)
{
    const MovingFigure figure = movingFigureOf(document);
    std::vector<osg::Quat> inWorld;
    for (std::size_t i = 0; i < figure.joints.size(); ++i) {
        const std::int32_t parent = figure.joints[i].parent;
        const osg::Quat above = parent < 0 ? osg::Quat() : inWorld[static_cast<std::size_t>(parent)];
        inWorld.push_back(figure.at(frame, i).turn * above);
    }
    for (osg::Quat& turn : inWorld)
        turn = turn.conj();
    return inWorld;
}

std::vector<osg::Quat> turnsAlongBones(const MotionDocument& document, const osg::Vec3d& axis)
{
    std::vector<osg::Quat> turns(document.joints.size());
    for (std::size_t i = document.joints.size(); i-- > 1;) {
        const std::array<double, 3>& offset = document.joints[i].offset;
        osg::Vec3d along(offset[0], offset[1], offset[2]);
        if (along.normalize() > 0.0)  // the first child is met last
            turns[static_cast<std::size_t>(document.joints[i].parent)] = leastTurn(axis, along);
    }
    return turns;
}

}  // namespace KivTestSupport
