#pragma once

#include <osg/Node>
#include <osg/ref_ptr>

#include "KivCharacterization/common/fittingmaps.h"

namespace KivCharacterization {
namespace CommonTypeDef {

/// A loaded avatar model and what its analysis found. Copies share the model.
struct SIveInfo
{
    osg::ref_ptr<osg::Node> node;
    IveJointMap jointMap;
    IveSegmentMap segmentMap;
    SkeletonExtra skeletonExtra;
};

}  // namespace CommonTypeDef

/// Avatar models by the path of their file.
using IveInfoTable = std::map<std::string, CommonTypeDef::SIveInfo>;

}  // namespace KivCharacterization
