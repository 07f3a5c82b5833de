#include "host/KivReader/humanoid/recognition/limbchain.h"

#include <algorithm>
#include <cmath>

namespace KivReader {

namespace {

constexpr std::size_t kMostStations = 12;
constexpr double kPerWord = 0.3;  ///< a way down whose joints are called limbs counts for so much more

/// The child to go on with: the longest way down, or the one with a limb's names on it.
std::size_t nextOf(const BoneTree& tree, std::size_t bone)
{
    std::size_t best = 0;
    double bestRank = -1.0;
    for (std::size_t i = 0; i < tree.bones[bone].childCount; ++i) {
        const std::size_t child = tree.child(bone, i);
        const BoneTree::Bone& its = tree.bones[child];
        const double rank = its.span * (1.0 + kPerWord * its.words);
        if (rank > bestRank) {
            best = child;
            bestRank = rank;
        }
    }
    return best;
}

double angleBetween(const osg::Vec3d& a, const osg::Vec3d& b)
{
    const double lengths = a.length() * b.length();
    return lengths > 0.0 ? std::acos(std::clamp(a * b / lengths, -1.0, 1.0)) : 0.0;
}

/// Over the middle four fifths of the frames.
double bendAt(const PosedFrames& posed, std::size_t above, std::size_t joint, std::size_t below)
{
    std::vector<double> angles;
    for (std::size_t i = 0; i < posed.frames.size(); ++i)
        angles.push_back(angleBetween(posed.place(i, joint) - posed.place(i, above),
                                      posed.place(i, below) - posed.place(i, joint)));
    std::sort(angles.begin(), angles.end());
    return angles[angles.size() - 1 - angles.size() / 10] - angles[angles.size() / 10];
}

bool goesOn(const BoneTree& tree, std::size_t bone)
{
    for (std::size_t i = 0; i < tree.bones[bone].childCount; ++i) {
        if (!tree.bones[tree.child(bone, i)].isEnd)
            return true;
    }
    return false;
}

int fanOf(const BoneTree& tree, std::size_t bone)
{
    int fan = 0;
    for (std::size_t i = 0; i < tree.bones[bone].childCount; ++i)
        fan += goesOn(tree, tree.child(bone, i)) ? 1 : 0;
    return fan;
}

Station stationAt(const BoneTree& tree, std::size_t joint, double at)
{
    Station station;
    station.joint = station.named = station.end = joint;
    station.at = at;
    station.fan = fanOf(tree, joint);
    station.turns = tree.bones[joint].turns;
    station.isBeyond = tree.bones[joint].isTip;
    return station;
}

/// A further joint at the same place: it has the turns of those before it, too.
void goOnWith(Station& station, std::size_t joint, std::size_t before, const Evidence& evidence)
{
    const BoneTree::Bone& bone = evidence.tree.bones[joint];
    const bool forked = evidence.tree.bones[before].childCount > 1 || station.fan > 1;
    if (bone.turns || (evidence.hints[joint].parts != 0 && !station.turns)) {
        station.joint = joint;
        if (!forked)
            station.end = joint;
    }
    if (evidence.hints[joint].parts != 0)
        station.named = joint;
    station.fan = std::max(station.fan, fanOf(evidence.tree, joint));
    station.turns = station.turns || bone.turns;
}

/// A chain without an end site: its last bone may be as long as the one before it.
void addUnseenEnd(Chain& chain)
{
    const std::size_t count = chain.stations.size();
    if (count < 2 || count >= kMostStations || chain.stations.back().isBeyond)
        return;
    Station unseen = chain.stations.back();
    unseen.at += unseen.at - chain.stations[count - 2].at;
    unseen.isBeyond = unseen.isUnseen = true;
    chain.stations.push_back(unseen);
}

}  // namespace

Chain chainFrom(const Evidence& evidence, std::size_t firstJoint)
{
    const BoneTree& tree = evidence.tree;
    Chain chain;
    chain.first = firstJoint;
    double at = 0.0;
    for (std::size_t joint = firstJoint; chain.stations.size() < kMostStations; joint = nextOf(tree, joint)) {
        at += tree.bones[joint].length;
        if (!tree.coincides(joint) || chain.stations.empty())
            chain.stations.push_back(stationAt(tree, joint, at));
        else if (!tree.bones[joint].isTip)
            goOnWith(chain.stations.back(), joint, tree.parentOf(joint), evidence);
        if (tree.bones[joint].childCount == 0)
            break;
    }
    std::size_t above = tree.parentOf(firstJoint);
    for (std::size_t i = 0; i + 1 < chain.stations.size(); ++i) {
        Station& station = chain.stations[i];
        station.bend = bendAt(evidence.posed, above, station.joint, chain.stations[i + 1].joint);
        above = station.joint;
    }
    addUnseenEnd(chain);
    return chain;
}

}  // namespace KivReader
