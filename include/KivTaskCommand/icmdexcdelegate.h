#pragma once

#include <cstdint>

#include "KivCommonDef/sharedlibrary.h"

namespace KivTaskCommand {

/// The work behind a command, in three stages that a TaskCommand runs in this order. The slot order of the
/// virtual operations is part of the interface.
class KIV_TASKCOMMAND_API ICmdExcDelegate
{
public:
    /// Work that needs no exclusive hold of the scene: it may run beside the rendering.
    virtual bool prepare() = 0;
    /// Work that changes the scene graph: the host runs it while no frame is being drawn.
    virtual bool execute() = 0;
    /// Closing work, run whatever the earlier stages answered.
    virtual bool finish() = 0;

    virtual ~ICmdExcDelegate();

    ICmdExcDelegate(const ICmdExcDelegate&) = delete;
    ICmdExcDelegate& operator=(const ICmdExcDelegate&) = delete;

    /// For the command library: element 0 is always 1, the others are the class's own three consecutive
    /// codes.
    std::int32_t m_codes[4];

protected:
    ICmdExcDelegate(std::int32_t first, std::int32_t prepareCode, std::int32_t executeCode,
                    std::int32_t finishCode);
};

}  // namespace KivTaskCommand
