#include "tools/makemotion/gait.h"

#include <array>
#include <cmath>

#include "tools/makemotion/curve.h"
#include "tools/makemotion/footpath.h"
#include "tools/makemotion/standing.h"

namespace KivMotion {

namespace {

constexpr double kSwingTime = 0.40;
constexpr double kSlapTime = 0.11;   // from the heel's touch to the flat foot
constexpr double kRollTime = 0.25;   // from the heel's leaving to the toes'
constexpr double kFootApart = 5.5;   // of either foot from the line of the walk
constexpr double kFirstShare = 0.8;  // the first step is shorter
constexpr double kToeOut = 6;

class WalkPlan
{
public:
    WalkPlan(const Rig& rig, const WalkStyle& style);

    BodyPose at(double time) const;

private:
    Side sideOf(int step) const { return step % 2 == 0 ? m_style.first : opposite(m_style.first); }
    double toeOff(int step) const { return m_style.start + step * m_style.stepTime; }
    double strike(int step) const { return toeOff(step) + kSwingTime; }
    double landing(int step) const;
    /// How much of a full step it is, for what swings along.
    double fullness(int step) const;
    std::vector<Plant> plantsOf(Side side) const;
    Plant landed(int step) const;
    void planPelvis();
    void planSwings();
    void swingArms(BodyPose& body, double time) const;

    WalkStyle m_style;
    BodyPose m_stand;
    std::array<FootPath, 2> m_feet;
    Curve m_ahead, m_sway, m_height, m_yaw, m_roll, m_walking;
};

WalkPlan::WalkPlan(const Rig& rig, const WalkStyle& style)
    : m_style(style),
      m_stand(standingPose(rig)),
      m_feet{FootPath(plantsOf(Side::Left)), FootPath(plantsOf(Side::Right))}
{
    planPelvis();
    planSwings();
}

double WalkPlan::landing(int step) const
{
    const int forward = step == m_style.steps - 1 ? step - 1 : step;
    return m_style.stepLength * (kFirstShare + forward);
}

double WalkPlan::fullness(int step) const
{
    if (step == m_style.steps - 1)
        return 0;
    return step == 0 || step == m_style.steps - 2 ? 0.75 : 1;
}

Plant WalkPlan::landed(int step) const
{
    const Side side = sideOf(step);
    const bool closes = step >= m_style.steps - 2;
    Plant plant;
    plant.ankle =
        osg::Vec3d(signOf(side) * (closes ? 8.5 : kFootApart), m_stand.feet[0].ankle.y(), landing(step));
    plant.yaw = signOf(side) * kToeOut;
    plant.strike = strike(step);
    plant.flat = plant.strike + kSlapTime;
    plant.strikePitch = step == m_style.steps - 1 ? 2 : 20 * fullness(step);
    plant.toeOffPitch = 36;
    plant.toeOff = step + 2 < m_style.steps ? toeOff(step + 2) : 1e9;
    plant.heelOff = plant.toeOff - kRollTime;
    return plant;
}

std::vector<Plant> WalkPlan::plantsOf(Side side) const
{
    const int first = sideOf(0) == side ? 0 : 1;
    Plant stand;
    stand.ankle = m_stand.feet[indexOf(side)].ankle;
    stand.yaw = m_stand.feet[indexOf(side)].yaw;
    stand.strike = stand.flat = -1;
    stand.toeOff = toeOff(first);
    stand.heelOff = stand.toeOff - kRollTime - 0.03;
    stand.toeOffPitch = first == 0 ? 22 : 32;
    std::vector<Plant> plants = {stand};
    for (int step = first; step < m_style.steps; step += 2)
        plants.push_back(landed(step));
    return plants;
}

void WalkPlan::planPelvis()
{
    const double stand = m_stand.pelvis.z();
    m_ahead.addTurn(m_style.start - 0.55, stand);
    m_ahead.add(m_style.start - 0.05, stand + 4.5, 0);
    // Between two steps the weight is midway between the feet.
    for (int step = 1; step < m_style.steps; ++step) {
        const double behind = step == 1 ? 0 : landing(step - 2);
        m_ahead.add(toeOff(step) - 0.05, 0.5 * (behind + landing(step - 1)) + stand + 9, 0);
    }
    m_ahead.addTurn(m_style.end() + 0.35, m_style.distance() + stand);
    m_ahead.smoothSlopes();

    m_height.addTurn(m_style.start - 0.6, m_stand.pelvis.y());
    m_sway.addTurn(m_style.start - 0.6, 0);
    m_roll.addTurn(m_style.start - 0.3, 0);
    for (int step = 0; step < m_style.steps; ++step) {
        const double towards = -signOf(sideOf(step));
        const double share = step == 0 ? 1.5 : 1.0;
        m_height.addTurn(toeOff(step) - 0.04, m_stand.pelvis.y() - (step == 0 ? 1.0 : 3.0));
        m_height.addTurn(toeOff(step) + 0.23, m_stand.pelvis.y() - 0.2);
        m_sway.addTurn(toeOff(step) + (step == 0 ? 0.02 : 0.20), towards * 2.6 * share);
        m_roll.addTurn(toeOff(step) + 0.12, towards * 3.2 * (0.4 + 0.6 * fullness(step)));
    }
    m_height.addTurn(m_style.end() + 0.05, m_stand.pelvis.y() - 1.6);
    m_height.addTurn(m_style.end() + 0.6, m_stand.pelvis.y());
    m_sway.addTurn(m_style.end() + 0.5, 0);
    m_roll.addTurn(m_style.end() + 0.4, 0);
}

void WalkPlan::planSwings()
{
    m_yaw.addTurn(m_style.start - 0.25, 0);
    for (int step = 0; step < m_style.steps; ++step)
        m_yaw.addTurn(strike(step) + 0.02, -signOf(sideOf(step)) * fullness(step));
    m_yaw.addTurn(m_style.end() + 0.55, 0);
    m_walking.addTurn(m_style.start - 0.3, 0);
    m_walking.addTurn(strike(0), 1);
    m_walking.addTurn(toeOff(m_style.steps - 1), 1);
    m_walking.addTurn(m_style.end() + 0.5, 0);
}

void WalkPlan::swingArms(BodyPose& body, double time) const
{
    // +1 when the right heel strikes; the arms follow a little late, the forearms later still.
    const double swing = m_yaw.at(time - 0.03) * m_style.armSwing;
    const double forearm = m_yaw.at(time - 0.08) * m_style.armSwing;
    const double walking = m_walking.at(time);
    for (Side side : {Side::Left, Side::Right}) {
        ArmAngles& arm = body.arm(side);
        arm.flexion += walking * 1 + 18 * signOf(side) * swing;
        arm.elbow += walking * 8 + 11 * signOf(side) * forearm;
        arm.external -= walking * 4;
        arm.abduction += walking * 0.5;
        arm.wristFlexion += 3 * signOf(side) * m_yaw.at(time - 0.14);
    }
}

BodyPose WalkPlan::at(double time) const
{
    BodyPose body = m_stand;
    body.feet = {m_feet[0].at(time), m_feet[1].at(time)};
    const double yaw = m_yaw.at(time), walking = m_walking.at(time);
    body.pelvis = osg::Vec3d(m_sway.at(time), m_height.at(time), m_ahead.at(time));
    body.pelvisAttitude.yaw = 5.5 * yaw;
    body.pelvisAttitude.roll = m_roll.at(time);
    body.pelvisAttitude.pitch -= 2 * walking;
    body.chest.yaw = -6.5 * m_yaw.at(time - 0.02);
    body.chest.pitch -= 3.5 * walking;
    body.chest.roll = -0.25 * m_roll.at(time);
    body.gaze.yaw = -0.8 * yaw;
    body.gaze.roll = -0.1 * m_roll.at(time);
    swingArms(body, time);
    breathe(body, time, m_style.breath);
    return body;
}

}  // namespace

double WalkStyle::end() const
{
    return start + (steps - 1) * stepTime + kSwingTime;
}

double WalkStyle::distance() const
{
    return stepLength * (kFirstShare + steps - 2);
}

std::vector<BodyPose> walkFrames(const Rig& rig, const WalkStyle& style, double seconds)
{
    const WalkPlan plan(rig, style);
    std::vector<BodyPose> frames;
    const int count = static_cast<int>(std::lround(seconds * kFramesPerSecond));
    for (int i = 0; i < count; ++i)
        frames.push_back(plan.at(i / kFramesPerSecond));
    keepLegsInReach(rig, frames, 0.997, 4);
    return frames;
}

}  // namespace KivMotion
