#pragma once

namespace KivCharacterizationCommonDef {

/// What characterization is doing; overlays follow frame data only when it is ready.
enum ECharacterizaionState : int  // frozen
{
    CharacterizationIdle = 0,
    CharacterizationBuilding = 1,
    CharacterizationReady = 2
};

}  // namespace KivCharacterizationCommonDef
