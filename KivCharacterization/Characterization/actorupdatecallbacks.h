#pragma once

#include <osg/ComputeBoundsVisitor>
#include <osg/MatrixTransform>
#include <osg/NodeCallback>
#include <osg/Switch>
#include <osg/Vec4f>
#include <osg/observer_ptr>
#include <osgText/Text3D>

#include <memory>
#include <string>

#include "KivCommonDef/stickcontact.h"

namespace KivCharacterization {

/// Per-frame overlays of one actor. Each acts in the update traversal only, does nothing once the nodes
/// that it drives are gone, and always lets the traversal go on. Frame data is Y-up: a point (x, y, z) of
/// it stands at (x, -z, y).

/// Keeps an actor's name upright above its head: cancels the rotation, in skeleton space, of the bone that
/// carries the anchor. The label stays where it is when the anchor hangs under no bone or has no extent.
class ActorNameUpdateCallback : public osg::NodeCallback
{
public:
    ActorNameUpdateCallback(osg::Node* anchor, osg::MatrixTransform* labelTransform, osgText::Text3D* text);
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

private:
    void follow();

    osg::observer_ptr<osg::MatrixTransform> m_opLabelTransform;
    osg::observer_ptr<osg::Node> m_opAnchor;
    osg::observer_ptr<osgText::Text3D> m_opText;
    osg::ComputeBoundsVisitor m_bounds;  ///< kept for its memory: a frame allocates nothing
};

/// Shows the centre of mass (child 0 of the switch) and its foot point on the ground (child 1), in scene
/// units. Hidden while the render state does not want it or the frame store has nothing; frozen while
/// characterization is not ready.
class GravityUpdateCallback : public osg::NodeCallback
{
public:
    /// @param actorId the actor's index as decimal text.
    GravityUpdateCallback(osg::Switch* markerSwitch, const std::string& actorId);
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

private:
    void follow(osg::Switch& markers);

    std::string m_strActorId;
    osg::observer_ptr<osg::Switch> m_opMarkerSwitch;
    std::unique_ptr<float[]> m_spBuffer;
    float* m_pBuffer;  ///< the frame store gets its address, and may point it elsewhere
};

/// Shows a sphere for every contact point that the frame store has, red where it touches and blue
/// elsewhere. The store's metres become centimetres. Spheres are rebuilt only when their number changes;
/// frozen while characterization is not ready.
class StickContactUpdateCallback : public osg::NodeCallback
{
public:
    /// @param actorId the actor's index as decimal text.
    StickContactUpdateCallback(osg::Switch* contactSwitch, const std::string& actorId);
    void operator()(osg::Node* node, osg::NodeVisitor* visitor) override;

private:
    void follow(osg::Switch& spheres);
    void place(osg::MatrixTransform& sphere, const KivCommonDef::KIV_STICKCONTACT& contact) const;

    std::string m_strActorId;
    osg::observer_ptr<osg::Switch> m_opContactSwitch;
    std::unique_ptr<KivCommonDef::KIV_STICKCONTACT[]> m_spBuffer;
    KivCommonDef::KIV_STICKCONTACT*
        m_pBuffer;  ///< the frame store gets its address, and may point it elsewhere
    osg::Vec4f m_noContactColor;
    osg::Vec4f m_contactColor;
};

}  // namespace KivCharacterization
