#include "tools/makeavatar/pieces.h"
#include "tools/makeavatar/skin.h"

namespace KivAvatarMaker {

using osg::Vec3d;

namespace {

struct Finger
{
    const char* name;
    double baseRadius, middleRadius, tipRadius;
};

constexpr Finger kFingers[] = {{"Thumb", 1.35, 1.15, 1.0},
                               {"Index", 1.02, 0.90, 0.80},
                               {"Middle", 1.06, 0.94, 0.82},
                               {"Ring", 1.00, 0.88, 0.78},
                               {"Pinky", 0.88, 0.76, 0.68}};

// One link of a finger: a shell that leaves room at both ends, and the knuckle at its start.
Mesh link(const Vec3d& from, double fromRadius, const Vec3d& to, double toRadius)
{
    Vec3d along = to - from;
    along.normalize();
    const Vec3d start = from + along * (fromRadius * 0.75), end = to - along * (toRadius * 0.6);
    Field shell = limb(start, fromRadius, end, toRadius);
    shell = carved(shell, ball(from, fromRadius * 0.98), 0.25);
    shell = carved(shell, ball(to, toRadius * 1.0), 0.25);
    Net net;
    net.from = from + along * (fromRadius * 1.25);
    net.to = to - along * (toRadius * 1.2);
    net.front = Vec3d(0, 1, 0);
    net.rings = 10;
    net.columns = 12;
    net.capShare = 0.3;
    return joined({skinned(shell, net, Tone::kShell), ballMesh(from, fromRadius * 0.93, 6, 10, Tone::kCore)});
}

Mesh fingerTip(const Vec3d& from, double fromRadius, const Vec3d& end, double endRadius)
{
    Vec3d along = end - from;
    along.normalize();
    const Vec3d start = from + along * (fromRadius * 0.75), last = end - along * (endRadius * 0.75);
    Field shell = limb(start, fromRadius, last, endRadius * 0.8);
    shell = carved(shell, ball(from, fromRadius * 0.98), 0.25);
    Net net;
    net.from = from + along * (fromRadius * 1.25);
    net.to = last;
    net.front = Vec3d(0, 1, 0);
    net.rings = 10;
    net.columns = 12;
    return joined({skinned(shell, net, Tone::kShell), ballMesh(from, fromRadius * 0.93, 6, 10, Tone::kCore)});
}

Vec3d endPoint(const std::string& joint)
{
    for (const KivFigure::RestEnd& end : KivFigure::restEnds())
        if (end.parent == joint)
            return restPoint(joint) + Vec3d(end.offset[0], end.offset[1], end.offset[2]);
    return restPoint(joint);
}

void addFinger(std::vector<Piece>& pieces, const Finger& finger)
{
    const std::string chain = std::string("LeftHand") + finger.name;
    const std::string first = chain + "1", second = chain + "2", third = chain + "3";
    pieces.push_back({first, first + "&" + second + "#Outer",
                      link(restPoint(first), finger.baseRadius, restPoint(second), finger.middleRadius)});
    pieces.push_back({second, second + "&" + third + "#Outer",
                      link(restPoint(second), finger.middleRadius, restPoint(third), finger.tipRadius)});
    pieces.push_back(
        {third, third, fingerTip(restPoint(third), finger.tipRadius, endPoint(third), finger.tipRadius)});
}

Mesh palm()
{
    const Field flesh = blended({roundedBox(Vec3d(76.0, 142.2, 0.3), Vec3d(3.8, 1.35, 3.9), 1.3),
                                 ellipsoid(Vec3d(74.6, 142.1, 0), Vec3d(3.6, 1.6, 3.2)),
                                 ellipsoid(Vec3d(74.6, 141.3, 2.7), Vec3d(2.9, 1.5, 1.7)),
                                 ellipsoid(Vec3d(75.4, 141.3, -2.6), Vec3d(3.2, 1.3, 1.4))},
                                1.0);
    Net net;
    net.from = Vec3d(73.2, 142.1, 0.1);
    net.to = Vec3d(77.4, 142.1, 0.2);
    net.front = Vec3d(0, 1, 0);
    net.rings = 13;
    net.columns = 20;
    net.capShare = 0.36;
    net.flatness = 2.2;
    return skinned(common(flesh, halfSpace(kWrist + Vec3d(1.7, 0, 0), Vec3d(-1, 0, 0)), 0.9), net,
                   Tone::kShell);
}

Mesh wrist()
{
    const Field carpus =
        blended({ball(kWrist, 2.3), ellipsoid(kWrist + Vec3d(2.0, 0.1, 0), Vec3d(3.0, 1.3, 2.3))}, 0.8);
    Net net;
    net.from = kWrist;
    net.to = kWrist + Vec3d(2.5, 0.1, 0);
    net.front = Vec3d(0, 1, 0);
    net.rings = 10;
    net.columns = 14;
    return skinned(carpus, net, Tone::kCore);
}

Mesh jugglingBall(const Vec3d& centre, double radius)
{
    constexpr double kSeam = 0.6;  // of the radius, above and below the equator
    const Field whole = ball(centre, radius);
    Net net;
    net.front = Vec3d(0, 0, 1);
    net.rings = 7;
    net.columns = 16;
    std::vector<Mesh> parts;
    for (const double side : {1.0, -1.0}) {
        const Vec3d pole(0, side, 0);
        const Field cap = common(whole, halfSpace(centre + pole * (radius * kSeam), -pole), 0.25);
        net.from = centre + pole * (radius * (kSeam + 0.06));
        net.to = centre + pole * (radius * (kSeam + 0.07));
        net.capShare = 0.5;
        net.flatFrom = true;
        parts.push_back(skinned(cap, net, Tone::kBallLight));
    }
    Field band = common(whole, halfSpace(centre + Vec3d(0, radius * kSeam, 0), Vec3d(0, 1, 0)), 0.25);
    band = common(band, halfSpace(centre - Vec3d(0, radius * kSeam, 0), Vec3d(0, -1, 0)), 0.25);
    net.from = centre - Vec3d(0, radius * (kSeam - 0.05), 0);
    net.to = centre + Vec3d(0, radius * (kSeam - 0.05), 0);
    net.flatFrom = net.flatTo = true;
    net.capShare = 0.25;
    parts.push_back(skinned(band, net, Tone::kBallWarm));
    return joined(parts);
}

}  // namespace

std::vector<Piece> leftHandPieces()
{
    std::vector<Piece> pieces;
    pieces.push_back({"LeftHand", "LeftHand", wrist()});
    pieces.push_back({"LeftInHandRing", "LeftInHandRing&LeftHandRing1#Outer", palm()});
    for (const Finger& finger : kFingers)
        addFinger(pieces, finger);
    pieces.push_back({"LeftProps", "LeftProps", jugglingBall(restPoint("LeftProps"), 5.2)});
    return pieces;
}

}  // namespace KivAvatarMaker
