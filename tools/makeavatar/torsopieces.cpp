#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

const Vec3d kHip(9, 92.5, 0);
const Vec3d kShoulder(17, 142, 0);

Net upright(double low, double high, double z)
{
    Net net;
    net.from = Vec3d(0, low, z);
    net.to = Vec3d(0, high, z);
    net.front = Vec3d(0, 0, 1);
    net.rings = 15;
    net.columns = 22;
    net.flatness = 1.5;
    return net;
}

Mesh pelvis()
{
    const Field flesh = blended({ellipsoid(Vec3d(0, 98, -0.6), Vec3d(15.5, 9.5, 9.8)),
                                 onBothSides(ellipsoid(Vec3d(6.2, 92, -5.0), Vec3d(6.6, 7.2, 6.2)), 1.5),
                                 ellipsoid(Vec3d(0, 87.5, 0.5), Vec3d(5.0, 5.5, 6.5)),
                                 onBothSides(ellipsoid(Vec3d(9.0, 102.5, 0.8), Vec3d(5.8, 5.2, 6.6)), 1.5)},
                                3.0);
    const Field sockets = onBothSides(limb(kHip + Vec3d(1.4, 0, 0), 8.0, kHip + Vec3d(4, -12, 0), 9.0), 0.1);
    Net net = upright(90.5, 101, 0);
    net.columns = 22;
    net.capShare = 0.33;
    return skinned(carved(flesh, sockets, 1.4), net, Tone::kShell);
}

Mesh waistCore()
{
    Net net = upright(107, 114, -0.6);
    net.rings = 12;
    net.columns = 20;
    return skinned(blended({ellipsoid(Vec3d(0, 110.3, -0.6), Vec3d(12.2, 9.5, 8.6))}, 1.0), net, Tone::kCore);
}

Mesh waist()
{
    const Field flesh = common(ellipsoid(Vec3d(0, 115.5, -0.5), Vec3d(13.4, 12.0, 9.3)),
                               halfSpace(Vec3d(0, 109.5, 0), Vec3d(0, -1, 0)), 1.6);
    Net net = upright(113, 121, -0.5);
    net.rings = 12;
    net.columns = 20;
    return skinned(flesh, net, Tone::kTrim);
}

Mesh ribs()
{
    const Field flesh = ellipsoid(Vec3d(0, 126.5, -0.6), Vec3d(14.4, 11.5, 10.0));
    Net net = upright(121, 132, -0.6);
    net.rings = 12;
    net.columns = 20;
    return skinned(flesh, net, Tone::kCore);
}

Mesh chest()
{
    const Field flesh = blended({ellipsoid(Vec3d(0, 131.5, -0.8), Vec3d(15.2, 15.5, 10.6)),
                                 limb(Vec3d(-12.5, 141.2, -0.8), 5.6, Vec3d(12.5, 141.2, -0.8), 5.6),
                                 onBothSides(ellipsoid(Vec3d(7.2, 135.2, 6.6), Vec3d(7.6, 5.8, 4.2)), 1.0),
                                 onBothSides(ellipsoid(Vec3d(11.8, 131, -3), Vec3d(4.8, 11, 6)), 1.0),
                                 ellipsoid(Vec3d(0, 146, -1.0), Vec3d(6.8, 4.5, 6.0))},
                                2.6);
    Field trimmed = carved(flesh, onBothSides(ball(kShoulder, 6.7), 0.1), 1.0);
    trimmed = carved(trimmed, ellipsoid(Vec3d(0, 114, 4.0), Vec3d(11, 12.5, 14)), 1.8);
    Net net = upright(131, 141, -0.8);
    net.rings = 15;
    net.columns = 22;
    net.capShare = 0.36;
    return skinned(trimmed, net, Tone::kShell);
}

}  // namespace

std::vector<Piece> torsoPieces()
{
    return {{"Hips", "Hips&Spine", pelvis()},
            {"Spine", "Spine&Spine1#Inner", waistCore()},
            {"Spine1", "Spine1", waist()},
            {"Spine2", "Spine2", ribs()},
            {"Spine3", "Spine3&Neck", chest()}};
}

}  // namespace KivAvatarMaker
