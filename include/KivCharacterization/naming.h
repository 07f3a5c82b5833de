#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The names and node masks by which avatar, motion skeleton and dressed actor meet. Whoever makes an avatar
/// or reads a dressed actor uses these; all of it is defined here, the library exports nothing for it.
namespace KivCharacterization {

/// What the name of every mesh piece of an avatar begins with: `Joint:<base>[#<tag>]$`.
inline constexpr std::string_view kPiecePrefix = "Joint:";
inline constexpr std::size_t kPiecePrefixLength = 6;
static_assert(kPiecePrefix.size() == kPiecePrefixLength);

inline constexpr char kQualifierMark = '#';  ///< ends the qualifier of a bone: `<actor>#<joint>`
inline constexpr char kSegmentMark = '&';    ///< joins the two joints of a bone segment: `<parent>&<child>`
inline constexpr char kTagMark = '#';        ///< begins the tag of a piece
inline constexpr char kPieceEndMark = '$';   ///< ends the name of a piece; one without it is not attached

/// The tags of the pieces that are turned and stretched along their bone segment.
inline constexpr std::string_view kInnerTag = "Inner";
inline constexpr std::string_view kOuterTag = "Outer";

/// A joint whose name contains the first word and not the second carries a prop.
inline constexpr std::string_view kPropsWord = "Props";
inline constexpr std::string_view kEndWord = "End";

/// Node masks of an actor's parts: of its motion skeleton, and of its overlays and its props' meshes.
inline constexpr unsigned int kSkeletonMask = 1;
inline constexpr unsigned int kOverlayMask = 4;

/// The pieces that are scaled by the actor's proportions, in the order of scaling.
inline constexpr std::array<std::string_view, 4> kTorsoPieces = {"Joint:Spine3&Neck$", "Joint:Hips&Spine$",
                                                                 "Joint:Spine2$", "Joint:Spine1$"};
inline constexpr std::array<std::string_view, 14> kHandPieces = {
    "Joint:RightHand$",   "Joint:LeftHand$",    "Joint:LeftHand#1$",  "Joint:LeftHand#2$",
    "Joint:LeftHand#3$",  "Joint:LeftHand#4$",  "Joint:LeftHand#5$",  "Joint:LeftHand#6$",
    "Joint:RightHand#1$", "Joint:RightHand#2$", "Joint:RightHand#3$", "Joint:RightHand#4$",
    "Joint:RightHand#5$", "Joint:RightHand#6$"};

/// The segments that proportions are measured by: the hip width is the distance between the offsets of the
/// first two, the length of the third stands for the size of both hands.
inline constexpr const char* kLeftHipSegment = "Hips&LeftUpLeg";
inline constexpr const char* kRightHipSegment = "Hips&RightUpLeg";
inline constexpr const char* kHandSegment = "LeftInHandRing&LeftHandRing1";

/// Whether a name begins with the piece prefix; a name that is the prefix alone does.
inline bool hasPiecePrefix(std::string_view name)
{
    return name.substr(0, kPiecePrefixLength) == kPiecePrefix;
}

/// Whether a name is that of a piece: longer than its prefix.
inline bool isPieceName(std::string_view name)
{
    return name.size() > kPiecePrefixLength && hasPiecePrefix(name);
}

/// The part of a bone's name that counts: what follows the first "#", or all of it. It lives as long as the
/// name.
inline std::string_view withoutQualifier(std::string_view boneName)
{
    const std::size_t mark = boneName.find(kQualifierMark);
    return mark == std::string_view::npos ? boneName : boneName.substr(mark + 1);
}

/// The same as a text of its own.
inline std::string NormaliseJointName(const std::string& boneName)
{
    return std::string(withoutQualifier(boneName));
}

/// The key of the bone segment between two joints: `<parent>&<child>`.
inline std::string SegmentKey(std::string_view parent, std::string_view child)
{
    std::string key;
    key.reserve(parent.size() + 1 + child.size());
    return key.append(parent).append(1, kSegmentMark).append(child);
}

/// Whether a skeleton joint carries a prop, by its normalised name.
inline bool IsPropsJoint(std::string_view jointName)
{
    return jointName.find(kPropsWord) != std::string_view::npos &&
           jointName.find(kEndWord) == std::string_view::npos;
}

}  // namespace KivCharacterization
