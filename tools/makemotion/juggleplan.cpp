#include "tools/makemotion/juggleplan.h"

#include <algorithm>

namespace KivMotion {

namespace {

constexpr double kFirstThrow = 1.3;
constexpr double kBeat = 0.33;           // between the throws of alternate hands
constexpr double kDwell = 1.35 * kBeat;  // from a catch to the throw that follows
constexpr double kFlightTime = 3 * kBeat - kDwell;
constexpr int kThrowsOfEach = 6;

// Of the left hand.
const osg::Vec3d kRest(20, 115, 33), kThrow(13, 118, 36), kCatch(28, 122, 34), kScoop(21, 112, 34);

osg::Vec3d onSide(Side side, const osg::Vec3d& left)
{
    return {signOf(side) * left.x(), left.y(), left.z()};
}

/// One thing that a hand has to do: be there, this fast.
struct HandKey
{
    double time;
    osg::Vec3d position, velocity;
};

}  // namespace

osg::Vec3d Flight::velocityAt(double time) const
{
    const double span = end - start;
    osg::Vec3d velocity = (to - from) / span;
    velocity.y() += kGravity * (0.5 * span - (time - start));
    return velocity;
}

osg::Vec3d Flight::positionAt(double time) const
{
    const double gone = time - start, left = end - time;
    osg::Vec3d position = from + (to - from) * (gone / (end - start));
    position.y() += 0.5 * kGravity * gone * left;
    return position;
}

JugglePlan::JugglePlan()
{
    planFlights();
    planHand(Side::Left);
    planHand(Side::Right);
}

void JugglePlan::planFlights()
{
    for (int round = 0; round < kThrowsOfEach; ++round)
        for (Side ball : {Side::Right, Side::Left}) {
            const int beat = 3 * round + (ball == Side::Left ? 1 : 0);
            Flight flight;
            flight.ball = ball;
            flight.thrower = round % 2 == 0 ? ball : opposite(ball);
            // No two throws of a person are quite alike.
            const double stray = drift(7.0 * beat, 1);
            flight.start = kFirstThrow + beat * kBeat;
            flight.end = flight.start + kFlightTime;
            flight.from = onSide(flight.thrower, kThrow + osg::Vec3d(0.8 * stray, 0, 0));
            flight.to =
                onSide(opposite(flight.thrower), kCatch + osg::Vec3d(2.0 * stray, 1.2 * stray, -1.5 * stray));
            m_flights.push_back(flight);
            m_end = std::max(m_end, flight.end);
        }
}

void JugglePlan::planHand(Side hand)
{
    std::vector<HandKey> keys = {{0.2, onSide(hand, kRest), {}}};
    for (const Flight& flight : m_flights) {
        if (flight.thrower == hand)
            keys.push_back({flight.start, flight.from, flight.velocityAt(flight.start)});
        else  // gives way to the ball, and so catches it softly
            keys.push_back({flight.end, flight.to, flight.velocityAt(flight.end) * 0.35});
    }
    std::sort(keys.begin(), keys.end(), [](const HandKey& a, const HandKey& b) { return a.time < b.time; });
    std::vector<HandKey> all;
    for (const HandKey& key : keys) {
        if (!all.empty() && key.velocity.y() > 0) {
            // Scoops the ball, or winds up for the first throw.
            const double time = std::max(all.back().time + 0.02, key.time - 0.55 * kDwell);
            const osg::Vec3d inwards((key.position.x() - onSide(hand, kCatch).x()) / kDwell, 0, 0);
            if (all.size() == 1)
                all.push_back({key.time - kDwell, onSide(hand, kRest), {}});
            all.push_back({time, onSide(hand, kScoop), inwards});
        } else if (!all.empty() && key.time - all.back().time > kBeat) {
            // With time to spare the hand waits low.
            all.push_back({0.5 * (all.back().time + key.time), onSide(hand, kRest), {}});
        }
        all.push_back(key);
    }
    all.push_back({all.back().time + 0.45, onSide(hand, kRest - osg::Vec3d(0, 3, 0)), {}});
    all.push_back({all.back().time + 0.5, onSide(hand, kRest), {}});
    for (const HandKey& key : all)
        for (int axis = 0; axis < 3; ++axis)
            m_holds[indexOf(hand)][static_cast<std::size_t>(axis)].add(key.time, key.position[axis],
                                                                       key.velocity[axis]);
}

const Flight* JugglePlan::flightOf(Side ball, double time) const
{
    for (const Flight& flight : m_flights)
        if (flight.ball == ball && flight.start <= time && time < flight.end)
            return &flight;
    return nullptr;
}

Side JugglePlan::holderOf(Side ball, double time) const
{
    Side holder = ball;
    for (const Flight& flight : m_flights)
        if (flight.ball == ball && flight.start <= time)
            holder = opposite(flight.thrower);
    return holder;
}

osg::Vec3d JugglePlan::holdPoint(Side hand, double time) const
{
    const std::array<Curve, 3>& hold = m_holds[indexOf(hand)];
    return {hold[0].at(time), hold[1].at(time), hold[2].at(time)};
}

}  // namespace KivMotion
