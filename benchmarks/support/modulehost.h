#pragma once

#include <osg/Group>

#include <cstddef>
#include <string>

#include "KivCharacterization/characterizationmanager.h"
#include "KivCharacterization/common/iveinfo.h"
#include "KivTaskCommand/taskcommand.h"

namespace KivBenchmark {

/// A host that has just been started, with the shipped font, that runs commands on the calling thread. One at
/// a time; the singletons are emptied when it goes.
class ModuleHost
{
public:
    /// With the shipped avatar.
    ModuleHost();
    explicit ModuleHost(const KivCharacterization::CommonTypeDef::SIveInfo& avatar);
    ~ModuleHost();
    ModuleHost(const ModuleHost&) = delete;
    ModuleHost& operator=(const ModuleHost&) = delete;

    static KivCharacterization::CharacterizationManager& manager();
    static osg::Group& scene();

    /// All throw std::runtime_error where the command fails.
    static void load(const std::string& motion, int actor);
    static void loadMany(const std::string& motion, int actors);
    static void remove(int actor);
    static void removeAll();
    static void rename(int actor, const std::string& name);
    /// Gives a joint's contact marker its colour, for all actors.
    static void paintContacts(const std::string& joint);

private:
    static void run(KivTaskCommand::TaskCommand& command);
};

}  // namespace KivBenchmark
