#pragma once

#include <osg/Matrixd>

#include <map>
#include <memory>
#include <string>

#include "KivCommonDef/characterizationcommondef.h"
#include "KivCommonDef/sharedlibrary.h"
#include "KivCommonDef/stickcontact.h"

namespace KivRenderState {

/// What the host wants shown, shared between its user interface, its commands and its frame loop. Every
/// operation is synchronised and every getter answers by value.
class KIV_RENDERSTATE_API KivRenderStateManager
{
public:
    static KivRenderStateManager* instance();

    KivRenderStateManager(const KivRenderStateManager&) = delete;
    KivRenderStateManager& operator=(const KivRenderStateManager&) = delete;

    /// Starts idle.
    void setCharacterizationState(KivCharacterizationCommonDef::ECharacterizaionState state);
    KivCharacterizationCommonDef::ECharacterizaionState getCharacterizationState() const;

    /// Whether the camera follows an actor, and which; off and empty at first.
    void setCameraTraceState(bool on);
    bool getCameraTraceState() const;
    void setCameraTraceIdStr(const std::string& id);
    std::string getCameraTraceIdStr() const;

    /// What the camera adds to its own pose while it follows; identity at first.
    void setCameraTraceMatrix(const osg::Matrixd& matrix);
    osg::Matrixd getCameraTraceMatrix() const;

    /// Contact colours by joint name.
    /// @return true if the joint had no colour yet.
    bool setBVHContactColor(const std::string& jointName, const KivCommonDef::KIV_STICKCONTACT_COLOR& color);
    std::map<std::string, KivCommonDef::KIV_STICKCONTACT_COLOR> getBVHContactColor() const;

    /// Whether the centre-of-mass marker is wanted; off at first.
    void setCenterOfMassShow(bool show);
    bool getCenterOfMassShow() const;

    /// Everything back to its start value.
    void reset();

private:
    KivRenderStateManager();
    ~KivRenderStateManager();

    struct State;
    std::unique_ptr<State> m_spState;
};

}  // namespace KivRenderState
