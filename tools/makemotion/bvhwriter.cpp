#include "tools/makemotion/bvhwriter.h"

#include <charconv>
#include <ostream>
#include <string>
#include <vector>

#include "tools/makemotion/eulerangles.h"

namespace KivMotion {

namespace {

/// A micrometre, and an angle that moves a finger tip by as little: more digits would only be noise.
constexpr int kDecimals = 4;

std::string number(double value)
{
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, kDecimals).ptr;
    std::string text(buffer, end);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string triple(const osg::Vec3d& v)
{
    return number(v.x()) + ' ' + number(v.y()) + ' ' + number(v.z());
}

void writeJoint(std::ostream& out, const Rig& rig, int index, int depth)
{
    const RigJoint& joint = rig.joints()[static_cast<std::size_t>(index)];
    const std::string margin(static_cast<std::size_t>(depth), '\t');
    out << margin << (depth == 0 ? "ROOT " : "JOINT ") << joint.name << '\n' << margin << "{\n";
    out << margin << "\tOFFSET " << triple(joint.offset) << '\n';
    out << margin << (joint.moves ? "\tCHANNELS 6 Xposition Yposition Zposition " : "\tCHANNELS 3 ")
        << "Zrotation Xrotation Yrotation\n";
    for (int child : rig.childrenOf(index))
        writeJoint(out, rig, child, depth + 1);
    if (joint.isTip)
        out << margin << "\tEnd Site\n"
            << margin << "\t{\n"
            << margin << "\t\tOFFSET " << triple(joint.tip) << '\n'
            << margin << "\t}\n";
    out << margin << "}\n";
}

}  // namespace

void writeBvh(std::ostream& out, const Clip& clip)
{
    const std::vector<RigJoint>& joints = clip.rig->joints();
    out << "HIERARCHY\n";
    writeJoint(out, *clip.rig, 0, 0);
    out << "MOTION\nFrames: " << clip.poses.size() << "\nFrame Time: ";
    char frameTime[32];
    out.write(frameTime, std::to_chars(frameTime, frameTime + sizeof frameTime, clip.frameTime,
                                       std::chars_format::fixed, 8)
                                 .ptr -
                             frameTime);
    out << '\n';
    std::vector<EulerZxy> angles(joints.size());
    for (const Pose& pose : clip.poses) {
        std::string row;
        for (std::size_t i = 0; i < joints.size(); ++i) {
            const int joint = static_cast<int>(i);
            angles[i] = toEulerZxy(pose.rotation(joint), angles[i]);
            if (joints[i].moves)
                row += triple(pose.position(joint)) + ' ';
            row += triple({angles[i].z, angles[i].x, angles[i].y}) + ' ';
        }
        row.back() = '\n';
        out << row;
    }
}

}  // namespace KivMotion
