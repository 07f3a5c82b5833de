#pragma once

#include <osg/MatrixTransform>
#include <osg/Vec3f>

#include <memory>
#include <string>

#include "KivCommonDef/sharedlibrary.h"
#include "KivManipulator/ipickgeode.h"
#include "KivManipulator/ipropsgeodepropertynotify.h"

namespace KivManipulator {

/// A props that the user moves: two draggers, one for the props and one for its contact point, both hidden until
/// shown. It stands beside the props transform, under the same parent, so that both share one space.
///
/// The props transform is only watched. The notify sink is a plain pointer: it must outlive the geode, or the geode
/// must not be edited any more. Not synchronised: for the thread that owns the scene graph. Draggers take events in
/// the event traversal of a viewer that shows the geode.
class KIV_MANIPULATOR_API PropsGeode : public osg::MatrixTransform, public IPickGeode
{
public:
    /// @param actorName      whose props this is.
    /// @param propsTransform what the draggers move; may be null, then nothing moves.
    /// @param position       where the props stands, scene units.
    /// @param notify         told of every change; may be null.
    PropsGeode(const std::string& actorName, osg::MatrixTransform* propsTransform, const osg::Vec3f& position,
               IPropsGeodePropertyNotify* notify);

    const char* libraryName() const override { return "KivManipulator"; }
    const char* className() const override { return "PropsGeode"; }

    /// Builds both draggers, sized to the props. False if they are there already or there is nothing to move.
    bool SetDefaultDragger();

    /// Ties the props to the bone that carries it.
    bool SetInitalBoneAndMatrix(osg::MatrixTransform* bone, const osg::Matrixd& boneMatrix,
                                const osg::Matrixd& jointMatrix);

    /// Sets the matrix of the props transform from 16 numbers in osg::Matrixd's order (row vectors, translation in
    /// elements 12 to 14). False, and nothing changed, for null or a number that is not finite. Nobody is notified:
    /// the sink hears of the user's edits alone.
    bool SetPropsGemoetryMat(const double* matrix);

    bool ShowPropsDragger(bool show) override;
    bool ShowContactPointDragger(bool show) override;

    bool isPropsDraggerShown() const;
    bool isContactPointDraggerShown() const;
    osg::Matrixd getPropsGeometryMat() const;
    osg::Vec3f getContactPoint() const;
    IPropsGeodePropertyNotify* getNotify() const;
    std::string getActorName() const;
    osg::Vec3f getPropsPosition() const;
    osg::MatrixTransform* getInitialBone() const;

    /// The bone's full name, `7#RightProps`; where no bone was set it is that of the nearest bone above.
    std::string getPropsName() const;

    /// Ends a drag in progress: takes the pose back to where the drag began and reports it, then the drag's end.
    /// False if there was no drag.
    bool cancelDrag();

protected:
    ~PropsGeode() override;

private:
    struct Edit;
    std::unique_ptr<Edit> m_spEdit;
};

}  // namespace KivManipulator
