#pragma once

#include "KivCharacterization/characterizationmanager.h"
#include "KivCharacterization/common/actorinfo.h"
#include "KivCharacterization/common/iveinfo.h"

namespace KivCharacterization {

/// Reaches into the manager for tests that link the module's objects.
struct CharacterizationManagerAccess
{
    explicit CharacterizationManagerAccess(CharacterizationManager& manager)
        : rootDir(manager.m_strRootDir),
          enabled(manager.m_bEnableCharacterization),
          avatars(manager.m_mapIveInfo),
          actors(manager.m_mapActors),
          fonts(manager.m_mapFonts),
          heldObject(manager.m_spHeldObject),
          m_manager(manager)
    {}

    static CharacterizationManager* current() { return CharacterizationManager::m_pIns; }
    bool loadIveFile(const std::string& path) { return m_manager.loadIveFile(path); }
    bool isEnabled() { return m_manager.IsEnableCharacterizaion(); }

    std::string& rootDir;
    bool& enabled;
    IveInfoTable& avatars;
    ActorTable& actors;
    FontTable& fonts;
    osg::ref_ptr<osg::Referenced>& heldObject;

private:
    CharacterizationManager& m_manager;
};

}  // namespace KivCharacterization
