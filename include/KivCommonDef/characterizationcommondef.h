#pragma once

namespace KivCharacterizationCommonDef {

/// What characterization is doing; overlays follow frame data only when it is ready.
enum ECharacterizaionState : int
{
    CharacterizationIdle = 0,
    CharacterizationBuilding = 1,
    CharacterizationReady = 2
};

}  // namespace KivCharacterizationCommonDef
