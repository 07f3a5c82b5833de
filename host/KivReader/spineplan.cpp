#include "host/KivReader/spineplan.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace KivReader {

namespace {

constexpr std::array<const char*, 4> kSlots = {"Spine", "Spine1", "Spine2", "Spine3"};

constexpr double kOnTop = 0.01;     ///< of the height: joints as near as this coincide
constexpr double kShortNeck = 0.4;  ///< of the avatar's proportion: necks between these are kept
constexpr double kLongNeck = 1.45;
constexpr double kHighHead = 1.04;  ///< of the avatar's proportion above the arms: higher is inside the head
constexpr double kApart = 0.03;     ///< of the spine: at least so far from one spine joint to the next
constexpr double kAboutThere = 0.06;  ///< of the spine: how far a kept joint may be from where it belongs
constexpr double kLongBelly = 1.1;    ///< of where it belongs
constexpr double kChestLow = 0.55;    ///< of the spine: the chest's joint is between these
constexpr double kChestHigh = 0.92;
constexpr int kChestSteps = 100;

class SpineFinder
{
public:
    SpineFinder(Spots& spots, const BodySource& source, const osg::Quat& heading, double hipWidth)
        : m_spots(spots),
          m_source(source),
          m_up(heading * osg::Vec3d(0, 0, 1)),
          m_arms(source.arms),
          m_hipWidth(hipWidth)
    {
        const Spot& hips = spots.at("Hips");
        m_line.push_back({hips, "Hips"});
        m_top = hips.source;
        for (const char* slot : kSlots) {
            if (!source.matching.has(slot))
                continue;
            const Spot spot = spotOf(source, source.matching.at(slot));
            m_top = spot.source;
            if (hips.isSource || (spot.place - hips.place) * m_up > kOnTop * source.height)
                m_line.push_back({spot, slot});
        }
    }

    void find()
    {
        findHead();
        findNeck();
        m_line.push_back({m_spots["Neck"], "Neck"});
        measureLine();
        findDesired();
        keepWhatIsThere();
        fillIn();
        keepBellySlim();
    }

private:
    struct Vertex
    {
        Spot spot;
        std::string slot;
        double at = 0.0;  ///< along the line from the hips
    };

    double avatarAbove(const char* joint, const char* other) const
    {
        return m_source.avatar.place(joint).z() - m_source.avatar.place(other).z();
    }

    /// The crown as the file has it above a joint, or else at the avatar's proportions above the arms.
    osg::Vec3d crownAbove(std::int32_t joint) const
    {
        const double wanted = avatarAbove("Head", "LeftArm") + m_source.avatar.ends.at("Head").z();
        const osg::Vec3d guessed = m_arms + m_up * (wanted / m_source.avatar.height() * m_source.height);
        for (std::size_t i = 0; i < m_source.figure.joints.size(); ++i) {
            const MotionFigure::Joint& child = m_source.figure.joints[i];
            if (child.parent != joint || !child.endSite)
                continue;
            const osg::Vec3d above = m_source.rest[i].place - m_arms;
            if (above * m_up > 0.5 * (guessed - m_arms).length())
                return m_source.rest[i].place;
        }
        return guessed;
    }

    /// The head is drawn from its base. Some files have its joint in its middle: that would show as a long
    /// neck.
    Spot headSpot() const
    {
        Spot spot = spotOf(m_source, m_source.matching.at("Head"));
        const double usual = avatarAbove("Head", "LeftArm") / m_source.avatar.height() * m_source.height;
        const double above = (spot.place - m_arms) * m_up;
        if (above < kHighHead * usual)
            return spot;
        spot.place = m_arms + (spot.place - m_arms) * (usual / above);
        spot.isSource = false;
        spot.along = "Neck&Head";
        return spot;
    }

    void findHead()
    {
        if (m_source.matching.has("Head")) {
            m_spots["Head"] = headSpot();
            return;
        }
        const bool hasNeck = m_source.matching.has("Neck");
        Spot spot;
        spot.source = hasNeck ? static_cast<std::int32_t>(m_source.matching.at("Neck")) : m_top;
        spot.along = nameOf(spot.source) + "&" + nameOf(spot.source) + "End";
        const osg::Vec3d from = hasNeck ? placeOf(spot.source) : m_arms;
        const char* below = hasNeck ? "Neck" : "LeftArm";
        const double part =
            avatarAbove("Head", below) / (avatarAbove("Head", below) + m_source.avatar.ends.at("Head").z());
        spot.place = from + (crownAbove(spot.source) - from) * part;
        m_spots["Head"] = spot;
    }

    void findNeck()
    {
        const Spot& head = m_spots["Head"];
        Spot spot;
        spot.source = m_top;
        if (m_source.matching.has("Neck")) {
            spot = spotOf(m_source, m_source.matching.at("Neck"));
            const double length = (spot.place - head.place).length();
            const double usual =
                m_source.avatar.offset("Head").length() / m_source.avatar.height() * m_source.height;
            const bool isBelow = (head.place - spot.place) * m_up > 0.0;
            if (isBelow && length > kShortNeck * usual && length < kLongNeck * usual) {
                m_spots["Neck"] = spot;
                return;
            }
        }
        spot.isSource = false;
        spot.along = nameOf(m_top) + "&" + (head.isSource ? nameOf(head.source) : std::string("Head"));
        spot.place = m_arms + (head.place - m_arms) *
                                  (avatarAbove("Neck", "LeftArm") / avatarAbove("Head", "LeftArm"));
        m_spots["Neck"] = spot;
    }

    void measureLine()
    {
        for (std::size_t i = 1; i < m_line.size(); ++i)
            m_line[i].at = m_line[i - 1].at + (m_line[i].spot.place - m_line[i - 1].spot.place).length();
        m_length = m_line.back().at;
    }

    /// The segment that a place along the line is on, by its lower end.
    std::size_t segmentAt(double at) const
    {
        std::size_t segment = 0;
        while (segment + 2 < m_line.size() && m_line[segment + 1].at <= at)
            ++segment;
        return segment;
    }

    osg::Vec3d placeAt(double at) const
    {
        const Vertex& low = m_line[segmentAt(at)];
        const Vertex& high = m_line[segmentAt(at) + 1];
        const double length = high.at - low.at;
        const double part = length > 0.0 ? (at - low.at) / length : 0.0;
        return low.spot.place + (high.spot.place - low.spot.place) * part;
    }

    /// The chest piece carries the arms' sockets, and hips and chest are drawn as wide as the hips are: so
    /// its joint has to be as far below the arms as it is on an avatar with such hips. Under a low head it
    /// gives way by half of what the neck lacks.
    double chestAt() const
    {
        const osg::Vec3d avatarHips =
            m_source.avatar.place("LeftUpLeg") - m_source.avatar.place("RightUpLeg");
        const double size = m_hipWidth / avatarHips.length();
        const double byArms = m_arms * m_up - avatarAbove("LeftArm", "Spine3") * size;
        const double byHead = m_spots.at("Head").place * m_up - avatarAbove("Head", "Spine3") * size;
        const double wanted = byArms - std::max(0.0, byArms - byHead) / 2.0;
        double best = kChestLow * m_length;
        for (int step = 0; step <= kChestSteps; ++step) {
            const double at = m_length * (kChestLow + (kChestHigh - kChestLow) * step / kChestSteps);
            if (std::fabs(placeAt(at) * m_up - wanted) < std::fabs(placeAt(best) * m_up - wanted))
                best = at;
        }
        return best;
    }

    void findDesired()
    {
        const double chest = chestAt();
        for (std::size_t i = 0; i < kSlots.size(); ++i)
            m_desired[i] = chest * avatarAbove(kSlots[i], "Hips") / avatarAbove("Spine3", "Hips");
    }

    bool belongsTo(const Vertex& vertex, std::size_t slot) const
    {
        const bool roomForChest =
            slot + 1 == kSlots.size() || vertex.at < m_desired.back() - kApart * m_length;
        return roomForChest && std::fabs(vertex.at - m_desired[slot]) <= kAboutThere * m_length;
    }

    /// The slot of its name if it stands about there, else the nearest one; past the last for none.
    std::size_t slotFor(const Vertex& vertex, std::size_t firstFree) const
    {
        std::size_t best = kSlots.size();
        for (std::size_t slot = firstFree; slot < kSlots.size(); ++slot) {
            if (!belongsTo(vertex, slot))
                continue;
            if (vertex.slot == kSlots[slot])
                return slot;
            if (best == kSlots.size() ||
                std::fabs(vertex.at - m_desired[slot]) < std::fabs(vertex.at - m_desired[best]))
                best = slot;
        }
        return best;
    }

    void keepWhatIsThere()
    {
        double last = 0.0;
        std::size_t firstFree = 0;
        for (std::size_t i = 1; i + 1 < m_line.size(); ++i) {
            const Vertex& vertex = m_line[i];
            if (vertex.at < last + kApart * m_length || vertex.at > (1.0 - kApart) * m_length)
                continue;
            const std::size_t slot = slotFor(vertex, firstFree);
            if (slot == kSlots.size())
                continue;
            last = m_at[slot] = vertex.at;
            m_isKept[slot] = true;
            m_spots[kSlots[slot]] = vertex.spot;
            firstFree = slot + 1;
        }
    }

    /// One run of slots that no joint was kept for, from the first up to but not including the last.
    void fillRun(std::size_t first, std::size_t last)
    {
        const bool reachesNeck = last == kSlots.size();
        const double lowAt = first == 0 ? 0.0 : m_at[first - 1];
        const double highAt = reachesNeck ? m_length : m_at[last];
        const double lowWish = first == 0 ? 0.0 : m_desired[first - 1];
        const double highWish = reachesNeck ? m_length : m_desired[last];
        const bool wishesFit =
            m_desired[first] > lowAt + kApart * m_length && m_desired[last - 1] < highAt - kApart * m_length;
        for (std::size_t i = first; i < last; ++i) {
            m_at[i] = wishesFit ? m_desired[i]
                                : lowAt + (m_desired[i] - lowWish) / (highWish - lowWish) * (highAt - lowAt);
            insert(i);
        }
    }

    /// Of all that is inserted the chest comes first: it is what one sees.
    void placeChest()
    {
        const std::size_t chest = kSlots.size() - 1;
        double below = 0.0;
        for (std::size_t i = 0; i < chest; ++i)
            below = m_isKept[i] ? m_at[i] : below;
        if (m_isKept[chest] || m_desired[chest] < below + kApart * m_length)
            return;
        m_at[chest] = m_desired[chest];
        m_isKept[chest] = true;
        insert(chest);
    }

    void fillIn()
    {
        placeChest();
        for (std::size_t i = 0; i < kSlots.size();) {
            std::size_t last = i;
            while (last < kSlots.size() && !m_isKept[last])
                ++last;
            if (last > i)
                fillRun(i, last);
            i = last + 1;
        }
    }

    /// The belly is drawn in proportion to the segment from the first spine joint to the second.
    void keepBellySlim()
    {
        const double usual = m_desired[1] - m_desired[0];
        if (m_at[1] - m_at[0] <= kLongBelly * usual)
            return;
        m_at[0] = m_at[1] - usual;
        insert(0);
    }

    /// Rigid with what turns the spine at this height; the chest with what the arms hang from.
    void insert(std::size_t slot)
    {
        const std::size_t segment = segmentAt(m_at[slot]);
        Spot spot;
        spot.place = placeAt(m_at[slot]);
        spot.source = slot + 1 == kSlots.size() ? m_top : m_line[segment].spot.source;
        spot.along = nameOf(m_line[segment].spot.source) + "&" +
                     (m_line[segment + 1].spot.isSource ? nameOf(m_line[segment + 1].spot.source)
                                                        : m_line[segment + 1].slot);
        m_spots[kSlots[slot]] = spot;
    }

    std::string nameOf(std::int32_t joint) const
    {
        return m_source.figure.joints[static_cast<std::size_t>(joint)].name;
    }
    const osg::Vec3d& placeOf(std::int32_t joint) const
    {
        return m_source.rest[static_cast<std::size_t>(joint)].place;
    }

    Spots& m_spots;
    const BodySource& m_source;
    osg::Vec3d m_up;
    osg::Vec3d m_arms;
    double m_hipWidth;
    std::vector<Vertex> m_line;  ///< hips, the file's spine joints, neck
    std::int32_t m_top = -1;     ///< the last of the file's spine joints
    double m_length = 0.0;
    std::array<double, 4> m_desired{};
    std::array<double, 4> m_at{};
    std::array<bool, 4> m_isKept{};
};

}  // namespace

Spot spotOf(const BodySource& source, std::size_t joint)
{
    Spot spot;
    spot.source = static_cast<std::int32_t>(joint);
    spot.place = source.rest[joint].place;
    spot.isSource = true;
    return spot;
}

osg::Vec3d tipOf(const BodySource& source, std::size_t joint)
{
    std::vector<bool> isBelow(source.figure.joints.size());
    isBelow[joint] = true;
    const osg::Vec3d& origin = source.rest[joint].place;
    osg::Vec3d tip = origin;
    for (std::size_t i = joint + 1; i < isBelow.size(); ++i) {
        const std::int32_t parent = source.figure.joints[i].parent;
        if (parent < 0 || !isBelow[static_cast<std::size_t>(parent)])
            continue;
        isBelow[i] = true;
        if ((source.rest[i].place - origin).length2() > (tip - origin).length2())
            tip = source.rest[i].place;
    }
    return tip;
}

void findSpine(Spots& spots, const BodySource& source, const osg::Quat& heading, double hipWidth)
{
    SpineFinder(spots, source, heading, hipWidth).find();
}

}  // namespace KivReader
