#include "apps/kivplayer/options/offsetoption.h"

#include <CLI/CLI.hpp>

#include <cmath>

#include "apps/kivplayer/options/optionchecks.h"
#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

void parseOffsets(const OptionTexts& texts, Options& options)
{
    for (const std::string& text : texts.offsets) {
        const std::size_t sign = text.find('=');
        const auto actor = parseInteger(text.substr(0, sign));
        const auto seconds =
            sign != std::string::npos ? parseNumber(text.substr(sign + 1)) : std::optional<double>();
        if (!actor || !seconds)
            throwUnexpected("--offset", "ACTOR=SECONDS, such as 1=2.5", text);
        if (*actor < 0 || static_cast<std::size_t>(*actor) >= options.motions.size())
            throwUnexpected("--offset", "the number of a motion, 0 for the first", text);
        if (std::abs(*seconds) > kMaxOffset)
            throwUnexpected("--offset", "at most " + numberText(kMaxOffset) + " seconds, earlier or later",
                            text);
        if (!options.offsets.emplace(static_cast<unsigned>(*actor), *seconds).second)
            throwUnexpected("--offset", "one for an actor", text);
    }
}

}  // namespace KivPlayer
