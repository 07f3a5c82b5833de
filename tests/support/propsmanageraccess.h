#pragma once

#include "KivCharacterization/Characterization/kivpropsproertymanager.h"

namespace KivCharacterization {

/// Reaches into the props manager for tests that link the module's objects.
struct KivPropsProertyManagerAccess
{
    static OpenThreads::Mutex& mutex() { return KivPropsProertyManager::Instance()->m_mutex; }
};

}  // namespace KivCharacterization
