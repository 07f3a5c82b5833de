#pragma once

#include <string>

#include "apps/kivplayer/report/fitreport.h"

namespace KivPlayer {

/// How an actor was dressed in a few lines for people, each with its newline.
std::string summaryOf(const ActorFit& fit);

}  // namespace KivPlayer
