#include "apps/kivplayer/window/platform/nativewindow.h"

#include <algorithm>

namespace KivPlayer {

namespace {

int hexDigit(char letter)
{
    if (letter >= '0' && letter <= '9')
        return letter - '0';
    const char small = static_cast<char>(letter | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::string decoded(const std::string& text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
        const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
        plain += low >= 0 ? static_cast<char>(16 * high + low) : text[i];
        i += low >= 0 ? 2 : 0;
    }
    return plain;
}

}  // namespace

std::vector<std::string> filesInUriList(const std::string& list)
{
    const std::string scheme = "file://";
    std::vector<std::string> files;
    std::size_t from = 0;
    while (from < list.size()) {
        const std::size_t end = std::min(list.find_first_of("\r\n", from), list.size());
        const std::string line = list.substr(from, end - from);
        from = end + 1;
        if (line.compare(0, scheme.size(), scheme) != 0)
            continue;
        // Between the scheme and the path may stand a host, which can only be this one.
        const std::size_t path = line.find('/', scheme.size());
        if (path != std::string::npos)
            files.push_back(decoded(line.substr(path)));
    }
    return files;
}

}  // namespace KivPlayer
