#include "tests/support/motionrewriting/movingfigure.h"

#include <algorithm>
#include <cmath>

namespace KivTestSupport {

namespace {

using KivReader::Channel;
using KivReader::MotionDocument;

constexpr double kRadiansPerDegree = 0.017453292519943295;

unsigned axisOf(Channel channel)
{
    return static_cast<unsigned>(channel) % 3;
}

bool isPosition(Channel channel)
{
    return channel < Channel::Xrotation;
}

osg::Vec3d axis(unsigned index)
{
    osg::Vec3d vector;
    vector[index] = 1.0;
    return vector;
}

osg::Vec3d vectorOf(const std::array<double, 3>& values)
{
    return osg::Vec3d(values[0], values[1], values[2]);
}

LocalPlace localPlace(const MotionDocument::Joint& joint, const float* row)
{
    LocalPlace place;
    place.move = vectorOf(joint.offset);
    for (std::size_t i = 0; i < joint.channels.size(); ++i) {
        const Channel channel = joint.channels[i];
        const double value = static_cast<double>(row[joint.firstColumn + i]);
        double& moved = place.move[axisOf(channel)];
        if (!isPosition(channel))
            place.turn = osg::Quat(value * kRadiansPerDegree, axis(axisOf(channel))) * place.turn;
        else
            moved = joint.positionsAreDeltas ? moved + value : value;
    }
    return place;
}

/// The joint's own order where it has three rotations about three axes, else the usual one.
std::array<unsigned, 3> orderOf(const MotionDocument::Joint& joint)
{
    std::vector<unsigned> axes;
    for (const Channel channel : joint.channels) {
        if (!isPosition(channel) && std::find(axes.begin(), axes.end(), axisOf(channel)) == axes.end())
            axes.push_back(axisOf(channel));
    }
    return axes.size() == 3 ? std::array<unsigned, 3>{{axes[0], axes[1], axes[2]}}
                            : std::array<unsigned, 3>{{2, 0, 1}};
}

/// Degrees about the three axes, the first one outermost.
std::array<double, 3> anglesOf(const osg::Quat& turn, const std::array<unsigned, 3>& order)
{
    const auto [i, j, k] = order;
    const std::array<osg::Vec3d, 3> columns = {turn * axis(0), turn * axis(1), turn * axis(2)};
    const auto m = [&](unsigned row, unsigned column) { return columns[column][row]; };
    const double parity = (i + 1) % 3 == j ? 1.0 : -1.0;
    const double cosine = std::hypot(m(i, i), m(i, j));
    std::array<double, 3> angles = {std::atan2(-parity * m(j, k), m(k, k)),
                                    std::atan2(parity * m(i, k), cosine),
                                    std::atan2(-parity * m(i, j), m(i, i))};
    if (cosine < 1e-9) {
        angles[0] = std::atan2(parity * m(k, j), m(j, j));
        angles[2] = 0.0;
    }
    for (double& angle : angles)
        angle /= kRadiansPerDegree;
    return angles;
}

void declareChannels(MotionDocument& document, MotionDocument::Joint& joint,
                     const MovingFigure::Joint& moving)
{
    joint.firstColumn = static_cast<std::uint32_t>(document.columns);
    if (moving.isEndSite)
        return;
    for (unsigned i = 0; moving.isMoved && i < 3; ++i)
        joint.channels.push_back(static_cast<Channel>(i));
    for (const unsigned about : moving.order)
        joint.channels.push_back(static_cast<Channel>(3 + about));
    document.columns += joint.channels.size();
}

void appendValues(std::vector<float>& values, const MovingFigure::Joint& joint, const LocalPlace& place)
{
    if (joint.isEndSite)
        return;
    for (unsigned i = 0; joint.isMoved && i < 3; ++i)
        values.push_back(static_cast<float>(place.move[i]));
    for (const double angle : anglesOf(place.turn, joint.order))
        values.push_back(static_cast<float>(angle));
}

}  // namespace

MovingFigure movingFigureOf(const MotionDocument& document)
{
    MovingFigure figure;
    for (const MotionDocument::Joint& joint : document.joints) {
        const bool isMoved = std::any_of(joint.channels.begin(), joint.channels.end(), isPosition);
        figure.joints.push_back(
            {joint.name, joint.parent, vectorOf(joint.offset), joint.endSite, isMoved, orderOf(joint)});
    }
    figure.frames = document.frames;
    figure.frameTime = document.frameTime;
    figure.hasMotion = document.hasMotion;
    for (std::size_t frame = 0; frame < document.frames; ++frame) {
        for (const MotionDocument::Joint& joint : document.joints)
            figure.places.push_back(localPlace(joint, document.values.data() + frame * document.columns));
    }
    return figure;
}

MotionDocument documentOf(const MovingFigure& figure)
{
    MotionDocument document;
    document.frames = figure.frames;
    document.frameTime = figure.frameTime;
    document.hasMotion = figure.hasMotion;
    for (const MovingFigure::Joint& moving : figure.joints) {
        MotionDocument::Joint joint;
        joint.name = moving.name;
        joint.parent = moving.parent;
        joint.offset = {moving.offset.x(), moving.offset.y(), moving.offset.z()};
        joint.endSite = moving.isEndSite;
        joint.line = document.joints.size() + 1;
        declareChannels(document, joint, moving);
        document.joints.push_back(joint);
    }
    for (std::size_t frame = 0; frame < figure.frames; ++frame) {
        for (std::size_t joint = 0; joint < figure.joints.size(); ++joint)
            appendValues(document.values, figure.joints[joint], figure.at(frame, joint));
    }
    return document;
}

MotionDocument withRowsAtMost(const MotionDocument& document, std::size_t rows)
{
    const std::size_t stride = std::max<std::size_t>(1, (document.frames + rows - 1) / rows);
    MotionDocument fewer = document;
    fewer.frameTime *= static_cast<double>(stride);
    fewer.frames = 0;
    fewer.values.clear();
    for (std::size_t frame = 0; frame < document.frames; frame += stride) {
        const auto row = document.values.begin() + static_cast<std::ptrdiff_t>(frame * document.columns);
        fewer.values.insert(fewer.values.end(), row, row + static_cast<std::ptrdiff_t>(document.columns));
        ++fewer.frames;
    }
    return fewer;
}

}  // namespace KivTestSupport
