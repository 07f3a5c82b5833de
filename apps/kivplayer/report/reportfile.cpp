#include "apps/kivplayer/report/reportfile.h"

#include <iostream>

#include "apps/kivplayer/support/atomicfile.h"

namespace KivPlayer {

void writeReport(const std::string& file, const nlohmann::ordered_json& report, Console& console)
{
    const std::string text =
        report.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
    if (file == "-") {
        std::cout << text << std::flush;
        return;
    }
    const std::string problem =
        writeAtomically(file, [&](std::ostream& stream) { return static_cast<bool>(stream << text); });
    if (!problem.empty())
        console.error({file, 0, 0, problem});
}

}  // namespace KivPlayer
