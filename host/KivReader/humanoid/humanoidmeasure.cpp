#include "host/KivReader/humanoid/humanoidmeasure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "host/KivReader/humanoid/uprightaxis.h"

namespace KivReader {

namespace {

constexpr double kSmallest = 135.0;  ///< of a person, centimetres
constexpr double kTallest = 215.0;
constexpr double kUsual = 170.0;

constexpr std::array<const char*, 2> kMeasuredSides = {"Left", "Right"};

struct Unit
{
    const char* name;
    double centimetres;
};

constexpr std::array<Unit, 6> kUnits = {
    {{"cm", 1.0}, {"m", 100.0}, {"mm", 0.1}, {"inch", 2.54}, {"dm", 10.0}, {"cmu", 2.54 / 0.45}}};

std::string number(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", value);
    return text;
}

double findUnit(double rawHeight, ProfileRecord& record)
{
    for (const Unit& unit : kUnits) {
        const double height = rawHeight * unit.centimetres;
        if (height < kSmallest || height > kTallest)
            continue;
        record.unit = unit.name;
        record.unitReason = "the figure is " + number(height) + " cm high with it";
        return unit.centimetres;
    }
    record.unit = "fitted";
    record.unitReason = "no usual unit gives a person's size (" + number(rawHeight) +
                        " units high); fitted to " + number(kUsual) + " cm";
    record.warnings.push_back("the length unit is not known: " + record.unitReason);
    return kUsual / rawHeight;
}

double legLength(const Placements& placements, const MatchedMotion& motion, const std::string& side)
{
    const auto place = [&](const char* part) { return placements[motion.matching.at(side + part)].place; };
    const double thigh = (place("Leg") - place("UpLeg")).length();
    if (motion.matching.has(side + "Foot"))
        return thigh + (place("Foot") - place("Leg")).length();
    return thigh *
           (1.0 + motion.avatar.offset(side + "Foot").length() / motion.avatar.offset(side + "Leg").length());
}

/// Legs and trunk, the most telling parts: what is above may be missing, and arms say nothing.
double legsAndTrunk(const Placements& placements, const MatchedMotion& motion)
{
    double legs = 0.0;
    for (const char* side : kMeasuredSides)
        legs += legLength(placements, motion, side) / 2.0;
    const osg::Vec3d trunk = middle(placements, motion.matching, "LeftArm", "RightArm") -
                             middle(placements, motion.matching, "LeftUpLeg", "RightUpLeg");
    return legs + trunk.length();
}

double avatarLegsAndTrunk(const RestFigure& avatar)
{
    return avatar.rise("LeftUpLeg", "LeftArm") + avatar.offset("LeftLeg").length() +
           avatar.offset("LeftFoot").length();
}

}  // namespace

const float* MatchedMotion::row(std::size_t frame) const
{
    return document.values.data() + frame * document.columns;
}

std::vector<std::size_t> MatchedMotion::sampledFrames(std::size_t atMost) const
{
    std::vector<std::size_t> frames;
    const std::size_t stride = std::max<std::size_t>(1, (document.frames + atMost - 1) / atMost);
    for (std::size_t frame = 0; frame < document.frames; frame += stride)
        frames.push_back(frame);
    return frames;
}

Placements MatchedMotion::atRest(const MotionFigure& figure)
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

osg::Vec3d middle(const Placements& placements, const JointMatching& matching, const std::string& left,
                  const std::string& right)
{
    return (placements[matching.at(left)].place + placements[matching.at(right)].place) * 0.5;
}

FileFrame findFrame(const MatchedMotion& motion, const MotionFigure& raw, const PoseSample& sample,
                    const ProfileOptions& options, ProfileRecord& record)
{
    FileFrame frame;
    frame.up = uprightAxis(motion, raw, sample, options.up, record);
    record.unitReason = "asked for";
    if (options.unit > 0.0) {
        frame.unit = options.unit;
        const auto* known = std::find_if(kUnits.begin(), kUnits.end(), [&](const Unit& unit) {
            return std::fabs(unit.centimetres - options.unit) < 1e-9;
        });
        record.unit = known == kUnits.end() ? number(options.unit) + " cm" : known->name;
    } else {
        frame.unit = findUnit(standingHeight(motion, raw, sample), record);
    }
    record.centimetresPerUnit = frame.unit;
    return frame;
}

double standingHeight(const MatchedMotion& motion, const MotionFigure& figure, const PoseSample& sample)
{
    std::vector<double> lengths;
    for (const Placements& pose : sample.poses)
        lengths.push_back(legsAndTrunk(pose, motion));
    if (lengths.empty())
        lengths.push_back(legsAndTrunk(MatchedMotion::atRest(figure), motion));
    const auto middleOne = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middleOne, lengths.end());
    return *middleOne * motion.avatar.height() / avatarLegsAndTrunk(motion.avatar);
}

}  // namespace KivReader
