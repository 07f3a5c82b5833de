#pragma once

#include "KivReader/humanoidprofile.h"
#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

struct ProfiledFigure
{
    MotionFigure figure;
    ProfileRecord record;
};

/// The document's figure with what the options ask for. A figure that is no humanoid, and any figure with the
/// profile off, is what makeFigure makes of it.
KIV_READER_API ProfiledFigure makeProfiledFigure(const MotionDocument& document,
                                                 const ProfileOptions& options);

}  // namespace KivReader
