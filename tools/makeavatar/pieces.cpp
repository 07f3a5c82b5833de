#include "tools/makeavatar/pieces.h"

namespace KivAvatarMaker {

namespace Tone {
const osg::Vec4f kShell(0.87f, 0.83f, 0.77f, 1.0f);
const osg::Vec4f kCore(0.17f, 0.18f, 0.20f, 1.0f);
const osg::Vec4f kBallWarm(0.80f, 0.29f, 0.16f, 1.0f);
const osg::Vec4f kBallLight(0.93f, 0.87f, 0.74f, 1.0f);
}  // namespace Tone

namespace {

bool endsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

std::string otherSide(std::string name)
{
    for (std::size_t at = name.find("Left"); at != std::string::npos; at = name.find("Left", at + 1))
        name.replace(at, 4, "Right");
    return name;
}

}  // namespace

bool Piece::isSegmentPiece() const
{
    return endsWith(body, "#Inner") || endsWith(body, "#Outer");
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
    const std::string base = piece.body.substr(0, piece.body.find('#'));
    const std::size_t mark = base.find('&');
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
