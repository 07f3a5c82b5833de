// The avatar's pieces: which joint each hangs on, its name, and its shape where it lies in the rest figure.
#pragma once

#include <string>
#include <vector>

#include "tools/figure/restfigure.h"
#include "tools/makeavatar/mesh.h"

namespace KivAvatarMaker {

/// Piece names are the piece prefix, a body and the mark that ends them. A body is a joint's name, or two
/// joined by "&", with a "#" tag or without. The tags Inner and Outer make a segment piece: it follows the
/// direction and the length of its segment.
struct Piece
{
    std::string joint;
    std::string body;
    Mesh mesh;  ///< in the rest figure's frame: centimetres, Y-up, ground at y = 0

    std::string name() const;
    bool isSegmentPiece() const;
};

/// What a piece's own coordinates are measured from, in the rest figure's frame: the middle of its segment,
/// or its joint. Throws std::invalid_argument if it names joints that the figure does not have.
osg::Vec3d pieceOrigin(const Piece& piece);

osg::Vec3d restPoint(const std::string& joint);

/// Where the arm's pieces end and the hand's begin.
inline const osg::Vec3d kWrist(70, 142, 0);

/// The two tones of the figure and those of its props.
namespace Tone {
extern const osg::Vec4f kShell;
extern const osg::Vec4f kCore;
extern const osg::Vec4f kBallWarm;
extern const osg::Vec4f kBallLight;
}  // namespace Tone

/// Left pieces only: the right ones are their mirror images.
std::vector<Piece> leftLegPieces();
std::vector<Piece> leftArmPieces();
std::vector<Piece> leftHandPieces();

std::vector<Piece> torsoPieces();
std::vector<Piece> headPieces();

/// Every piece of the avatar, both sides.
std::vector<Piece> avatarPieces();

}  // namespace KivAvatarMaker
