#pragma once

#include <osg/MatrixTransform>
#include <osg/Vec3f>
#include <osg/observer_ptr>

#include <memory>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "KivManipulator/ipickgeode.h"
#include "KivManipulator/ipropsgeodepropertynotify.h"

namespace KivManipulator {

class PropsEdit;

/// A props that the user moves: two draggers, one for the props and one for its contact point, both hidden
/// until shown. It stands beside the props transform, under the same parent, so that both share one space:
/// the frame of the bone that carries the props. Poses and points below are in that frame, in scene units.
/// Playback moves the bone and with it props and draggers; the pose in the bone's frame stays. The geode's
/// own matrix stays identity.
///
/// The contact point belongs to the props and moves with it. It starts at the origin of the props' own space,
/// where the bone holds the props.
///
/// A drag with the left button reports through the notify sink, under the bone's full name: flag true, then
/// vectors and values at every move and once more at the end, then flag false. It ends when the button is let
/// go, when the pointer comes back without the button down (its release went to another window), when the
/// dragger is hidden or the matrix is set; the pose stays then. Escape takes the pose back. A host that sees
/// its window lose the focus calls `finishDrag`. The key-up that belongs to such an Escape counts as handled
/// too; a viewer whose quit key is Escape looks at the key-up before the scene does, so give that key to an
/// event handler instead.
///
/// The props transform is only watched. The notify sink is a plain pointer: it must outlive the geode, or the
/// geode must not be edited any more; the destructor reports nothing. Not synchronised: for the thread that
/// owns the scene graph. Draggers take events in the event traversal of a viewer that shows the geode.
class KIV_MANIPULATOR_API PropsGeode : public osg::MatrixTransform, public IPickGeode
{
public:
    /// The node mask of a dragger that is shown; a hidden one has 0 and is neither drawn nor traversed.
    static constexpr osg::Node::NodeMask kDraggerMask = 0x00000100;

    /// @param actorName      whose props this is.
    /// @param propsTransform what the draggers move; may be null, then nothing moves.
    /// @param position       where the bone stands at rest, relative to its parent; kept for
    /// `getPropsPosition`.
    /// @param notify         told of every change; may be null.
    PropsGeode(const std::string& actorName, osg::MatrixTransform* propsTransform, const osg::Vec3f& position,
               IPropsGeodePropertyNotify* notify);

    const char* libraryName() const override { return "KivManipulator"; }
    const char* className() const override { return "PropsGeode"; }

    /// Builds both draggers, sized to the props. False if they are there already or there is nothing to move.
    bool SetDefaultDragger();

    /// Ties the props to the bone that carries it, which is only watched. The two matrices, the bone's at
    /// rest and that of the props' node, are kept for the getters. False, and nothing changed, for a null
    /// bone or a number that is not finite.
    bool SetInitalBoneAndMatrix(osg::MatrixTransform* bone, const osg::Matrixd& boneMatrix,  // frozen
                                const osg::Matrixd& jointMatrix);

    /// Sets the matrix of the props transform from 16 numbers in osg::Matrixd's order (row vectors,
    /// translation in elements 12 to 14). False, and nothing changed, for null or a number that is not
    /// finite. Nobody is notified: the sink hears of the user's edits alone. A drag in progress is finished
    /// first.
    bool SetPropsGemoetryMat(const double* matrix);  // frozen

    /// The two draggers are independent of each other. Showing one sizes it to the props as it is then. False
    /// where `SetDefaultDragger` has built none.
    bool ShowPropsDragger(bool show) override;
    bool ShowContactPointDragger(bool show) override;

    bool isPropsDraggerShown() const;
    bool isContactPointDraggerShown() const;
    /// Where a pointer can take hold of the arrows along x, y and z, in the bone's frame; empty for a dragger
    /// that is hidden.
    std::vector<osg::Vec3d> getPropsDraggerHandles() const;
    std::vector<osg::Vec3d> getContactPointDraggerHandles() const;
    /// Identity where there is no props transform.
    osg::Matrixd getPropsGeometryMat() const;
    osg::Vec3f getContactPoint() const;
    /// Nobody is notified. False, and nothing changed, for a number that is not finite or a props that is
    /// flat.
    bool setContactPoint(const osg::Vec3f& point);
    IPropsGeodePropertyNotify* getNotify() const;
    std::string getActorName() const;
    osg::Vec3f getPropsPosition() const;
    osg::MatrixTransform* getInitialBone() const;
    osg::Matrixd getInitialBoneMatrix() const;
    osg::Matrixd getInitialJointMatrix() const;

    /// The bone's full name, `7#RightProps`; where no bone was set it is that of the nearest bone above, and
    /// empty where there is none.
    std::string getPropsName() const;

    bool isDragging() const;

    /// Ends a drag in progress and leaves the pose as it is. False if there was no drag.
    bool finishDrag();

    /// Ends a drag in progress: takes the pose back to where the drag began and reports it, then the drag's
    /// end. False if there was no drag.
    bool cancelDrag();

    /// Of what is shown: a hidden dragger does not make the actor larger.
    osg::BoundingSphere computeBound() const override;

protected:
    ~PropsGeode() override;

private:
    std::string m_actorName;
    osg::Vec3f m_position;
    osg::observer_ptr<osg::MatrixTransform> m_pBone;
    osg::Matrixd m_boneMatrix;
    osg::Matrixd m_jointMatrix;
    std::unique_ptr<PropsEdit> m_spEdit;
};

}  // namespace KivManipulator
