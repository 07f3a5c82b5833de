#include "KivFrameData/contacttracker.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "KivCharacterization/naming.h"

namespace KivFrameData {

namespace {

constexpr double kAnkleHeight = 14.0;
constexpr double kToeHeight = 7.0;
constexpr double kHandHeight = 7.0;
constexpr double kPropsHeight = 7.0;

struct Touching
{
    const char* joint;
    double height;
};

constexpr std::array<Touching, 6> kTouching{{{"LeftFoot", kAnkleHeight},
                                             {"RightFoot", kAnkleHeight},
                                             {"LeftToeBase", kToeHeight},
                                             {"RightToeBase", kToeHeight},
                                             {"LeftHand", kHandHeight},
                                             {"RightHand", kHandHeight}}};

}  // namespace

ContactTracker::ContactTracker(const std::vector<std::string>& joints)
{
    for (std::size_t i = 0; i < joints.size(); ++i) {
        const auto known = std::find_if(kTouching.begin(), kTouching.end(), [&](const Touching& touching) {
            return joints[i] == touching.joint;
        });
        if (known == kTouching.end() && !KivCharacterization::IsPropsJoint(joints[i]))
            continue;
        Point point;
        point.joint = i;
        point.deepest = known != kTouching.end() ? known->height : kPropsHeight;
        m_points.push_back(point);
    }
    m_contacts.resize(m_points.size());
}

std::vector<std::size_t> ContactTracker::joints() const
{
    std::vector<std::size_t> joints;
    for (const Point& point : m_points)
        joints.push_back(point.joint);
    return joints;
}

void ContactTracker::learn(const std::vector<osg::Vec3d>& positions)
{
    for (Point& point : m_points)
        if (positions[point.joint].y() > -point.deepest)  // else a row that is thrown out of the motion
            point.lowest = std::min(point.lowest, positions[point.joint].y());
}

void ContactTracker::restart()
{
    m_started = false;
    for (Point& point : m_points)
        point.touches = false;
}

void ContactTracker::advance(const std::vector<osg::Vec3d>& positions, double seconds)
{
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        Point& point = m_points[i];
        const osg::Vec3d& at = positions[point.joint];
        const double speed = m_started && seconds > 0.0 ? (at - point.last).length() / seconds : 0.0;
        const double height = at.y() - std::clamp(point.lowest, 0.0, point.deepest);
        point.touches = point.touches ? height <= kLeaveHeight && speed <= kLeaveSpeed
                                      : height < kTouchHeight && speed < kTouchSpeed;
        point.last = at;
        m_contacts[i].contact = point.touches ? 1 : 0;
    }
    m_started = true;
    place(positions);
}

void ContactTracker::place(const std::vector<osg::Vec3d>& positions)
{
    for (std::size_t i = 0; i < m_points.size(); ++i) {
        const osg::Vec3d& at = positions[m_points[i].joint];
        m_contacts[i].x = static_cast<float>(at.x() * 0.01);
        m_contacts[i].y = static_cast<float>(at.y() * 0.01);
        m_contacts[i].z = static_cast<float>(at.z() * 0.01);
    }
}

}  // namespace KivFrameData
