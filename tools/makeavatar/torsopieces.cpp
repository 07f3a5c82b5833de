#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

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
    Field flesh = blended({ellipsoid(Vec3d(0, 98.5, -0.4), Vec3d(16.2, 9.0, 9.6)),
                           onBothSides(ellipsoid(Vec3d(6.0, 92.5, -4.6), Vec3d(6.2, 7.4, 6.0)), 2.0),
                           ellipsoid(Vec3d(0, 91, 0.2), Vec3d(7.0, 9.0, 7.4))},
                          3.5);
    flesh = common(flesh, onBothSides(halfSpace(Vec3d(4.5, 86.5, 0), Vec3d(0.70, -0.72, 0)), 0), 2.0);
    flesh = common(flesh, halfSpace(Vec3d(0, 106.6, 0), Vec3d(0, 1, 0.08)), 2.0);
    Net net = upright(91, 103.8, -0.2);
    net.capShare = 0.34;
    net.flatTo = true;
    return skinned(flesh, net, Tone::kShell);
}

// One fold of the bellows between pelvis and chest.
Mesh fold(const Vec3d& centre, const Vec3d& radii, const osg::Vec4f& colour)
{
    Net net = upright(centre.y() - radii.y() * 0.45, centre.y() + radii.y() * 0.45, centre.z());
    net.rings = 13;
    net.columns = 20;
    return skinned(ellipsoid(centre, radii), net, colour);
}

Mesh chest()
{
    Field flesh = blended({ellipsoid(Vec3d(0, 132.0, -0.8), Vec3d(15.0, 14.5, 10.4)),
                           limb(Vec3d(-11.5, 140.6, -0.8), 5.4, Vec3d(11.5, 140.6, -0.8), 5.4),
                           onBothSides(ellipsoid(Vec3d(7.0, 135.4, 5.6), Vec3d(7.6, 5.6, 4.6)), 1.5),
                           onBothSides(ellipsoid(Vec3d(11.0, 132.5, -2.6), Vec3d(5.2, 10, 6)), 1.5),
                           onBothSides(ellipsoid(Vec3d(6.0, 138, -7.0), Vec3d(5.5, 7.5, 3.6)), 1.5),
                           ellipsoid(Vec3d(0, 145, -1.2), Vec3d(7.4, 4.4, 6.4))},
                          3.2);
    flesh = carved(flesh, limb(Vec3d(0, 120, -12.6), 1.6, Vec3d(0, 143, -12.6), 1.6), 3.0);
    flesh = common(flesh, halfSpace(Vec3d(0, 119.4, 0), Vec3d(0, -1, 0)), 2.2);
    Net net = upright(120.6, 141, -0.8);
    net.capShare = 0.3;
    net.flatFrom = true;
    return skinned(flesh, net, Tone::kShell);
}

}  // namespace

std::vector<Piece> torsoPieces()
{
    return {{"Hips", "Hips&Spine", pelvis()},
            {"Spine", "Spine&Spine1#Inner", fold(Vec3d(0, 109.8, -0.6), Vec3d(11.3, 8.8, 7.8), Tone::kCore)},
            {"Spine1", "Spine1", fold(Vec3d(0, 115.6, -0.7), Vec3d(12.0, 9.5, 8.2), Tone::kCore)},
            {"Spine2", "Spine2", fold(Vec3d(0, 122.8, -0.8), Vec3d(12.2, 9.5, 8.3), Tone::kCore)},
            {"Spine3", "Spine3&Neck", chest()}};
}

}  // namespace KivAvatarMaker
