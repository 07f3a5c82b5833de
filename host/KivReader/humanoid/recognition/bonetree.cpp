#include "host/KivReader/humanoid/recognition/bonetree.h"

#include <algorithm>

#include "host/KivReader/humanoid/humanoidmeasure.h"

namespace KivReader {

namespace {

using StepKind = KivAnimation::PoseStep::Kind;

constexpr std::size_t kPosedFrames = 20;
constexpr double kHelperReach = 0.3;  ///< of a helper's length: hair and swords may be longer than arms
constexpr double kLongestEnd = 1.0;   ///< of the bone before it: some end sites are nonsense
constexpr double kTurnsAtAll = 0.01;  ///< sine of half the angle: less is none
constexpr double kLoose = 0.5;        ///< of its length: how far a bone may vary

bool shifts(const MotionFigure& figure, const MotionFigure::Joint& joint)
{
    const PoseSteps steps = figure.stepsOf(joint);
    return std::any_of(steps.begin(), steps.end(),
                       [](const KivAnimation::PoseStep& step) { return step.kind == StepKind::Shift; });
}

/// Joints that their own columns move stand elsewhere than their offsets say: as far as they are in the
/// middle one of the frames. What is now here and now there hangs from no bone.
double lengthOf(const MotionFigure& figure, const PosedFrames& posed, std::size_t joint)
{
    const MotionFigure::Joint& its = figure.joints[joint];
    if (!posed.isMotion || !shifts(figure, its))
        return its.offset.length();
    std::vector<double> lengths;
    for (const Placements& frame : posed.frames)
        lengths.push_back((frame[joint].place - frame[static_cast<std::size_t>(its.parent)].place).length());
    std::sort(lengths.begin(), lengths.end());
    const double median = lengths[lengths.size() / 2];
    return lengths.back() - lengths.front() > kLoose * median ? 0.0 : median;
}

void linkChildren(BoneTree& tree)
{
    for (const BoneTree::Bone& bone : tree.bones) {
        if (bone.parent >= 0)
            ++tree.bones[static_cast<std::size_t>(bone.parent)].childCount;
    }
    std::uint32_t first = 0;
    for (BoneTree::Bone& bone : tree.bones) {
        bone.firstChild = first;
        first += bone.childCount;
        bone.childCount = 0;
    }
    tree.children.resize(first);
    for (std::size_t i = 0; i < tree.bones.size(); ++i) {
        if (tree.bones[i].parent < 0)
            continue;
        BoneTree::Bone& parent = tree.bones[tree.parentOf(i)];
        tree.children[parent.firstChild + parent.childCount++] = static_cast<std::uint32_t>(i);
    }
}

/// What is over the first fork holds the figure in the world and is no part of it.
void dropWrappers(BoneTree& tree)
{
    std::size_t bone = 0;
    tree.bones[bone].length = 0.0;
    while (tree.bones[bone].childCount == 1) {
        bone = tree.child(bone, 0);
        tree.bones[bone].length = 0.0;
    }
}

/// What its own columns do to a joint.
void findTurns(BoneTree& tree, const PosedFrames& posed)
{
    for (std::size_t i = 1; i < tree.bones.size(); ++i) {
        const std::size_t parent = tree.parentOf(i);
        osg::Quat first;
        for (std::size_t frame = 0; frame < posed.frames.size(); ++frame) {
            const osg::Quat turn = posed.frames[frame][parent].turn.conj() * posed.frames[frame][i].turn;
            if (frame == 0)
                first = turn;
            BoneTree::Bone& bone = tree.bones[i];
            bone.turns = bone.turns || turn.asVec3().length() > kTurnsAtAll;
            bone.varies = bone.varies || (first.conj() * turn).asVec3().length() > kTurnsAtAll;
        }
    }
}

/// In a motion a last joint that never moves, at the end of a bone of its own, is a helper.
bool isStillLeaf(const BoneTree& tree, std::size_t bone)
{
    const BoneTree::Bone& its = tree.bones[bone];
    if (its.isEnd || its.varies)
        return false;
    for (std::size_t i = 0; i < its.childCount; ++i) {
        const BoneTree::Bone& child = tree.bones[tree.child(bone, i)];
        if (!child.isEnd || child.length > 0.0)
            return false;
    }
    return true;
}

void findReaches(BoneTree& tree, const std::vector<NameHint>& hints, bool hasMotion)
{
    std::vector<double> second(tree.bones.size());
    for (std::size_t i = tree.bones.size(); i-- > 1;) {
        BoneTree::Bone& bone = tree.bones[i];
        BoneTree::Bone& parent = tree.bones[tree.parentOf(i)];
        const bool isHelper = hints[i].isNever || (hasMotion && isStillLeaf(tree, i));
        bone.span = bone.reach + bone.length * (isHelper ? kHelperReach : 1.0);
        if (bone.isEnd && parent.length > 0.0)
            bone.span = std::min(bone.span, kLongestEnd * parent.length);
        const bool isLimb = hints[i].side != Side::None && (hints[i].parts & (kLegParts | kArmParts)) != 0;
        parent.words = std::max(parent.words, bone.words + (isLimb && !hints[i].isNever ? 1 : 0));
        second[tree.parentOf(i)] = std::max(second[tree.parentOf(i)], std::min(parent.reach, bone.span));
        parent.reach = std::max(parent.reach, bone.span);
    }
    for (std::size_t i = 0; i < tree.bones.size(); ++i)
        tree.size = std::max(tree.size, tree.bones[i].reach + second[i]);
}

}  // namespace

PosedFrames poseFrames(const MotionDocument& document, const MotionFigure& figure)
{
    PosedFrames posed;
    posed.isMotion = document.frames > 0;
    if (!posed.isMotion) {
        posed.frames.push_back(MatchedMotion::atRest(figure));
        return posed;
    }
    const std::size_t count = std::min(kPosedFrames, document.frames);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t frame = (2 * i + 1) * document.frames / (2 * count);
        posed.frames.push_back(placed(figure, document.values.data() + frame * document.columns));
    }
    return posed;
}

std::size_t BoneTree::commonAncestor(std::size_t one, std::size_t other) const
{
    while (one != other) {
        std::size_t& later = one > other ? one : other;
        later = parentOf(later);
    }
    return one;
}

bool BoneTree::isBelow(std::size_t bone, std::size_t ancestor) const
{
    while (bone > ancestor)
        bone = parentOf(bone);
    return bone == ancestor;
}

double BoneTree::way(std::size_t ancestor, std::size_t bone) const
{
    double length = 0.0;
    for (; bone != ancestor; bone = parentOf(bone))
        length += bones[bone].length;
    return length;
}

BoneTree makeBoneTree(const MotionFigure& figure, const PosedFrames& posed,
                      const std::vector<NameHint>& hints)
{
    BoneTree tree;
    tree.bones.resize(figure.joints.size());
    for (std::size_t i = 0; i < tree.bones.size(); ++i) {
        BoneTree::Bone& bone = tree.bones[i];
        bone.parent = figure.joints[i].parent;
        bone.length = i == 0 ? 0.0 : lengthOf(figure, posed, i);
        bone.isEnd = figure.joints[i].endSite;
        bone.isTip = bone.isEnd || hints[i].isTip;
    }
    linkChildren(tree);
    dropWrappers(tree);
    findTurns(tree, posed);
    findReaches(tree, hints, posed.isMotion);
    return tree;
}

}  // namespace KivReader
