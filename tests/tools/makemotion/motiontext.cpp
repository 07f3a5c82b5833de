#include "tests/tools/makemotion/motiontext.h"

#include <unistd.h>
#include <cmath>
#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "tests/support/motionlibrary.h"
#include "tools/makemotion/samplemotions.h"

namespace KivMotionTest {

Point operator-(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
Point operator+(const Point& a, const Point& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
double dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double length(const Point& a)
{
    return std::sqrt(dot(a, a));
}

namespace {

Point turned(const Turn& t, const Point& p)
{
    return {t[0] * p.x + t[1] * p.y + t[2] * p.z, t[3] * p.x + t[4] * p.y + t[5] * p.z,
            t[6] * p.x + t[7] * p.y + t[8] * p.z};
}

Turn product(const Turn& a, const Turn& b)
{
    Turn result{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                result[3 * i + j] += a[3 * i + k] * b[3 * k + j];
    return result;
}

Turn about(char axis, double degrees)
{
    const double c = std::cos(degrees * std::acos(-1.0) / 180), s = std::sin(degrees * std::acos(-1.0) / 180);
    switch (axis) {
        case 'X':
            return {1, 0, 0, 0, c, -s, 0, s, c};
        case 'Y':
            return {c, 0, s, 0, 1, 0, -s, 0, c};
        default:
            return {c, -s, 0, s, c, 0, 0, 0, 1};
    }
}

Point readPoint(std::istream& in)
{
    Point point;
    in >> point.x >> point.y >> point.z;
    return point;
}

}  // namespace

Point Placed::toWorld(const Point& local) const
{
    return at + turned(turn, local);
}

MotionText::MotionText(const std::string& text)
{
    std::istringstream in(text);
    readHierarchy(in);
    std::string word;
    std::size_t count = 0;
    in >> word >> count >> word >> word >> m_frameTime;
    const std::size_t width = m_joints.back().firstChannel + m_joints.back().channels.size();
    m_rows.assign(count, std::vector<double>(width));
    for (auto& row : m_rows)
        for (double& value : row)
            in >> value;
    if (!in || in >> word)
        throw std::runtime_error("the rows are not what the header says");
}

void MotionText::readHierarchy(std::istream& in)
{
    std::vector<int> open;
    int current = -1;
    bool inEnd = false;
    std::string word;
    while (in >> word && word != "MOTION") {
        if (word == "ROOT" || word == "JOINT") {
            TextJoint joint;
            in >> joint.name;
            joint.parent = open.empty() ? -1 : open.back();
            if (!m_joints.empty())
                joint.firstChannel = m_joints.back().firstChannel + m_joints.back().channels.size();
            current = static_cast<int>(m_joints.size());
            m_joints.push_back(joint);
        } else if (word == "{") {
            open.push_back(current);
        } else if (word == "}") {
            open.pop_back();
            inEnd = false;
        } else if (word == "End") {
            inEnd = true;
            current = open.back();
        } else if (word == "OFFSET") {
            TextJoint& joint = m_joints.at(static_cast<std::size_t>(current));
            (inEnd ? joint.end : joint.offset) = readPoint(in);
            joint.hasEnd |= inEnd;
        } else if (word == "CHANNELS") {
            std::size_t count = 0;
            in >> count;
            m_joints.back().channels.resize(count);
            for (std::string& channel : m_joints.back().channels)
                in >> channel;
        }
    }
}

std::size_t MotionText::find(const std::string& name) const
{
    for (std::size_t i = 0; i < m_joints.size(); ++i)
        if (m_joints[i].name == name)
            return i;
    throw std::runtime_error("no joint " + name);
}

Placed MotionText::placed(std::size_t joint, std::size_t frame) const
{
    const TextJoint& here = m_joints[joint];
    Placed local{{1, 0, 0, 0, 1, 0, 0, 0, 1}, here.offset};
    for (std::size_t i = 0; i < here.channels.size(); ++i) {
        const double value = m_rows[frame][here.firstChannel + i];
        const std::string& channel = here.channels[i];
        if (channel == "Xposition")
            local.at.x = value;
        else if (channel == "Yposition")
            local.at.y = value;
        else if (channel == "Zposition")
            local.at.z = value;
        else
            local.turn = product(local.turn, about(channel[0], value));
    }
    if (here.parent < 0)
        return local;
    const Placed parent = placed(static_cast<std::size_t>(here.parent), frame);
    return {product(parent.turn, local.turn), parent.toWorld(local.at)};
}

const std::string& sampleText(const std::string& fileName)
{
    static const std::map<std::string, std::string> texts = [] {
        const std::filesystem::path folder =
            std::filesystem::temp_directory_path() / ("sample-motions-" + std::to_string(getpid()));
        KivMotion::writeSampleMotions(folder);
        std::map<std::string, std::string> read;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            read[entry.path().filename().string()] = KivTestSupport::readWholeFile(entry.path());
        std::filesystem::remove_all(folder);
        return read;
    }();
    return texts.at(fileName);
}

const MotionText& sample(const std::string& fileName)
{
    static std::map<std::string, MotionText> parsed;
    const auto found = parsed.find(fileName);
    return found != parsed.end() ? found->second
                                 : parsed.emplace(fileName, sampleText(fileName)).first->second;
}

const std::array<Point, 4>& solePoints()
{
    static const std::array<Point, 4> points = {
        {{0, -8.5, -5.5}, {0, -8.5, 10}, {0, -8.5, 13.5}, {0, -6.5, 17.5}}};
    return points;
}

}  // namespace KivMotionTest
