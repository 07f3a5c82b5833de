#include "host/KivReader/humanoid/profiletable.h"

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "host/KivReader/syntax/numbertext.h"
#include "host/KivReader/syntax/textcursor.h"

namespace KivReader {

namespace {

using Words = std::vector<std::string>;

Words split(std::string_view text, char separator)
{
    Words parts;
    while (true) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

/// Every text that "{a,b}" groups stand for; the last group changes fastest.
Words expanded(const std::string& text)
{
    Words open = {text};
    Words done;
    while (!open.empty()) {
        const std::string current = open.back();
        open.pop_back();
        const std::size_t begin = current.find('{');
        const std::size_t end = current.find('}', begin);
        if (begin == std::string::npos || end == std::string::npos) {
            done.push_back(current);
            continue;
        }
        const Words choices = split(std::string_view(current).substr(begin + 1, end - begin - 1), ',');
        for (auto choice = choices.rbegin(); choice != choices.rend(); ++choice)
            open.push_back(current.substr(0, begin) + *choice + current.substr(end + 1));
    }
    return done;
}

class TableParser
{
public:
    explicit TableParser(std::string source) : m_source(std::move(source)) {}

    ProfileTable parse(std::string_view text)
    {
        for (const std::string& line : split(text, '\n')) {
            ++m_line;
            if (!line.empty() && line.front() != '#')
                takeStatement(line);
        }
        return std::move(m_table);
    }

private:
    [[noreturn]] void refuse(const std::string& reason) const
    {
        throw std::runtime_error(m_source + ", line " + std::to_string(m_line) + ": " + reason);
    }

    void takeStatement(std::string_view line)
    {
        TextCursor cursor(line);
        const std::string_view keyword = cursor.take();
        const std::string_view rest = trimmed(line.substr(cursor.offset()));
        if (keyword == "joint")
            takeJoint(cursor);
        else if (keyword == "end")
            takeEnd(cursor);
        else if (keyword == "dialect")
            m_table.dialects.push_back({std::string(rest), {}, {}, {}});
        else if (m_table.dialects.empty())
            refuse("a dialect must come first, found " + quoted(keyword));
        else if (keyword == "when")
            takeSignature(rest);
        else if (keyword == "prefix")
            m_table.dialects.back().prefix = rest;
        else if (keyword == "name")
            takeName(rest);
        else
            refuse("unknown statement " + quoted(keyword));
    }

    /// Y-up in the file, Z-up here.
    osg::Vec3d takeVector(TextCursor& cursor) const
    {
        std::array<double, 3> numbers{};
        for (double& number : numbers) {
            if (!readWholeNumber(cursor.take(), number))
                refuse("three numbers expected");
        }
        return {numbers[0], -numbers[2], numbers[1]};
    }

    void takeJoint(TextCursor& cursor)
    {
        RestFigure& figure = m_table.figure;
        RestFigure::Joint joint;
        joint.name = cursor.take();
        joint.parent = cursor.take();
        if (joint.parent == "-")
            joint.parent.clear();
        if (figure.has(joint.name) || figure.joints.empty() != joint.parent.empty() ||
            (!joint.parent.empty() && !figure.has(joint.parent)))
            refuse("joint " + quoted(joint.name) + " comes twice or before its parent");
        joint.offset = takeVector(cursor);
        figure.index[joint.name] = figure.joints.size();
        figure.joints.push_back(std::move(joint));
    }

    void takeEnd(TextCursor& cursor)
    {
        const std::string parent(cursor.take());
        if (!m_table.figure.has(parent))
            refuse("no joint is called " + quoted(parent));
        m_table.figure.ends[parent] = takeVector(cursor);
    }

    void takeSignature(std::string_view text)
    {
        Dialect::Signature signature;
        for (const std::string& term : split(text, '&')) {
            signature.push_back(split(term, '|'));
            for (const std::string& name : signature.back()) {
                if (name.empty())
                    refuse("a name is missing");
            }
        }
        m_table.dialects.back().signatures.push_back(std::move(signature));
    }

    void takeName(std::string_view text)
    {
        const std::size_t sign = text.rfind('=');
        if (sign == std::string_view::npos)
            refuse("FOREIGN = TARGET expected");
        const Words foreign = expanded(std::string(trimmed(text.substr(0, sign))));
        Words targets = expanded(std::string(trimmed(text.substr(sign + 1))));
        if (targets.size() == 1)
            targets.resize(foreign.size(), targets.front());
        if (foreign.size() != targets.size() || foreign.front().empty() || targets.front().empty())
            refuse("as many names as targets expected");
        for (std::size_t i = 0; i < foreign.size(); ++i)
            m_table.dialects.back().names.emplace_back(foreign[i], targets[i]);
    }

    std::string m_source;
    std::size_t m_line = 0;
    ProfileTable m_table;
};

constexpr std::string_view kBuiltInText =
#include "humanoidprofiletext.inc"
    ;

}  // namespace

osg::Vec3d RestFigure::place(const std::string& name) const
{
    osg::Vec3d place;
    for (std::string current = name; !current.empty(); current = joint(current).parent)
        place += offset(current);
    return place;
}

ProfileTable parseProfileTable(std::string_view text, const std::string& source)
{
    return TableParser(source).parse(text);
}

const ProfileTable& builtInProfileTable()
{
    static const ProfileTable s_table = parseProfileTable(kBuiltInText, "built-in profile");
    return s_table;
}

ProfileTable profileTableWith(const std::string& file)
{
    if (file.empty())
        return builtInProfileTable();
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    if (!stream || !(text << stream.rdbuf()))
        throw std::runtime_error("the profile table " + quoted(file) + " cannot be read");
    ProfileTable table = parseProfileTable(text.str(), file);
    const ProfileTable& builtIn = builtInProfileTable();
    table.usersDialects = table.dialects.size();
    table.dialects.insert(table.dialects.end(), builtIn.dialects.begin(), builtIn.dialects.end());
    for (const RestFigure::Joint& joint : builtIn.figure.joints) {
        if (!table.figure.joints.empty() && !table.figure.has(joint.name))
            throw std::runtime_error(file + ": the figure lacks the joint " + joint.name);
    }
    if (table.figure.joints.empty())
        table.figure = builtIn.figure;
    return table;
}

}  // namespace KivReader
