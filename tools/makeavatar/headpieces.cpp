#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

Mesh neck()
{
    const Field flesh = blended({limb(Vec3d(0, 144, -1.6), 5.2, Vec3d(0, 149, -1.2), 5.0),
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

Field skullField()
{
    return blended({ellipsoid(Vec3d(0, 166.2, -1.2), Vec3d(7.5, 8.8, 9.0)),
                    ellipsoid(Vec3d(0, 167.0, 2.2), Vec3d(6.5, 6.0, 6.2)),
                    ellipsoid(Vec3d(0, 161.4, 2.6), Vec3d(5.9, 7.0, 6.0)),
                    ellipsoid(Vec3d(0, 156.4, 4.9), Vec3d(3.1, 3.0, 3.4))},
                   2.8);
}

Field faceField()
{
    const Field brow = onBothSides(turned(ellipsoid(Vec3d(2.8, 166.5, 6.5), Vec3d(2.6, 1.2, 1.4)),
                                          Vec3d(2.8, 166.5, 6.5), Vec3d(0, 0, 1), -6),
                                   2.0);
    const Field cheeks = onBothSides(ellipsoid(Vec3d(4.1, 162.0, 5.0), Vec3d(2.0, 2.0, 2.6)), 1.0);
    const Field mouth = ellipsoid(Vec3d(0, 158.7, 7.0), Vec3d(2.4, 1.5, 1.5));
    const Field chin = ellipsoid(Vec3d(0, 155.8, 7.0), Vec3d(1.9, 1.6, 1.6));
    const Field nose = blended({limb(Vec3d(0, 166.0, 7.6), 0.75, Vec3d(0, 162.0, 9.7), 0.9),
                                ellipsoid(Vec3d(0, 161.6, 9.2), Vec3d(1.45, 0.9, 1.5))},
                               0.8);
    Field face = blended({skullField(), brow, cheeks, mouth, chin}, 2.4);
    face = carved(face, onBothSides(ellipsoid(Vec3d(2.9, 164.3, 9.3), Vec3d(1.8, 1.5, 1.7)), 0.1), 2.4);
    return blended({face, nose}, 1.3);
}

// Skull and face meet at a plane; each net has its axis in it, so that both rims are drawn sharply.
const Vec3d kRimLow(0, 158.0, 1.9), kRimHigh(0, 167.6, 3.4);

Vec3d rimNormal()
{
    const Vec3d up = kRimHigh - kRimLow;
    return {0, -up.z(), up.y()};
}

// Skull and face have their rings at the same places, so that the gap between them is even.
Net headNet(const Vec3d& by)
{
    Net net;
    net.from = kRimLow + by;
    net.to = kRimHigh + by;
    net.front = Vec3d(0, 0, 1);
    net.rings = 16;
    net.capShare = 0.27;
    return net;
}

// What shows in the gap between the two.
Mesh seamFiller()
{
    const Field shape = skullField();
    const Field smaller = [shape](const Vec3d& p) { return shape(p) + 0.8; };
    Net net = headNet(Vec3d(0, 1, -1.5));
    net.rings = 7;
    net.columns = 14;
    return skinned(common(smaller, halfSpace(kRimLow + Vec3d(0, 0, 1), rimNormal()), 0.3), net, Tone::kCore);
}

Mesh skull()
{
    const Vec3d gap(0, 0, -0.25);
    Net net = headNet(gap + Vec3d(0, 0, -0.1));
    net.columns = 14;
    net.frontColumns = 2;
    const Field back = common(skullField(), halfSpace(kRimLow + gap, rimNormal()), 0.2);
    return joined({skinned(back, net, Tone::kShell), seamFiller()});
}

Mesh face()
{
    Net net = headNet(Vec3d(0, 0, 0.1));
    net.columns = 21;
    net.frontColumns = 18;
    net.focus = 1.25;
    return skinned(common(faceField(), halfSpace(kRimLow, -rimNormal()), 0.2), net, Tone::kShell);
}

}  // namespace

std::vector<Piece> headPieces()
{
    return {{"Neck", "Neck&Head#Inner", neck()}, {"Head", "Head", skull()}, {"Head", "Head#1", face()}};
}

}  // namespace KivAvatarMaker
