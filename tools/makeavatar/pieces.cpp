#include "tools/makeavatar/pieces.h"

#include <string_view>

#include "KivCharacterization/naming.h"

namespace KivAvatarMaker {

namespace Tone {
const osg::Vec4f kShell(0.87f, 0.83f, 0.77f, 1.0f);
const osg::Vec4f kCore(0.17f, 0.18f, 0.20f, 1.0f);
const osg::Vec4f kBallWarm(0.80f, 0.29f, 0.16f, 1.0f);
const osg::Vec4f kBallLight(0.93f, 0.87f, 0.74f, 1.0f);
}  // namespace Tone

namespace {

bool hasTag(const std::string& body, std::string_view tag)
{
    const std::size_t mark = body.find(KivCharacterization::kTagMark);
    return mark != std::string::npos && body.substr(mark + 1) == tag;
}

std::string otherSide(std::string name)
{
    for (std::size_t at = name.find("Left"); at != std::string::npos; at = name.find("Left", at + 1))
        name.replace(at, 4, "Right");
    return name;
}

}  // namespace

std::string Piece::name() const
{
    return std::string(KivCharacterization::kPiecePrefix) + body + KivCharacterization::kPieceEndMark;
}

bool Piece::isSegmentPiece() const
{
    return hasTag(body, KivCharacterization::kInnerTag) || hasTag(body, KivCharacterization::kOuterTag);
}

osg::Vec3d restPoint(const std::string& joint)
{
    const KivFigure::Offset at = KivFigure::restPosition(joint);
    return {at[0], at[1], at[2]};
}

osg::Vec3d pieceOrigin(const Piece& piece)
{
    if (!piece.isSegmentPiece())
        return restPoint(piece.joint);
    const std::string base = piece.body.substr(0, piece.body.find(KivCharacterization::kTagMark));
    const std::size_t mark = base.find(KivCharacterization::kSegmentMark);
    if (mark == std::string::npos)
        return restPoint(base);
    return (restPoint(base.substr(0, mark)) + restPoint(base.substr(mark + 1))) * 0.5;
}

std::vector<Piece> avatarPieces()
{
    std::vector<Piece> pieces = torsoPieces();
    for (const Piece& piece : headPieces())
        pieces.push_back(piece);
    for (const auto& make : {leftLegPieces, leftArmPieces, leftHandPieces}) {
        const std::vector<Piece> left = make();
        pieces.insert(pieces.end(), left.begin(), left.end());
        for (const Piece& piece : left)
            pieces.push_back({otherSide(piece.joint), otherSide(piece.body), mirrored(piece.mesh)});
    }
    return pieces;
}

}  // namespace KivAvatarMaker
