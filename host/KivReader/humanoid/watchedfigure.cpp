#include "host/KivReader/humanoid/watchedfigure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KivReader {

namespace {

constexpr std::size_t kPoses = 40;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kLow = 0.03;   ///< of the height: a foot that stands is no higher above the lowest
constexpr double kBent = 0.04;  ///< of the height: how far a knee is off the line, at least
constexpr std::size_t kFewPoses = 3;
constexpr double kClearlyBelow = 0.05;  ///< of the height

const osg::Vec3d kUp(0, 0, 1);
const osg::Vec3d kAhead(0, -1, 0);

/// Which value so large a part of them lies below; 0 for no values.
double quantile(std::vector<double> values, double part)
{
    if (values.empty())
        return 0.0;
    const auto nth = values.begin() + static_cast<std::ptrdiff_t>(part * double(values.size() - 1));
    std::nth_element(values.begin(), nth, values.end());
    return *nth;
}

double median(std::vector<double> values)
{
    return quantile(std::move(values), 0.5);
}

double angle(const osg::Vec3d& a, const osg::Vec3d& b)
{
    return std::atan2((a ^ b).length(), a * b) * kDegreesPerRadian;
}

std::vector<std::size_t> framesToWatch(const MotionDocument& document,
                                       const std::vector<std::size_t>& leftOut)
{
    std::vector<std::size_t> frames;
    const std::size_t stride = std::max<std::size_t>(1, (document.frames + kPoses - 1) / kPoses);
    for (std::size_t frame = 0; frame < document.frames; frame += stride) {
        if (!std::binary_search(leftOut.begin(), leftOut.end(), frame))
            frames.push_back(frame);
    }
    return frames;
}

Placements standingStill(const MotionFigure& figure)
{
    Placements placements;
    for (const MotionFigure::Joint& joint : figure.joints) {
        Placement placement;
        placement.place = joint.offset;
        if (joint.parent >= 0)
            placement.place += placements[static_cast<std::size_t>(joint.parent)].place;
        placements.push_back(placement);
    }
    return placements;
}

}  // namespace

WatchedFigure::WatchedFigure(const MotionDocument& document, const MotionFigure& figure,
                             const RestFigure& avatar, const std::vector<std::size_t>& leftOut)
    : m_figure(figure), m_avatar(avatar)
{
    for (std::size_t i = 0; i < figure.joints.size(); ++i)
        m_index.emplace(figure.joints[i].name, i);
    for (const std::size_t frame : framesToWatch(document, leftOut))
        m_poses.push_back(placed(figure, document.values.data() + frame * document.columns));
    if (m_poses.empty())
        m_poses.push_back(standingStill(figure));
    if (!isWhole())
        return;
    const double legs = usualDistance("LeftUpLeg", "LeftLeg") + usualDistance("LeftLeg", "LeftFoot");
    const double trunk = usualDistance("Hips", "Neck");
    const double usual =
        -avatar.rise("LeftUpLeg", "LeftFoot") + (avatar.place("Neck") - avatar.place("Hips")).length();
    m_height = (legs + trunk) / usual * avatar.height();
}

bool WatchedFigure::isWhole() const
{
    for (const char* joint : {"Hips", "Spine", "Spine1", "Spine3", "Neck", "Head"}) {
        if (!has(joint))
            return false;
    }
    for (const std::string side : {"Left", "Right"}) {
        for (const char* part : {"UpLeg", "Leg", "Foot", "Arm", "ForeArm", "Hand"}) {
            if (!has(side + part))
                return false;
        }
    }
    return true;
}

double WatchedFigure::usualDistance(const std::string& one, const std::string& other) const
{
    std::vector<double> distances;
    for (const Placements& pose : m_poses)
        distances.push_back((pose[at(one)].place - pose[at(other)].place).length());
    return median(std::move(distances));
}

double WatchedFigure::soleOffLevel(const std::string& side) const
{
    const std::size_t foot = at(side + "Foot");
    std::vector<double> heights;
    for (const Placements& pose : m_poses)
        heights.push_back(pose[foot].place.z());
    const double highest = quantile(heights, 0.1) + kLow * m_height;
    std::vector<double> angles;
    for (const Placements& pose : m_poses) {
        if (pose[foot].place.z() <= highest)
            angles.push_back(angle(pose[foot].turn * kUp, kUp));
    }
    return median(std::move(angles));
}

double WatchedFigure::leanOfHead() const
{
    std::vector<double> angles;
    for (const Placements& pose : m_poses)
        angles.push_back(angle(pose[at("Head")].turn * kUp, pose[at("Neck")].place - pose[at("Hips")].place));
    return median(std::move(angles));
}

double WatchedFigure::angleBetweenFronts(const std::string& joint, const std::string& other) const
{
    std::vector<double> angles;
    for (const Placements& pose : m_poses) {
        const osg::Vec3d up = pose[at(other)].turn * kUp;
        const osg::Vec3d front = pose[at(joint)].turn * kAhead;
        angles.push_back(angle(front - up * (front * up), pose[at(other)].turn * kAhead));
    }
    return median(std::move(angles));
}

double WatchedFigure::kneesAhead(const std::string& side) const
{
    std::size_t bent = 0;
    std::size_t ahead = 0;
    for (const Placements& pose : m_poses) {
        const osg::Vec3d& hip = pose[at(side + "UpLeg")].place;
        osg::Vec3d line = pose[at(side + "Foot")].place - hip;
        line.normalize();
        const osg::Vec3d knee = pose[at(side + "Leg")].place - hip;
        const osg::Vec3d off = knee - line * (knee * line);
        if (off.length() < kBent * m_height)
            continue;
        ++bent;
        ahead += off * (pose[at(side + "Foot")].turn * kAhead) > 0.0 ? 1 : 0;
    }
    return bent < kFewPoses ? 1.0 : double(ahead) / double(bent);
}

double WatchedFigure::headBelowHips() const
{
    std::size_t below = 0;
    for (const Placements& pose : m_poses) {
        const double above = pose[at("Head")].place.z() - pose[at("Hips")].place.z();
        below += above < -kClearlyBelow * m_height ? 1 : 0;
    }
    return double(below) / double(m_poses.size());
}

bool WatchedFigure::isInTrunk(const Placements& pose, const std::string& joint, double distance) const
{
    const osg::Vec3d& hips = pose[at("Hips")].place;
    const osg::Vec3d trunk = pose[at("Neck")].place - hips;
    const osg::Vec3d off = pose[at(joint)].place - hips;
    const double part = off * trunk / std::max(trunk.length2(), 1e-9);
    return part > 0.0 && part < 1.0 && (off - trunk * part).length() < distance;
}

double WatchedFigure::limbsInTrunk(double heights) const
{
    std::size_t inside = 0;
    for (const Placements& pose : m_poses) {
        bool isInside = false;
        for (const char* joint :
             {"LeftForeArm", "RightForeArm", "LeftHand", "RightHand", "LeftLeg", "RightLeg"})
            isInside = isInside || isInTrunk(pose, joint, heights * m_height);
        inside += isInside ? 1 : 0;
    }
    return double(inside) / double(m_poses.size());
}

double WatchedFigure::lowestSole() const
{
    std::vector<double> heights;
    for (const Placements& pose : m_poses) {
        double lowest = 1e30;
        for (const char* foot : {"LeftFoot", "RightFoot"}) {
            const osg::Vec3d sole(0, 0, -m_avatar.place(foot).z());
            lowest = std::min(lowest, pose[at(foot)].outward(sole).z());
        }
        heights.push_back(lowest);
    }
    // The first frame may be a pose at the origin that is no part of the motion.
    if (heights.size() > 1)
        heights.erase(std::min_element(heights.begin(), heights.end()));
    return quantile(std::move(heights), 0.05);
}

double WatchedFigure::bellyAgainstHips() const
{
    const auto measured = [&](const std::string& joint) {
        const MotionFigure::Joint& own = m_figure.joints[at(joint)];
        return own.offset + own.fitShift;
    };
    const double width = (measured("LeftUpLeg") - measured("RightUpLeg")).length();
    const double usual = (m_avatar.offset("LeftUpLeg") - m_avatar.offset("RightUpLeg")).length();
    const double belly = measured("Spine1").length() / m_avatar.offset("Spine1").length();
    return width > 0.0 ? belly / (width / usual) : 0.0;
}

double WatchedFigure::worstChangeOfLength() const
{
    double worst = 0.0;
    for (const std::string side : {"Left", "Right"}) {
        for (const auto& [one, other] : {std::pair("UpLeg", "Leg"), std::pair("Leg", "Foot"),
                                         std::pair("Arm", "ForeArm"), std::pair("ForeArm", "Hand")}) {
            std::vector<double> lengths;
            for (const Placements& pose : m_poses)
                lengths.push_back((pose[at(side + one)].place - pose[at(side + other)].place).length());
            const double length = std::max(median(lengths), 1e-9);
            worst = std::max(worst, (quantile(lengths, 0.95) - quantile(lengths, 0.05)) / length);
        }
    }
    return worst;
}

}  // namespace KivReader
