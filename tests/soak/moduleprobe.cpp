#include "tests/soak/moduleprobe.h"

#include "KivCharacterization/characterizationmanager.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivTaskCommand/taskcommand.h"

namespace {

using KivCharacterization::CharacterizationManager;
using KivMemoryShare::SceneCfgShare;

const char* const kFigure = R"(HIERARCHY
ROOT Hips
{
  OFFSET 0 96 0
  CHANNELS 3 Zrotation Xrotation Yrotation
  JOINT RightProps
  {
    OFFSET 10 0 0
    CHANNELS 3 Zrotation Xrotation Yrotation
    End Site
    {
      OFFSET 5 0 0
    }
  }
}
)";

int useEverything(const char* rootDir)
{
    CharacterizationManager* manager = CharacterizationManager::instance();
    if (!manager->initalCharacterModel(rootDir)) {
        return 1;
    }
    KivTaskCommand::TaskCommand load;
    if (!manager->createLoadBVHCommand(kFigure, 1, "Probe", &load) || !load.run()) {
        return 2;
    }
    if (SceneCfgShare::instance()->getCharacterSceneNode()->getNumChildren() != 1) {
        return 3;
    }
    KivTaskCommand::TaskCommand removal;
    return manager->ClearOrRemoveActor(&removal, 0, 0) && removal.run() ? 0 : 4;
}

}  // namespace

int runProbe(const char* rootDir)
{
    const int failedStep = useEverything(rootDir);
    CharacterizationManager::releaseIns();
    SceneCfgShare::instance()->reset();
    return failedStep;
}
