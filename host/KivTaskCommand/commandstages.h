#pragma once

#include <exception>

#include "KivTaskCommand/icmdexcdelegate.h"

namespace KivTaskCommand {

/// Runs the three stages in order, each whatever an earlier one answered or threw.
/// @param aroundExecute called once with the execute stage, which it has to call: the place to hold a gate.
/// @return true only if all three answered true.
/// @throws what a stage threw first, after finish has run.
template <typename AroundExecute>
bool runCommandStages(ICmdExcDelegate& delegate, AroundExecute aroundExecute)
{
    bool succeeded = true;
    std::exception_ptr firstFailure;
    const auto attempt = [&](bool (ICmdExcDelegate::*stage)()) {
        try {
            succeeded = (delegate.*stage)() && succeeded;
        } catch (...) {
            if (!firstFailure) {
                firstFailure = std::current_exception();
            }
        }
    };
    attempt(&ICmdExcDelegate::prepare);
    aroundExecute([&] { attempt(&ICmdExcDelegate::execute); });
    attempt(&ICmdExcDelegate::finish);
    if (firstFailure) {
        std::rethrow_exception(firstFailure);
    }
    return succeeded;
}

}  // namespace KivTaskCommand
