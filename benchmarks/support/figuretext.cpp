#include "benchmarks/support/figuretext.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <vector>

#include "tools/figure/restfigure.h"

namespace KivBenchmark {

namespace {

using KivFigure::Offset;
using KivFigure::RestJoint;

void appendNumber(std::string& text, double value)
{
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 6).ptr;
    text.append(digits, end);
}

/// So that times which are meant to fall on rows do.
void appendExactNumber(std::string& text, double value)
{
    char digits[32];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

class HierarchyWriter
{
public:
    explicit HierarchyWriter(Props props) : m_joints(KivFigure::restJoints())
    {
        if (m_joints.size() + 1 != kJoints)
            throw std::logic_error("the rest figure has another number of joints");
        if (props == Props::Left)
            m_joints.push_back(KivFigure::propsJoints().front());
    }

    std::string write()
    {
        m_text = "HIERARCHY\n";
        writeJoint("ROOT", m_joints.front(), 0);
        return m_text;
    }

private:
    void writeJoint(const char* word, const RestJoint& joint, std::size_t depth)
    {
        writeLine(depth, std::string(word) + " " + joint.name);
        writeLine(depth, "{");
        writeOffset(depth + 1, joint.offset);
        writeLine(depth + 1, joint.parent.empty() ? "CHANNELS 6 Xposition Yposition Zposition Zrotation "
                                                    "Xrotation Yrotation"
                                                  : "CHANNELS 3 Zrotation Xrotation Yrotation");
        bool hasChild = false;
        for (const RestJoint& child : m_joints) {
            if (child.parent == joint.name) {
                writeJoint("JOINT", child, depth + 1);
                hasChild = true;
            }
        }
        if (!hasChild)
            writeEndSite(depth + 1);
        writeLine(depth, "}");
    }

    void writeEndSite(std::size_t depth)
    {
        writeLine(depth, "End Site");
        writeLine(depth, "{");
        writeOffset(depth + 1, {1.5, 2.5, 0.5});
        writeLine(depth, "}");
    }

    void writeOffset(std::size_t depth, const Offset& offset)
    {
        std::string line = "OFFSET";
        for (const double component : offset) {
            line += ' ';
            appendNumber(line, component);
        }
        writeLine(depth, line);
    }

    void writeLine(std::size_t depth, const std::string& line)
    {
        m_text.append(depth, '\t').append(line).append(1, '\n');
    }

    std::vector<RestJoint> m_joints;
    std::string m_text;
};

}  // namespace

double motionValue(std::size_t row, std::size_t column)
{
    const double phase = 0.7 * static_cast<double>(column);
    const double swing = std::sin(0.021 * static_cast<double>(row) + phase);
    return column < 3 ? 90.0 + 5.0 * swing : (10.0 + static_cast<double>(column % 7) * 12.0) * swing;
}

std::string hierarchyText(Props props)
{
    return HierarchyWriter(props).write();
}

std::string motionText(std::size_t rows, double frameTime)
{
    std::string text = hierarchyText() + "MOTION\nFrames: " + std::to_string(rows) + "\nFrame Time: ";
    appendExactNumber(text, frameTime);
    text += '\n';
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < kColumns; ++column) {
            appendNumber(text, motionValue(row, column));
            text += ' ';
        }
        text += '\n';
    }
    return text;
}

}  // namespace KivBenchmark
