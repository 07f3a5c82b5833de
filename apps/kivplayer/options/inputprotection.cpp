#include "apps/kivplayer/options/inputprotection.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace KivPlayer {

namespace {

namespace fs = std::filesystem;

struct NamedFile
{
    std::string option;
    std::string file;
};

/// A file is first written under its name with this behind it.
constexpr const char* kTemporary = ".part";
constexpr std::string_view kMotionKeyword = "HIERARCHY";
constexpr std::size_t kLooksAt = 64;  ///< bytes: blank lines and a byte order mark may stand before it
constexpr const char* kStandardStream = "-";

std::vector<NamedFile> outputsOf(const Options& options)
{
    std::vector<NamedFile> outputs;
    const auto add = [&](const char* option, const std::string& file) {
        if (!file.empty() && file != kStandardStream)
            outputs.push_back({option, file});
    };
    if (options.output && !options.output->isSequence())
        add("--output", options.output->name(0));
    for (const std::string& file : options.exports)
        add("--export", file);
    add("--report", options.report);
    add("--write-profile", options.aliasTableToWrite);
    add("--reference-difference", options.referenceDifference);
    add("--state-file", options.stateFile);
    return outputs;
}

std::vector<NamedFile> inputsOf(const Options& options)
{
    std::vector<NamedFile> inputs;
    for (const std::string& motion : options.motions)
        inputs.push_back({"motion", motion});
    if (!options.reference.empty())
        inputs.push_back({"--reference", options.reference});
    if (!options.aliasTable.empty())
        inputs.push_back({"--profile", options.aliasTable});
    return inputs;
}

bool areTheSame(const fs::path& one, const fs::path& other)
{
    std::error_code problem;
    if (fs::equivalent(one, other, problem) && !problem)
        return true;
    const fs::path first = fs::weakly_canonical(one, problem);
    const fs::path second = fs::weakly_canonical(other, problem);
    return !problem && first == second;
}

/// By what it holds or, where that cannot be read, by its file extension.
bool isMotion(const std::string& file)
{
    std::error_code problem;
    if (!fs::is_regular_file(file, problem))
        return false;
    std::string extension = fs::path(file).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    if (extension == ".bvh")
        return true;
    std::ifstream stream(file, std::ios::binary);
    std::string beginning(kLooksAt, '\0');
    stream.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
    std::transform(beginning.begin(), beginning.end(), beginning.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return beginning.find(kMotionKeyword) != std::string::npos;
}

void protect(const NamedFile& output, const std::vector<NamedFile>& inputs)
{
    for (const NamedFile& input : inputs) {
        if (areTheSame(output.file, input.file) || areTheSame(output.file + kTemporary, input.file))
            throw CLI::ValidationError(output.option, "writing " + output.file + " would destroy the " +
                                                          input.option + " " + input.file +
                                                          "; choose another name");
    }
    if (isMotion(output.file))
        throw CLI::ValidationError(
            output.option,
            output.file + " is a motion file, which is never written over; choose another name" +
                (inputs.empty() ? "" : " (the motion to show is " + inputs.front().file + ")"));
}

}  // namespace

void protectInputs(const Options& options)
{
    const std::vector<NamedFile> inputs = inputsOf(options);
    for (const NamedFile& output : outputsOf(options))
        protect(output, inputs);
}

}  // namespace KivPlayer
