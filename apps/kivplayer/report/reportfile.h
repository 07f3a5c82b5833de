#pragma once

#include <string>

#include "apps/kivplayer/report/fitreport.h"
#include "apps/kivplayer/support/console.h"

namespace KivPlayer {

/// The report as JSON, as docs/report-schema.json has it. What is promised as a number is one.
std::string reportText(const FitReport& report);

/// Writes it, whole or not at all; what cannot be written is reported.
/// @param file "-" is stdout.
void writeReport(const std::string& file, const FitReport& report, Console& console);

}  // namespace KivPlayer
