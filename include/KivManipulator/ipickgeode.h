#pragma once

#include "KivCommonDef/sharedlibrary.h"

namespace KivManipulator {

/// A node that the user can pick and move with draggers.
class KIV_MANIPULATOR_API IPickGeode
{
public:
    /// Shows or hides the dragger that moves the props; true if there is one.
    virtual bool ShowPropsDragger(bool show) = 0;
    /// Shows or hides the dragger that moves the props' contact point; true if there is one.
    virtual bool ShowContactPointDragger(bool show) = 0;

    virtual ~IPickGeode();
};

}  // namespace KivManipulator
