#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/kivplayer/options/options.h"

/// What the program makes of its arguments, without a display.
KivPlayer::Parsing parse(const std::vector<std::string>& arguments);

/// A command line that is refused, and what is said.
struct Refused
{
    const char* name;
    std::vector<std::string> arguments;
    const char* said;
};

class RefusedOptions : public testing::TestWithParam<Refused>
{
};

inline std::string refusalName(const testing::TestParamInfo<Refused>& example)
{
    return example.param.name;
}
