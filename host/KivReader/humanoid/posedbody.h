#pragma once

#include <osg/Quat>
#include <osg/Vec3d>

#include <string>
#include <utility>
#include <vector>

#include "host/KivReader/humanoid/humanoidmeasure.h"
#include "host/KivReader/humanoid/posesample.h"

namespace KivReader {

/// A person in motion, in the scene's frame and units: what the rest pose is made from.
struct PosedBody
{
    const MatchedMotion& motion;
    const MotionFigure& figure;
    const PoseSample& sample;
    double height = 0.0;  ///< standing

    bool has(const std::string& name) const { return motion.matching.has(name); }
    std::size_t at(const std::string& name) const { return motion.matching.at(name); }
};

/// From between the thighs to between the arms, length 1.
osg::Vec3d trunkOf(const Placements& pose, const JointMatching& matching);

/// From the right one to the left one, length 1; 0 where they coincide.
osg::Vec3d acrossOf(const Placements& pose, const JointMatching& matching, const std::string& part);

/// For every sampled pose how much it counts where the trunk should be upright. All count alike where the
/// person never stands or sits.
std::vector<double> uprightWeights(const PosedBody& body);

/// The middle of turns, each with its weight; none where there are none.
class MeanTurn
{
public:
    void add(const osg::Quat& turn, double weight = 1.0);
    osg::Quat value() const;

private:
    osg::Vec4d m_sum;
};

}  // namespace KivReader
