#include "KivRenderState/kivrenderstatemanager.h"

#include <mutex>

namespace KivRenderState {

struct KivRenderStateManager::State
{
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
    m_spState->set(&State::Values::characterization, state);
}

KivCharacterizationCommonDef::ECharacterizaionState KivRenderStateManager::getCharacterizationState() const
{
    return m_spState->get(&State::Values::characterization);
}

void KivRenderStateManager::setCameraTraceState(bool on)
{
    m_spState->set(&State::Values::cameraTrace, on);
}

bool KivRenderStateManager::getCameraTraceState() const
{
    return m_spState->get(&State::Values::cameraTrace);
}

void KivRenderStateManager::setCameraTraceIdStr(const std::string& id)
{
    m_spState->set(&State::Values::cameraTraceId, id);
}

std::string KivRenderStateManager::getCameraTraceIdStr() const
{
    return m_spState->get(&State::Values::cameraTraceId);
}

void KivRenderStateManager::setCameraTraceMatrix(const osg::Matrixd& matrix)
{
    m_spState->set(&State::Values::cameraTraceMatrix, matrix);
}

osg::Matrixd KivRenderStateManager::getCameraTraceMatrix() const
{
    return m_spState->get(&State::Values::cameraTraceMatrix);
}

bool KivRenderStateManager::setBVHContactColor(const std::string& jointName,
                                               const KivCommonDef::KIV_STICKCONTACT_COLOR& color)
{
    const std::lock_guard<std::mutex> lock(m_spState->mutex);
    return m_spState->values.contactColors.insert_or_assign(jointName, color).second;
}

std::map<std::string, KivCommonDef::KIV_STICKCONTACT_COLOR> KivRenderStateManager::getBVHContactColor() const
{
    return m_spState->get(&State::Values::contactColors);
}

void KivRenderStateManager::setCenterOfMassShow(bool show)
{
    m_spState->set(&State::Values::centerOfMass, show);
}

bool KivRenderStateManager::getCenterOfMassShow() const
{
    return m_spState->get(&State::Values::centerOfMass);
}

void KivRenderStateManager::reset()
{
    const std::lock_guard<std::mutex> lock(m_spState->mutex);
    m_spState->values = State::Values();
}

}  // namespace KivRenderState
