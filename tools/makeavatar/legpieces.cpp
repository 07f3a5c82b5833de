#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

const Vec3d kHip(9, 92.5, 0);
const Vec3d kKnee(9, 49.5, 0);
const Vec3d kAnkle(9, 8.5, 0);

Mesh thigh()
{
    const Field flesh = blended({limb(Vec3d(9.2, 86, 0), 7.4, Vec3d(9, 56, 0.2), 5.1),
                                 ellipsoid(Vec3d(9.6, 74, 2.0), Vec3d(6.3, 15, 6.2)),
                                 ellipsoid(Vec3d(8.9, 75, -2.6), Vec3d(5.9, 14, 5.6)),
                                 ellipsoid(Vec3d(10.6, 84, 0), Vec3d(6.6, 9, 6.8))},
                                3.0);
    const Field trimmed = carved(flesh, ball(kKnee, 5.4), 1.2);
    Net net;
    net.from = Vec3d(9.3, 86, 0);
    net.to = Vec3d(9, 58.5, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = 15;
    net.capShare = 0.26;
    return skinned(trimmed, net, Tone::kShell);
}

Mesh thighCore()
{
    const Field core = blended({ball(kHip, 7.5), limb(kHip, 5.0, kKnee + Vec3d(0, 6, 0), 4.2)}, 2.0);
    Net net;
    net.from = kHip;
    net.to = kKnee + Vec3d(0, 6, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = 13;
    net.capShare = 0.38;
    return skinned(core, net, Tone::kCore);
}

Mesh shank()
{
    const Field flesh = blended({limb(Vec3d(9, 44, 0.4), 4.9, Vec3d(9, 14, -0.7), 3.2),
                                 ellipsoid(Vec3d(9.5, 36, -2.2), Vec3d(4.7, 10.5, 4.5)),
                                 ellipsoid(Vec3d(8.4, 34.5, -2.0), Vec3d(4.3, 9.5, 4.2)),
                                 ellipsoid(Vec3d(9, 45.5, 1.9), Vec3d(3.9, 4.6, 3.6))},
                                2.2);
    Field trimmed = carved(flesh, ball(kKnee + Vec3d(0, 0.6, -1.2), 5.5), 1.2);
    trimmed = carved(trimmed, ball(kAnkle, 4.1), 1.0);
    Net net;
    net.from = Vec3d(9, 40.5, 0);
    net.to = Vec3d(9, 16, -0.6);
    net.front = Vec3d(0, 0, 1);
    net.rings = 15;
    net.capShare = 0.24;
    return skinned(trimmed, net, Tone::kShell);
}

Mesh shankCore()
{
    const Field core = blended({ball(kKnee, 5.1), limb(kKnee, 3.8, kAnkle + Vec3d(0, 3, 0), 2.5)}, 2.0);
    Net net;
    net.from = kKnee;
    net.to = kAnkle + Vec3d(0, 3, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = 13;
    net.capShare = 0.38;
    return skinned(core, net, Tone::kCore);
}

Field footBody(double grow)
{
    const auto grown = [=](double x, double y, double z) { return Vec3d(x + grow, y + grow, z + grow); };
    return blended({ellipsoid(Vec3d(9, 3.4, -2.6), grown(3.4, 3.6, 4.0)),
                    limb(Vec3d(9.3, 2.6, -1), 2.7 + grow, Vec3d(9.7, 2.2, 9), 2.7 + grow),
                    limb(Vec3d(9, 6.5, 0.2), 3.5 + grow, Vec3d(9.3, 3.4, 9.0), 2.7 + grow),
                    ellipsoid(Vec3d(9.6, 2.3, 9.0), grown(4.3, 2.5, 5.5)),
                    ellipsoid(Vec3d(9.4, 1.9, 13.6), grown(4.1, 2.0, 4.4))},
                   2.2);
}

Mesh foot()
{
    Field shoe = common(footBody(0), halfSpace(Vec3d(0, 0.9, 0), Vec3d(0, -1, 0)), 0.5);
    shoe = carved(shoe, ball(kAnkle + Vec3d(0, 1.0, 0), 3.7), 0.8);
    Net net;
    net.from = Vec3d(9, 2.6, -1.5);
    net.to = Vec3d(9.4, 2.0, 13);
    net.front = Vec3d(0, 1, 0);
    net.rings = 13;
    net.columns = 16;
    net.capShare = 0.25;
    return skinned(shoe, net, Tone::kShell);
}

Mesh sole()
{
    Field slab = common(footBody(0.25), halfSpace(Vec3d(0, 0, 0), Vec3d(0, -1, 0)), 0.3);
    slab = common(slab, halfSpace(Vec3d(0, 1.3, 0), Vec3d(0, 1, 0)), 0.3);
    Net net;
    net.from = Vec3d(9, 0.65, -1.5);
    net.to = Vec3d(9.4, 0.65, 13);
    net.front = Vec3d(0, 1, 0);
    net.rings = 9;
    net.columns = 12;
    net.flatness = 3.0;
    return skinned(slab, net, Tone::kCore);
}

}  // namespace

std::vector<Piece> leftLegPieces()
{
    return {{"LeftUpLeg", "LeftUpLeg&LeftLeg#Inner", thighCore()},
            {"LeftUpLeg", "LeftUpLeg&LeftLeg#Outer", thigh()},
            {"LeftLeg", "LeftLeg&LeftFoot#Inner", shankCore()},
            {"LeftLeg", "LeftLeg&LeftFoot#Outer", shank()},
            {"LeftFoot", "LeftFoot", joined({foot(), sole(), ballMesh(kAnkle, 3.5, 7, 12, Tone::kCore)})}};
}

}  // namespace KivAvatarMaker
