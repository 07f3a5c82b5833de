#include "KivRenderState/kivrenderstatemanager.h"

#include <mutex>

namespace KivRenderState {

namespace {

struct Values
{
    KivCharacterizationCommonDef::ECharacterizaionState characterization =
        KivCharacterizationCommonDef::CharacterizationIdle;
    bool cameraTrace = false;
    std::string cameraTraceId;
    osg::Matrixd cameraTraceMatrix;
    std::map<std::string, KivCommonDef::KIV_STICKCONTACT_COLOR> contactColors;
    bool centerOfMass = false;
};

}  // namespace

struct KivRenderStateManager::State
{
    std::mutex mutex;
    Values values;

    template <typename T>
    T get(T Values::*member)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return values.*member;
    }

    template <typename T>
    void set(T Values::*member, const T& value)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        values.*member = value;
    }
};

// Never destroyed: a worker thread may still ask while the program ends.
KivRenderStateManager* KivRenderStateManager::instance()
{
    static KivRenderStateManager* const s_instance = new KivRenderStateManager;
    return s_instance;
}

KivRenderStateManager::KivRenderStateManager() : m_spState(std::make_unique<State>()) {}

KivRenderStateManager::~KivRenderStateManager() = default;

void KivRenderStateManager::setCharacterizationState(
    KivCharacterizationCommonDef::ECharacterizaionState state)
{
    m_spState->set(&Values::characterization, state);
}

KivCharacterizationCommonDef::ECharacterizaionState KivRenderStateManager::getCharacterizationState() const
{
    return m_spState->get(&Values::characterization);
}

void KivRenderStateManager::setCameraTraceState(bool on)
{
    m_spState->set(&Values::cameraTrace, on);
}

bool KivRenderStateManager::getCameraTraceState() const
{
    return m_spState->get(&Values::cameraTrace);
}

void KivRenderStateManager::setCameraTraceIdStr(const std::string& id)
{
    m_spState->set(&Values::cameraTraceId, id);
}

std::string KivRenderStateManager::getCameraTraceIdStr() const
{
    return m_spState->get(&Values::cameraTraceId);
}

void KivRenderStateManager::setCameraTraceMatrix(const osg::Matrixd& matrix)
{
    m_spState->set(&Values::cameraTraceMatrix, matrix);
}

osg::Matrixd KivRenderStateManager::getCameraTraceMatrix() const
{
    return m_spState->get(&Values::cameraTraceMatrix);
}

bool KivRenderStateManager::setBVHContactColor(const std::string& jointName,
                                               const KivCommonDef::KIV_STICKCONTACT_COLOR& color)
{
    const std::lock_guard<std::mutex> lock(m_spState->mutex);
    return m_spState->values.contactColors.insert_or_assign(jointName, color).second;
}

std::map<std::string, KivCommonDef::KIV_STICKCONTACT_COLOR> KivRenderStateManager::getBVHContactColor() const
{
    return m_spState->get(&Values::contactColors);
}

void KivRenderStateManager::setCenterOfMassShow(bool show)
{
    m_spState->set(&Values::centerOfMass, show);
}

bool KivRenderStateManager::getCenterOfMassShow() const
{
    return m_spState->get(&Values::centerOfMass);
}

void KivRenderStateManager::reset()
{
    const std::lock_guard<std::mutex> lock(m_spState->mutex);
    m_spState->values = Values();
}

}  // namespace KivRenderState
