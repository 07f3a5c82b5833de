#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

const Vec3d kCollar(4, 143.5, 0);
const Vec3d kShoulder(17, 142, 0);
const Vec3d kElbow(45, 142, 0);

Net alongTheArm(const Vec3d& from, const Vec3d& to)
{
    Net net;
    net.from = from;
    net.to = to;
    net.front = Vec3d(0, 1, 0);
    return net;
}

Mesh trapezius()
{
    const Vec3d middle(8.6, 144.2, -1.3);
    const Field flesh = blended({turned(ellipsoid(middle, Vec3d(8.2, 3.6, 4.7)), middle, Vec3d(0, 0, 1), -7),
                                 limb(Vec3d(4, 144, -1.6), 3.0, Vec3d(11, 143.6, -1.0), 3.8),
                                 turned(ellipsoid(kShoulder + Vec3d(-1.3, 2.7, -0.1), Vec3d(6.6, 3.6, 6.4)),
                                        kShoulder, Vec3d(0, 0, 1), -8)},
                                2.4);
    Net net = alongTheArm(Vec3d(4.5, 144.4, -1.3), Vec3d(15.5, 144.4, -0.4));
    net.rings = 13;
    net.columns = 22;
    net.flatness = 1.5;
    net.capShare = 0.3;
    return skinned(flesh, net, Tone::kShell);
}

Mesh upperArm()
{
    Field flesh = blended({ellipsoid(kShoulder + Vec3d(1.6, 0.2, 0), Vec3d(7.2, 6.9, 6.9)),
                           limb(Vec3d(22, 141.8, 0), 4.7, Vec3d(43, 142, 0), 3.4),
                           ellipsoid(Vec3d(31.5, 142.3, 1.4), Vec3d(8.5, 4.0, 3.8)),
                           ellipsoid(Vec3d(30.5, 141.6, -1.6), Vec3d(9, 4.1, 3.7))},
                          2.6);
    flesh = common(flesh, halfSpace(kShoulder + Vec3d(-0.6, 0, 0), Vec3d(-1, 0.15, 0)), 1.0);
    flesh = common(flesh, halfSpace(kElbow + Vec3d(-3.0, 0, 0), Vec3d(1, 0, 0.1)), 1.3);
    Net net = alongTheArm(Vec3d(17.6, 142, 0), Vec3d(40.3, 142, 0));
    net.rings = 17;
    net.capShare = 0.24;
    net.flatFrom = net.flatTo = true;
    return skinned(flesh, net, Tone::kShell);
}

Mesh upperArmCore()
{
    return joined({ballMesh(kShoulder, 5.8, 11, 18, Tone::kCore),
                   rodMesh(kShoulder + Vec3d(4, 0, 0), 3.6, kElbow - Vec3d(3, 0, 0), 2.1, Tone::kCore)});
}

Mesh foreArm()
{
    Field flesh = blended({limb(Vec3d(47, 142, 0), 3.7, Vec3d(67.5, 142, 0), 2.3),
                           ellipsoid(Vec3d(53, 142.1, 0.5), Vec3d(7.4, 4.1, 4.3)),
                           ellipsoid(Vec3d(65.5, 142.0, 0.0), Vec3d(4.5, 2.2, 2.9))},
                          2.2);
    flesh = common(flesh, halfSpace(kElbow + Vec3d(3.2, 0, 0), Vec3d(-1, 0, 0.35)), 1.3);
    flesh = common(flesh, halfSpace(kWrist + Vec3d(-1.7, 0, 0), Vec3d(1, 0, 0)), 0.9);
    Net net = alongTheArm(Vec3d(50.2, 142, 0), Vec3d(67.2, 142, 0));
    net.rings = 17;
    net.capShare = 0.24;
    net.flatFrom = net.flatTo = true;
    return skinned(flesh, net, Tone::kShell);
}

Mesh foreArmCore()
{
    return joined({ballMesh(kElbow, 3.8, 10, 16, Tone::kCore), ballMesh(kWrist, 2.4, 6, 12, Tone::kCore),
                   rodMesh(kElbow + Vec3d(2, 0, 0), 2.4, kWrist, 1.4, Tone::kCore)});
}

}  // namespace

std::vector<Piece> leftArmPieces()
{
    return {{"LeftShoulder", "LeftShoulder&LeftArm#Outer", trapezius()},
            {"LeftArm", "LeftArm&LeftForeArm#Inner", upperArmCore()},
            {"LeftArm", "LeftArm&LeftForeArm#Outer", upperArm()},
            {"LeftForeArm", "LeftForeArm&LeftHand#Inner", foreArmCore()},
            {"LeftForeArm", "LeftForeArm&LeftHand#Outer", foreArm()}};
}

}  // namespace KivAvatarMaker
