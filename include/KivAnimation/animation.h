#pragma once

#include <osg/Object>
#include <osg/Switch>
#include <osg/Vec4f>

#include <cstddef>
#include <memory>
#include <string>

#include "KivAnimation/motion.h"
#include "KivCommonDef/sharedlibrary.h"

namespace KivAnimation {

/// The motion of one actor and what it is attached to. Bones and switch are only watched: an animation whose
/// nodes are gone does nothing.
///
/// Posing belongs to the update traversal; everything else is called while no traversal runs, or before the
/// animation is registered with a manager.
class KIV_ANIMATION_API Animation : public osg::Object
{
public:
    Animation();
    Animation(const Animation& other, const osg::CopyOp& copyop = osg::CopyOp::SHALLOW_COPY);
    META_Object(KivAnimation, Animation)

    void setId(const std::string& id);
    const std::string& getId() const;

    /// The switch that is turned on, all children, once a frame has been posed.
    void setAttachNodePtr(osg::Switch* node);
    osg::Switch* getAttachNodePtr() const;

    /// Paints the contact marker of a joint, a small sphere at the joint that is made by the first call. What
    /// a body hides of it is seen through the body, faintly; it throws no shadow. Joint names are compared
    /// without the qualifier before "#".
    /// @param color red, green, blue, alpha in 0..1.
    /// @return false if there is no such joint.
    bool ChangeJointContactColor(const std::string& jointName, osg::Vec4f color);
    /// @return false, and `color` untouched, if the joint was never painted.
    bool getJointContactColor(const std::string& jointName, osg::Vec4f& color) const;

    /// The flag says that the attached node shows a frame of this animation. Taking it away turns the node
    /// off until the next pose.
    void removeAnimationFrameDataFlag();
    bool hasAnimationFrameDataFlag() const;

    /// Takes the motion over. A table without rows is a skeleton at rest: one frame, which is posed by
    /// leaving the bones as they are.
    /// @throws std::invalid_argument if the table has fewer values than its rows need, or has rows and the
    ///         program reaches beyond its columns, the steps or the earlier joints; nothing is changed then.
    void setMotion(MotionTable table, PoseProgram program);
    const MotionTable& motionTable() const;

    std::size_t frameCount() const;  ///< at least 1
    double frameTime() const;        ///< seconds; 0 for a skeleton at rest
    double duration() const;         ///< seconds from the first to the last frame

    /// When on the manager's clock the first frame is shown, in seconds; 0 at first. Before it the actor
    /// stands in its first frame, behind its end in its last one. With a time below 0 the motion is under way
    /// when the clock begins, and what lies before that is never shown. The manager's clock lasts until the
    /// last animation has ended; where it loops, all loop together, each waiting for its start anew.
    /// @return false, and nothing changed, for a time that is not finite.
    bool setStartTime(double seconds);
    double startTime() const;

    /// Poses the bones at a time of the animation's own, 0 at its first frame, held at both ends; between two
    /// rows rotations are interpolated on the shorter arc and translations linearly. Allocates nothing.
    void pose(double seconds);

protected:
    ~Animation() override;

private:
    struct Motion;
    std::unique_ptr<Motion> m_spMotion;
};

}  // namespace KivAnimation
