#pragma once

#include <osg/NodeCallback>
#include <osg/ref_ptr>

#include <cstddef>
#include <memory>
#include <vector>

#include "KivAnimation/animation.h"
#include "KivCommonDef/sharedlibrary.h"

namespace KivAnimation {

/// Plays the registered animations against one clock. As the update callback of the character scene it poses
/// all playing actors once a frame and then lets the traversal go on.
///
/// The clock runs from 0 to the end of the animation that ends last, start times included. While it plays it
/// follows the frame stamp's simulation time; several update traversals with one stamp advance it once.
/// Registration and transport are called while no update traversal runs.
class KIV_ANIMATION_API BasicAnimationManager : public osg::NodeCallback
{
public:
    BasicAnimationManager();
    BasicAnimationManager(const BasicAnimationManager& other, const osg::CopyOp& copyop);
    META_Object(KivAnimation, BasicAnimationManager)

    /// Keeps the animation alive until it is unregistered. Null and what is registered already change
    /// nothing.
    void registerAnimation(Animation* animation);
    void unregisterAnimation(Animation* animation);
    bool isRegistered(const Animation* animation) const;
    std::size_t animationCount() const;
    /// In the order of registration; not owned.
    std::vector<Animation*> animations() const;
    /// Goes up whenever an animation is registered or unregistered, starts or stops: what was learnt from
    /// animations() holds as long as this stays.
    unsigned long long revision() const;

    /// Every registered animation follows the clock from now on. The clock itself is left as it is.
    void playAll();
    /// The animation keeps the pose that it has.
    void stopAnimation(Animation* animation);
    bool isPlaying(const Animation* animation) const;

    /// The transport. A new manager plays, at speed 1, looping.
    void play();
    void pause();
    bool isPaused() const;
    void setTime(double seconds);  ///< held within 0 and duration()
    double time() const;
    void setSpeed(double factor);  ///< negative plays backwards
    double speed() const;
    void setLooping(bool looping);
    bool isLooping() const;
    double duration() const;  ///< seconds from 0 until the last animation has ended

    /// Advances the clock to a simulation time and poses.
    void update(double simulationTime);

    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

protected:
    ~BasicAnimationManager() override;

private:
    struct Clock;
    std::unique_ptr<Clock> m_spClock;
};

}  // namespace KivAnimation
