#pragma once

#include <osg/Group>
#include <osg/NodeCallback>
#include <osg/Switch>
#include <osg/ref_ptr>
#include <osgText/Font>
#include <osgText/Text3D>

#include <map>
#include <string>

#include "KivAnimation/animation.h"
#include "KivCharacterization/common/fittingmaps.h"

namespace KivCharacterization {

/// What fitting finds and makes on one actor.
struct SFittingRecord
{
    BvhJointMap jointMap;
    BvhSegmentMap segmentMap;
    PropsMap propsMap;
};

/// One actor of the scene. Copies share the scene-graph objects.
struct SActorInfo
{
    osg::ref_ptr<osg::Group> root;
    osg::ref_ptr<KivAnimation::Animation> animation;
    osg::ref_ptr<osg::Switch> labelSwitch;    ///< null without a font
    osg::ref_ptr<osgText::Text3D> labelText;  ///< null without a font
    osg::ref_ptr<osg::NodeCallback> stickContactCallback;
    std::string actorId;
    bool hasLabel = false;
    SFittingRecord fitting;
};

/// Actors by their index as decimal text.
using ActorTable = std::map<std::string, SActorInfo>;

/// Label fonts by the path of their file; an entry may be null when the file held something else.
using FontTable = std::map<std::string, osg::ref_ptr<osgText::Font>>;

}  // namespace KivCharacterization
