#pragma once

#include <string>
#include <string_view>
#include <variant>

namespace KivPlayer {

/// The name of one picture, or of every picture of a sequence: "{frame}" stands for the number of the
/// picture,
/// "{frame:4}" fills it with blanks to four places, "{frame:04}" with zeros; "{{" and "}}" stand for braces.
class OutputNames
{
public:
    /// @return the names, or what is wrong with the text.
    static std::variant<OutputNames, std::string> parse(std::string_view text);

    bool isSequence() const { return m_sequence; }
    std::string name(unsigned long long frame) const;

private:
    OutputNames() = default;

    std::string m_before;
    std::string m_after;
    bool m_sequence = false;
    std::size_t m_width = 0;
    char m_fill = ' ';
};

}  // namespace KivPlayer
