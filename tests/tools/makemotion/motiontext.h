// Reads a motion's text again, independently of the code that wrote it, and works out where its joints are.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

namespace KivMotionTest {

struct Point
{
    double x = 0, y = 0, z = 0;
};

Point operator-(const Point& a, const Point& b);
Point operator+(const Point& a, const Point& b);
double dot(const Point& a, const Point& b);
double length(const Point& a);

struct TextJoint
{
    std::string name;
    int parent = -1;
    Point offset;
    std::vector<std::string> channels;
    std::size_t firstChannel = 0;
    bool hasEnd = false;
    Point end;
};

/// Row-major, for column vectors.
using Turn = std::array<double, 9>;

struct Placed
{
    Turn turn;
    Point at;

    Point toWorld(const Point& local) const;
};

class MotionText
{
public:
    explicit MotionText(const std::string& text);

    const std::vector<TextJoint>& joints() const { return m_joints; }
    const std::vector<std::vector<double>>& rows() const { return m_rows; }
    double frameTime() const { return m_frameTime; }
    std::size_t frames() const { return m_rows.size(); }
    std::size_t find(const std::string& name) const;

    Placed placed(std::size_t joint, std::size_t frame) const;
    Point at(const std::string& joint, std::size_t frame) const { return placed(find(joint), frame).at; }
    /// A point fixed to a joint.
    Point at(const std::string& joint, const Point& local, std::size_t frame) const
    {
        return placed(find(joint), frame).toWorld(local);
    }

private:
    void readHierarchy(std::istream& in);

    std::vector<TextJoint> m_joints;
    std::vector<std::vector<double>> m_rows;
    double m_frameTime = 0;
};

/// The text of one of the samples, written once for the whole run.
const std::string& sampleText(const std::string& fileName);
const MotionText& sample(const std::string& fileName);

/// The sole at heel, ball, under the toes and at their end, relative to the foot's joint.
const std::array<Point, 4>& solePoints();

}  // namespace KivMotionTest
