#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

const Vec3d kCollar(4, 143.5, 0);
const Vec3d kShoulder(17, 142, 0);
const Vec3d kElbow(45, 142, 0);
const Vec3d kWrist(70, 142, 0);

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
    const Field flesh = blended({limb(Vec3d(4.5, 145.0, -1.6), 4.3, Vec3d(14.5, 143.3, -0.6), 4.6),
                                 ellipsoid(Vec3d(9, 145, -1.8), Vec3d(7, 3.6, 4.2))},
                                2.0);
    Net net = alongTheArm(Vec3d(4.5, 144.5, -1.2), Vec3d(8.8, 144.3, -1.0));
    net.capShare = 0.34;
    return skinned(carved(flesh, ball(kShoulder, 6.5), 1.0), net, Tone::kShell);
}

Mesh upperArm()
{
    const Field cap = common(ellipsoid(kShoulder + Vec3d(1.2, 0.3, 0), Vec3d(7.4, 6.8, 6.9)),
                             halfSpace(kShoulder + Vec3d(-1.4, 0, 0), Vec3d(-1, 0.35, 0)), 1.4);
    const Field flesh = blended({cap, limb(Vec3d(22, 141.8, 0), 4.9, Vec3d(41, 142, 0), 3.7),
                                 ellipsoid(Vec3d(31.5, 142.3, 1.3), Vec3d(8.5, 4.2, 3.9)),
                                 ellipsoid(Vec3d(30.5, 141.7, -1.6), Vec3d(9, 4.3, 3.8))},
                                2.6);
    Net net = alongTheArm(Vec3d(20.5, 142, 0), Vec3d(39.5, 142, 0));
    net.rings = 15;
    net.capShare = 0.26;
    return skinned(carved(flesh, ball(kElbow, 4.3), 1.0), net, Tone::kShell);
}

Mesh upperArmCore()
{
    const Field core =
        blended({ball(kShoulder, 6.0), limb(kShoulder, 4.0, kElbow - Vec3d(4, 0, 0), 3.2)}, 2.0);
    Net net = alongTheArm(kShoulder, kElbow - Vec3d(4, 0, 0));
    net.rings = 13;
    net.capShare = 0.38;
    return skinned(core, net, Tone::kCore);
}

Mesh foreArm()
{
    const Field flesh = blended({limb(Vec3d(48.5, 142, 0), 4.2, Vec3d(66.5, 142, 0), 2.6),
                                 ellipsoid(Vec3d(53.5, 142.0, 0.5), Vec3d(6.8, 4.2, 4.5)),
                                 ellipsoid(Vec3d(65, 142.0, 0.0), Vec3d(4, 2.3, 3.0))},
                                2.2);
    Field trimmed = carved(flesh, ball(kElbow + Vec3d(0.2, 0, 1.0), 4.4), 1.0);
    trimmed = carved(trimmed, ball(kWrist, 2.9), 0.8);
    Net net = alongTheArm(Vec3d(51.8, 142, 0), Vec3d(65.2, 142, 0));
    net.rings = 15;
    net.capShare = 0.25;
    return skinned(trimmed, net, Tone::kShell);
}

Mesh foreArmCore()
{
    const Field core = blended({ball(kElbow, 4.0), limb(kElbow, 3.0, kWrist - Vec3d(2, 0, 0), 1.9)}, 2.0);
    Net net = alongTheArm(kElbow, kWrist - Vec3d(2, 0, 0));
    net.rings = 13;
    net.capShare = 0.38;
    return joined({skinned(core, net, Tone::kCore), ballMesh(kWrist, 2.4, 7, 12, Tone::kCore)});
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
