#pragma once

#include <osg/Material>
#include <osg/StateSet>

namespace KivCharacterization {

/// The material that a state set has, or a new one that is yet to be set.
inline osg::ref_ptr<osg::Material> ownMaterial(osg::StateSet& stateSet)
{
    osg::ref_ptr<osg::Material> material =
        dynamic_cast<osg::Material*>(stateSet.getAttribute(osg::StateAttribute::MATERIAL));
    if (!material) {
        material = new osg::Material;
    }
    return material;
}

}  // namespace KivCharacterization
