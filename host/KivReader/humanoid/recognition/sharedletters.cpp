#include <algorithm>
#include <map>

#include "host/KivReader/humanoid/recognition/namehints.h"
#include "host/KivReader/humanoid/recognition/nameletters.h"

namespace KivReader {

namespace {

constexpr std::size_t kFewNames = 8;
constexpr double kNearlyAll = 0.9;
constexpr std::size_t kLongest = 64;

using Letters = std::vector<char32_t>;

Letters sharedFromFront(std::vector<Letters> names)
{
    const std::size_t enough = static_cast<std::size_t>(kNearlyAll * static_cast<double>(names.size())) + 1;
    Letters shared;
    while (shared.size() < kLongest) {
        std::map<char32_t, std::size_t> counts;
        for (const Letters& name : names)
            ++counts[shared.size() < name.size() ? name[shared.size()] : 0];
        const auto most = std::max_element(counts.begin(), counts.end(),
                                           [](const auto& a, const auto& b) { return a.second < b.second; });
        const char32_t letter = most->first;
        if (letter == 0 || most->second < enough)
            break;
        names.erase(std::remove_if(names.begin(), names.end(),
                                   [&](const Letters& name) {
                                       return shared.size() >= name.size() || name[shared.size()] != letter;
                                   }),
                    names.end());
        shared.push_back(letter);
    }
    return shared;
}

}  // namespace

SharedLetters sharedLetters(const std::vector<std::string>& names)
{
    SharedLetters shared;
    if (names.size() < kFewNames)
        return shared;
    std::vector<Letters> letters;
    letters.reserve(names.size());
    for (const std::string& name : names)
        letters.push_back(lettersOf(name));
    shared.inFront = sharedFromFront(letters);
    for (Letters& name : letters)
        std::reverse(name.begin(), name.end());
    shared.behind = sharedFromFront(std::move(letters));
    std::reverse(shared.behind.begin(), shared.behind.end());
    return shared;
}

std::string withoutShared(const std::string& name, const SharedLetters& shared)
{
    Letters letters = lettersOf(name);
    if (letters.size() <= shared.inFront.size() + shared.behind.size())
        return name;
    if (std::equal(shared.behind.rbegin(), shared.behind.rend(), letters.rbegin()))
        letters.resize(letters.size() - shared.behind.size());
    if (std::equal(shared.inFront.begin(), shared.inFront.end(), letters.begin()))
        letters.erase(letters.begin(), letters.begin() + static_cast<std::ptrdiff_t>(shared.inFront.size()));
    return utf8From(letters);
}

}  // namespace KivReader
