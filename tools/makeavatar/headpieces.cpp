#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

Mesh neck()
{
    const Field flesh = blended({limb(Vec3d(0, 145, -1.6), 5.6, Vec3d(0, 149, -1.2), 5.0),
                                 limb(Vec3d(0, 149, -1.2), 4.9, Vec3d(0, 160, -0.2), 4.7),
                                 ellipsoid(Vec3d(0, 154, 1.0), Vec3d(3.2, 5, 4.2))},
                                1.5);
    Net net;
    net.from = Vec3d(0, 145.5, -1.5);
    net.to = Vec3d(0, 159.5, -0.2);
    net.front = Vec3d(0, 0, 1);
    net.rings = 14;
    return skinned(flesh, net, Tone::kCore);
}

Mesh head()
{
    const Field skull = blended({ellipsoid(Vec3d(0, 166.2, -1.2), Vec3d(7.5, 8.8, 9.0)),
                                 ellipsoid(Vec3d(0, 167.2, 2.4), Vec3d(6.5, 5.8, 6.2)),
                                 ellipsoid(Vec3d(0, 161.2, 3.0), Vec3d(5.9, 7.2, 5.9)),
                                 ellipsoid(Vec3d(0, 156.0, 5.5), Vec3d(3.0, 2.8, 3.2))},
                                2.8);
    const Field brow = onBothSides(ellipsoid(Vec3d(2.9, 166.2, 7.0), Vec3d(3.2, 1.2, 1.5)), 2.0);
    const Field cheeks = onBothSides(ellipsoid(Vec3d(4.0, 161.9, 5.6), Vec3d(2.0, 1.9, 2.6)), 1.0);
    const Field lips = ellipsoid(Vec3d(0, 158.6, 7.7), Vec3d(2.3, 1.3, 1.4));
    const Field nose = blended({limb(Vec3d(0, 165.8, 8.0), 0.7, Vec3d(0, 162.2, 9.4), 0.9),
                                ellipsoid(Vec3d(0, 161.6, 9.2), Vec3d(1.3, 0.9, 1.3))},
                               0.8);
    Field face = blended({skull, brow, cheeks, lips}, 2.2);
    face = carved(face, onBothSides(ellipsoid(Vec3d(3.1, 164.1, 9.6), Vec3d(2.3, 1.5, 2.0)), 0.1), 2.2);
    face = blended({face, nose}, 1.6);
    Net net;
    net.from = Vec3d(0, 160.0, 1.5);
    net.to = Vec3d(0, 166.5, -0.5);
    net.front = Vec3d(0, 0, 1);
    net.rings = 17;
    net.columns = 20;
    net.capShare = 0.34;
    net.focus = 0.5;
    return skinned(face, net, Tone::kShell);
}

}  // namespace

std::vector<Piece> headPieces()
{
    return {{"Neck", "Neck&Head#Inner", neck()}, {"Head", "Head", head()}};
}

}  // namespace KivAvatarMaker
