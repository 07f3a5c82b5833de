#include "KivManipulator/ipropsgeodepropertynotify.h"

namespace KivManipulator {

bool IPropsGeodePropertyNotify::PropsVectorsChanged(std::string, const osg::Vec3f&, const osg::Vec3f&)
{
    return true;
}

bool IPropsGeodePropertyNotify::PropsValuesChanged(std::string, const osg::Quat&, const osg::Vec3d&)
{
    return true;
}

bool IPropsGeodePropertyNotify::PropsFlagChanged(std::string, bool)
{
    return true;
}

IPropsGeodePropertyNotify::~IPropsGeodePropertyNotify() = default;

}  // namespace KivManipulator
