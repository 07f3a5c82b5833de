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
    Field flesh = blended({limb(Vec3d(9.4, 87, 0), 7.0, Vec3d(9, 53, 0.2), 4.9),
                           ellipsoid(Vec3d(9.7, 73, 2.2), Vec3d(6.0, 15, 6.0)),
                           ellipsoid(Vec3d(8.8, 75, -2.8), Vec3d(5.7, 14, 5.4)),
                           ellipsoid(Vec3d(10.5, 85, -0.3), Vec3d(6.7, 9, 7.2))},
                          3.0);
    flesh = common(flesh, halfSpace(Vec3d(9, 90.2, 0), Vec3d(-0.25, 1, 0.1)), 2.6);
    flesh = common(flesh, halfSpace(Vec3d(9, 53.2, 0), Vec3d(0, -1, 0.15)), 1.6);
    Net net;
    net.from = Vec3d(9, 55, 0);
    net.to = Vec3d(9.6, 87, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = 17;
    net.capShare = 0.25;
    net.flatFrom = net.flatTo = true;
    return skinned(flesh, net, Tone::kShell);
}

Mesh thighCore()
{
    return joined({ballMesh(kHip, 7.7, 11, 18, Tone::kCore),
                   rodMesh(kHip - Vec3d(0, 5, 0), 4.6, kKnee + Vec3d(0, 4, 0), 2.6, Tone::kCore)});
}

Mesh shank()
{
    Field flesh = blended({limb(Vec3d(9, 45, 0.6), 4.6, Vec3d(9, 12, -0.5), 2.7),
                           ellipsoid(Vec3d(9.7, 36.5, -2.4), Vec3d(4.5, 10, 4.6)),
                           ellipsoid(Vec3d(8.2, 35, -2.3), Vec3d(4.2, 9.5, 4.3)),
                           ellipsoid(Vec3d(9, 45, 2.1), Vec3d(3.4, 4.4, 3.2))},
                          2.2);
    flesh = common(flesh, halfSpace(Vec3d(9, 46.0, 0), Vec3d(0, 1, -0.35)), 1.8);
    flesh = common(flesh, halfSpace(Vec3d(9, 11.4, 0), Vec3d(0, -1, 0)), 1.2);
    Net net;
    net.from = Vec3d(9, 12.8, -0.5);
    net.to = Vec3d(9, 43.2, 0);
    net.front = Vec3d(0, 0, 1);
    net.rings = 17;
    net.capShare = 0.24;
    net.flatFrom = net.flatTo = true;
    return skinned(flesh, net, Tone::kShell);
}

Mesh shankCore()
{
    return joined({ballMesh(kKnee, 5.0, 11, 18, Tone::kCore),
                   rodMesh(kKnee - Vec3d(0, 3, 0), 3.0, kAnkle + Vec3d(0, 2.5, 0), 1.7, Tone::kCore)});
}

Field footBody(double grow)
{
    const auto grown = [=](double x, double y, double z) { return Vec3d(x + grow, y + grow, z + grow); };
    return blended({ellipsoid(Vec3d(9, 3.4, -2.6), grown(3.4, 3.6, 4.0)),
                    limb(Vec3d(9.3, 2.6, -1), 2.7 + grow, Vec3d(9.7, 2.2, 9), 2.7 + grow),
                    limb(Vec3d(9, 5.4, -0.4), 3.3 + grow, Vec3d(9.3, 3.2, 9.0), 2.6 + grow),
                    ellipsoid(Vec3d(9.6, 2.3, 9.0), grown(4.3, 2.5, 5.5)),
                    ellipsoid(Vec3d(9.4, 1.9, 13.6), grown(4.1, 2.0, 4.4))},
                   2.2);
}

Mesh foot()
{
    Field shoe = common(footBody(0), halfSpace(Vec3d(0, 0.9, 0), Vec3d(0, -1, 0)), 0.5);
    Net net;
    net.from = Vec3d(9, 2.6, -1.5);
    net.to = Vec3d(9.4, 2.0, 13);
    net.front = Vec3d(0, 1, 0);
    net.rings = 13;
    net.columns = 14;
    net.capShare = 0.25;
    return skinned(shoe, net, Tone::kShell);
}

Mesh sole()
{
    Field slab = common(footBody(0.25), halfSpace(Vec3d(0, 0, 0), Vec3d(0, -1, 0)), 0.6);
    slab = common(slab, halfSpace(Vec3d(0, 1.3, 0), Vec3d(0, 1, 0)), 0.6);
    Net net;
    net.from = Vec3d(9, 0.65, -1.5);
    net.to = Vec3d(9.4, 0.65, 13);
    net.front = Vec3d(0, 1, 0);
    net.rings = 7;
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
            {"LeftFoot", "LeftFoot",
             joined({foot(), sole(), ballMesh(kAnkle + Vec3d(0, 0.3, -0.2), 3.2, 7, 12, Tone::kCore)})}};
}

}  // namespace KivAvatarMaker
