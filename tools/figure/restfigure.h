// The rest figure that our own content is made for: joints of the avatar and of the sample motions.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace KivFigure {

using Offset = std::array<double, 3>;

/// A joint at rest. Offsets are centimetres relative to the parent's joint, Y-up; the figure faces +Z, its
/// left is at +X, arms along ±X with palms down and thumbs forward. No joint is rotated at rest.
struct RestJoint
{
    std::string name;
    std::string parent;  ///< empty for the root
    Offset offset;       ///< the root's is its height over the ground
};

/// Where a chain ends: head top, toes, finger tips. Not a joint.
struct RestEnd
{
    std::string parent;
    Offset offset;
};

/// The 59 joints (21 of the body, 38 of the hands), each after its parent, depth first.
const std::vector<RestJoint>& restJoints();

/// The two joints that carry props: LeftProps and RightProps, children of the hands.
const std::vector<RestJoint>& propsJoints();

/// One end for every joint of restJoints() that has no child there.
const std::vector<RestEnd>& restEnds();

/// A joint or props joint by name, or null.
const RestJoint* findRestJoint(const std::string& name);

/// Where a joint stands at rest, from the ground under the figure. Throws std::invalid_argument for an
/// unknown name.
Offset restPosition(const std::string& name);

}  // namespace KivFigure
