#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

Mesh neck()
{
    const Field flesh = blended({limb(Vec3d(0, 143, -1.6), 6.4, Vec3d(0, 148.5, -1.0), 5.4),
                                 limb(Vec3d(0, 149, -1.0), 5.4, Vec3d(0, 160, 0.3), 5.2)},
                                1.5);
    Net net;
    net.from = Vec3d(0, 144.5, -1.5);
    net.to = Vec3d(0, 159.5, 0.2);
    net.front = Vec3d(0, 0, 1);
    net.rings = 14;
    return skinned(flesh, net, Tone::kCore);
}

Mesh head()
{
    const Field skull = blended({ellipsoid(Vec3d(0, 166.0, -1.0), Vec3d(7.5, 9.0, 9.2)),
                                 ellipsoid(Vec3d(0, 161.5, 3.2), Vec3d(6.1, 7.6, 6.0)),
                                 ellipsoid(Vec3d(0, 156.2, 5.6), Vec3d(3.3, 2.9, 3.3))},
                                2.6);
    const Field brow = onBothSides(ellipsoid(Vec3d(2.8, 166.0, 7.4), Vec3d(2.9, 1.2, 1.5)), 1.2);
    const Field cheeks = onBothSides(ellipsoid(Vec3d(4.3, 161.8, 5.4), Vec3d(1.9, 1.8, 2.6)), 1.0);
    const Field nose = limb(Vec3d(0, 165.4, 8.6), 0.8, Vec3d(0, 161.6, 10.2), 1.15);
    Field face = blended({skull, brow, cheeks}, 1.6);
    face = carved(face, onBothSides(ellipsoid(Vec3d(3.0, 163.9, 9.6), Vec3d(2.1, 1.5, 1.9)), 0.1), 1.4);
    face = blended({face, nose}, 1.3);
    Net net;
    net.from = Vec3d(0, 160.0, 1.5);
    net.to = Vec3d(0, 166.5, -0.5);
    net.front = Vec3d(0, 0, 1);
    net.rings = 18;
    net.columns = 20;
    net.capShare = 0.34;
    net.focus = 0.45;
    return skinned(face, net, Tone::kShell);
}

}  // namespace

std::vector<Piece> headPieces()
{
    return {{"Neck", "Neck&Head#Inner", neck()}, {"Head", "Head", head()}};
}

}  // namespace KivAvatarMaker
