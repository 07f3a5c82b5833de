#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/recognition/bodysearch.h"

namespace KivReader {

/// Joints found for the avatar's names, and why.
struct Assignment
{
    struct Reasoned
    {
        std::size_t joint = 0;
        std::vector<std::string> reasons;
    };

    std::map<std::string, Reasoned> joints;   ///< by the avatar's name
    std::map<std::string, std::size_t> toes;  ///< by the avatar's foot

    bool has(const std::string& name) const { return joints.count(name) > 0; }
    void put(const std::string& name, std::size_t joint, const std::string& reason)
    {
        joints[name] = {joint, {reason}};
    }
};

/// Which of a pair's chains is the left one.
struct Sides
{
    bool firstLegIsLeft = true;
    bool firstArmIsLeft = true;
    double confidence = 0.0;
    std::string reason;
    std::string warning;  ///< where names and motion contradict each other
};

Sides findSides(const Evidence& evidence, const Body& body);

/// Legs, feet, toes, collars, arms, hands.
void assignLimbs(Assignment& assignment, const Body& body, const Sides& sides);

/// Hips, spine, neck, head.
/// @param table what the tables of dialects say of the spine counts where it agrees with the chain.
void assignTrunk(Assignment& assignment, const Evidence& evidence, const Body& body,
                 const JointMatching& table);

/// Fingers, as far as names tell which is which.
void assignFingers(Assignment& assignment, const Evidence& evidence);

}  // namespace KivReader
