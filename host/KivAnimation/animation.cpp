#include "KivAnimation/animation.h"

#include <osg/observer_ptr>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "KivCharacterization/naming.h"
#include "host/KivAnimation/bonewatch.h"
#include "host/KivAnimation/contactmarkers.h"
#include "host/KivAnimation/poser.h"

namespace KivAnimation {

namespace {

/// Closer than this to a row, counted in rows, the pose is that row: what sums of frame times are off by.
constexpr double kRowTolerance = 1e-6;

}  // namespace

struct Animation::Motion
{
    std::string id;
    MotionTable table;
    PoseProgram program;
    std::unique_ptr<BoneWatches> watches;  ///< of the program's joints
    std::unique_ptr<Poser>
        poser;  ///< null where there are no rows: loading a bare skeleton shall cost little
    ContactMarkers markers;
    osg::observer_ptr<osg::Switch> attachedNode;
    double startTime = 0.0;
    bool hasFrameData = false;
    bool attachedNodeShown = false;

    /// The first bone of this unqualified name; null if there is none any more.
    Bone* findBone(const std::string& jointName) const
    {
        const std::string_view wanted = KivCharacterization::withoutQualifier(jointName);
        for (const PoseProgram::Joint& joint : program.joints) {
            if (joint.bone && KivCharacterization::withoutQualifier(joint.bone->getName()) == wanted) {
                return joint.bone;
            }
        }
        return nullptr;
    }

    void poseRows(double seconds) const
    {
        const std::size_t last = table.frames - 1;
        const double wanted = table.frameTime > 0.0 ? seconds / table.frameTime : 0.0;
        const double position = wanted > 0.0 ? std::min(wanted, static_cast<double>(last)) : 0.0;
        const double nearest = std::nearbyint(position);
        if (std::fabs(position - nearest) <= kRowTolerance) {
            poser->pose(table, static_cast<std::size_t>(nearest), 0.0);
            return;
        }
        const double before = std::floor(position);
        poser->pose(table, static_cast<std::size_t>(before), position - before);
    }

    void showAttachedNode()
    {
        hasFrameData = true;
        osg::ref_ptr<osg::Switch> node;
        if (!attachedNodeShown && attachedNode.lock(node)) {
            node->setAllChildrenOn();
            attachedNodeShown = true;
        }
    }
};

Animation::Animation() : m_spMotion(std::make_unique<Motion>()) {}

Animation::Animation(const Animation& other, const osg::CopyOp& copyop)
    : osg::Object(other, copyop), m_spMotion(std::make_unique<Motion>())
{
    m_spMotion->id = other.getId();
    m_spMotion->startTime = other.startTime();
    setMotion(other.m_spMotion->table, other.m_spMotion->program);
}

Animation::~Animation() = default;

void Animation::setId(const std::string& id)
{
    m_spMotion->id = id;
}

const std::string& Animation::getId() const
{
    return m_spMotion->id;
}

void Animation::setAttachNodePtr(osg::Switch* node)
{
    m_spMotion->attachedNode = node;
    m_spMotion->attachedNodeShown = false;
}

osg::Switch* Animation::getAttachNodePtr() const
{
    return m_spMotion->attachedNode.get();
}

bool Animation::ChangeJointContactColor(const std::string& jointName, osg::Vec4f color)
{
    Bone* bone = m_spMotion->findBone(jointName);
    if (!bone) {
        return false;
    }
    m_spMotion->markers.paint(jointName, *bone, color);
    return true;
}

bool Animation::getJointContactColor(const std::string& jointName, osg::Vec4f& color) const
{
    const osg::Vec4f* painted = m_spMotion->markers.color(jointName);
    if (painted) {
        color = *painted;
    }
    return painted != nullptr;
}

void Animation::removeAnimationFrameDataFlag()
{
    m_spMotion->hasFrameData = false;
    m_spMotion->attachedNodeShown = false;
    osg::ref_ptr<osg::Switch> node;
    if (m_spMotion->attachedNode.lock(node)) {
        node->setAllChildrenOff();
    }
}

bool Animation::hasAnimationFrameDataFlag() const
{
    return m_spMotion->hasFrameData;
}

void Animation::setMotion(MotionTable table, PoseProgram program)
{
    if (table.columns != 0 && table.values.size() / table.columns < table.frames) {
        throw std::invalid_argument("a motion table has fewer values than its rows need");
    }
    auto watches = std::make_unique<BoneWatches>(program.joints);
    m_spMotion->poser = table.frames > 0 ? std::make_unique<Poser>(program, table.columns) : nullptr;
    m_spMotion->table = std::move(table);
    m_spMotion->watches = std::move(watches);  // the earlier ones end before their joints are gone
    m_spMotion->program = std::move(program);  // the joints stay in their place in memory
}

const MotionTable& Animation::motionTable() const
{
    return m_spMotion->table;
}

std::size_t Animation::frameCount() const
{
    return std::max<std::size_t>(m_spMotion->table.frames, 1);
}

double Animation::frameTime() const
{
    return m_spMotion->poser ? m_spMotion->table.frameTime : 0.0;
}

double Animation::duration() const
{
    return static_cast<double>(frameCount() - 1) * frameTime();
}

bool Animation::setStartTime(double seconds)
{
    if (!std::isfinite(seconds)) {
        return false;
    }
    m_spMotion->startTime = seconds;
    return true;
}

double Animation::startTime() const
{
    return m_spMotion->startTime;
}

void Animation::pose(double seconds)
{
    if (m_spMotion->poser) {
        m_spMotion->poseRows(seconds);
    }
    m_spMotion->showAttachedNode();
}

}  // namespace KivAnimation
