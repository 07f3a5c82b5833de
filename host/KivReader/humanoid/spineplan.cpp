#include "host/KivReader/humanoid/spineplan.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/KivReader/humanoid/headplan.h"
#include "host/KivReader/humanoid/spineline.h"

namespace KivReader {

namespace {

/// The avatar's spine, from the belly up. The last one carries the chest and the arms.
constexpr std::array<const char*, 4> kSlots = {"Spine", "Spine1", "Spine2", "Spine3"};
constexpr std::size_t kChest = kSlots.size() - 1;

constexpr double kOnTop = 0.01;       ///< of the height: joints as near as this coincide
constexpr double kApart = 0.03;       ///< of the spine: at least so far from one spine joint to the next
constexpr double kAboutThere = 0.06;  ///< of the spine: how far a kept joint may be from where it belongs
constexpr double kLongBelly = 1.1;    ///< of where it belongs
constexpr double kFattest = 1.3;    ///< times the avatar's belly, against the hips; slimmer ones leave a gap
constexpr double kChestLow = 0.55;  ///< of the spine: the chest's joint is between these
constexpr double kChestHigh = 0.92;
constexpr int kChestSteps = 100;

/// Puts the avatar's spine joints on the line of the file's: first it is settled where each belongs, then
/// which of the file's joints are about there and stay, then the gaps are filled.
class SpinePlanner
{
public:
    SpinePlanner(Spots& spots, const BodySource& source, const SpineLine& line, std::int32_t top)
        : m_spots(spots), m_source(source), m_line(line), m_top(top)
    {}

    void plan(const osg::Vec3d& up, double hipWidth)
    {
        const double chest = chestAt(up, hipWidth);
        for (std::size_t i = 0; i < kSlots.size(); ++i)
            m_wish[i] =
                chest * m_source.avatar.rise("Hips", kSlots[i]) / m_source.avatar.rise("Hips", "Spine3");
        keepWhatIsThere();
        placeChest();
        fillGaps();
        keepBellySlim(hipWidth);
    }

private:
    /// The chest piece carries the arms' sockets, and hips and chest are drawn as wide as the hips are: so
    /// its joint has to be as far below the arms as it is on an avatar with such hips. Under a low head it
    /// gives way by half of what the neck lacks.
    double chestAt(const osg::Vec3d& up, double hipWidth) const
    {
        const RestFigure& avatar = m_source.avatar;
        const double size = hipWidth / (avatar.place("LeftUpLeg") - avatar.place("RightUpLeg")).length();
        const double byArms = m_source.arms * up - avatar.rise("Spine3", "LeftArm") * size;
        const double byHead = m_spots.at("Head").place * up - avatar.rise("Spine3", "Head") * size;
        const double wanted = byArms - std::max(0.0, byArms - byHead) / 2.0;
        const auto missedBy = [&](double at) { return std::fabs(m_line.placeAt(at) * up - wanted); };
        double best = kChestLow * m_line.length();
        for (int step = 0; step <= kChestSteps; ++step) {
            const double at = m_line.length() * (kChestLow + (kChestHigh - kChestLow) * step / kChestSteps);
            if (missedBy(at) < missedBy(best))
                best = at;
        }
        return best;
    }

    bool belongsTo(const SpineLine::Vertex& vertex, std::size_t slot) const
    {
        const bool roomForChest = slot == kChest || vertex.at < m_wish[kChest] - apart();
        return roomForChest && std::fabs(vertex.at - m_wish[slot]) <= kAboutThere * m_line.length();
    }

    /// The slot of its name if it stands about there, else the nearest one; past the last for none.
    std::size_t slotFor(const SpineLine::Vertex& vertex, std::size_t firstFree) const
    {
        std::size_t best = kSlots.size();
        for (std::size_t slot = firstFree; slot < kSlots.size(); ++slot) {
            if (!belongsTo(vertex, slot))
                continue;
            if (vertex.name == kSlots[slot])
                return slot;
            if (best == kSlots.size() ||
                std::fabs(vertex.at - m_wish[slot]) < std::fabs(vertex.at - m_wish[best]))
                best = slot;
        }
        return best;
    }

    void keepWhatIsThere()
    {
        double last = 0.0;
        std::size_t firstFree = 0;
        const std::vector<SpineLine::Vertex>& vertices = m_line.vertices();
        for (std::size_t i = 1; i + 1 < vertices.size(); ++i) {
            const SpineLine::Vertex& vertex = vertices[i];
            if (vertex.at < last + apart() || vertex.at > (1.0 - kApart) * m_line.length())
                continue;
            const std::size_t slot = slotFor(vertex, firstFree);
            if (slot == kSlots.size())
                continue;
            last = m_at[slot] = vertex.at;
            m_isSettled[slot] = true;
            m_spots[kSlots[slot]] = vertex.spot;
            firstFree = slot + 1;
        }
    }

    /// Of all that is inserted the chest comes first: it is what one sees.
    void placeChest()
    {
        double below = 0.0;
        for (std::size_t i = 0; i < kChest; ++i)
            below = m_isSettled[i] ? m_at[i] : below;
        if (!m_isSettled[kChest] && m_wish[kChest] >= below + apart())
            insert(kChest, m_wish[kChest]);
    }

    void fillGaps()
    {
        for (std::size_t first = 0; first < kSlots.size();) {
            std::size_t last = first;
            while (last < kSlots.size() && !m_isSettled[last])
                ++last;
            if (last > first)
                fillGap(first, last);
            first = last + 1;
        }
    }

    /// Slots without a place, from the first up to but not including the last: each where it belongs, or
    /// where there is no room for that, in the same proportions between those below and above.
    void fillGap(std::size_t first, std::size_t last)
    {
        const bool reachesNeck = last == kSlots.size();
        const double lowAt = first == 0 ? 0.0 : m_at[first - 1];
        const double highAt = reachesNeck ? m_line.length() : m_at[last];
        const double lowWish = first == 0 ? 0.0 : m_wish[first - 1];
        const double highWish = reachesNeck ? m_line.length() : m_wish[last];
        const bool wishesFit = m_wish[first] > lowAt + apart() && m_wish[last - 1] < highAt - apart();
        for (std::size_t i = first; i < last; ++i) {
            const double part = (m_wish[i] - lowWish) / (highWish - lowWish);
            insert(i, wishesFit ? m_wish[i] : lowAt + part * (highAt - lowAt));
        }
    }

    /// The belly is drawn in proportion to the segment from the first spine joint to the second: that has to
    /// go with the hips below it, however long the spine is.
    void keepBellySlim(double hipWidth)
    {
        const RestFigure& avatar = m_source.avatar;
        const double byHips = kFattest * avatar.offset("Spine1").length() * hipWidth /
                              (avatar.place("LeftUpLeg") - avatar.place("RightUpLeg")).length();
        const double usual = std::min(m_wish[1] - m_wish[0], byHips);
        if (m_at[1] - m_at[0] > kLongBelly * usual)
            insert(0, m_at[1] - usual);
    }

    /// The chest is rigid with what the arms hang from.
    void insert(std::size_t slot, double at)
    {
        m_at[slot] = at;
        m_isSettled[slot] = true;
        Spot spot = m_line.spotAt(at);
        if (slot == kChest)
            spot.source = m_top;
        m_spots[kSlots[slot]] = spot;
    }

    double apart() const { return kApart * m_line.length(); }

    Spots& m_spots;
    const BodySource& m_source;
    const SpineLine& m_line;
    std::int32_t m_top;              ///< the last of the file's spine joints
    std::array<double, 4> m_wish{};  ///< along the line: where each slot belongs
    std::array<double, 4> m_at{};    ///< where it comes to be
    std::array<bool, 4> m_isSettled{};
};

}  // namespace

void findSpine(Spots& spots, const BodySource& source, const osg::Quat& heading, double hipWidth)
{
    const osg::Vec3d up = heading * osg::Vec3d(0, 0, 1);
    const Spot hips = spots.at("Hips");
    std::int32_t top = hips.source;
    SpineLine line(source.figure);
    line.add(hips, "Hips");
    for (const char* slot : kSlots) {
        if (!source.matching.has(slot))
            continue;
        const Spot spot = spotOf(source, source.matching.at(slot));
        top = spot.source;
        // Hips that were put elsewhere may have come to stand above the file's first spine joints.
        if (hips.isSource || (spot.place - hips.place) * up > kOnTop * source.height)
            line.add(spot, slot);
    }
    findHead(spots, source, top, up);
    line.add(spots.at("Neck"), "Neck");
    SpinePlanner(spots, source, line, top).plan(up, hipWidth);
}

}  // namespace KivReader
