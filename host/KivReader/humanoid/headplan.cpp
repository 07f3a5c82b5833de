#include "host/KivReader/humanoid/headplan.h"

namespace KivReader {

namespace {

constexpr double kShortNeck = 0.4;  ///< of the avatar's proportion: necks between these are kept
constexpr double kLongNeck = 1.45;
constexpr double kHighHead = 1.04;   ///< of the avatar's proportion above the arms: higher is inside the head
constexpr double kCrownsPart = 0.5;  ///< of the way to where a crown is expected: lower ends are none

class HeadFinder
{
public:
    HeadFinder(const BodySource& source, std::int32_t top, const osg::Vec3d& up)
        : m_source(source), m_top(top), m_up(up)
    {}

    Spot headSpot() const { return m_source.matching.has("Head") ? ownHead() : insertedHead(); }

    /// A neck that is too long or too short still gives its turns to the one that is inserted.
    Spot neckSpot(const Spot& head) const
    {
        Spot spot;
        spot.source = m_top;
        if (m_source.matching.has("Neck")) {
            spot = spotOf(m_source, m_source.matching.at("Neck"));
            if (isNeckBelow(head, spot.place))
                return spot;
            spot.isSource = false;
        }
        const RestFigure& avatar = m_source.avatar;
        spot.along = nameOf(m_top) + "&" + (head.isSource ? nameOf(head.source) : std::string("Head"));
        spot.place = m_source.arms + (head.place - m_source.arms) *
                                         (avatar.rise("LeftArm", "Neck") / avatar.rise("LeftArm", "Head"));
        return spot;
    }

private:
    /// The head is drawn from its base. Some files have its joint in its middle: that would show as a long
    /// neck.
    Spot ownHead() const
    {
        Spot spot = spotOf(m_source, m_source.matching.at("Head"));
        const double usual = inFigure(m_source.avatar.rise("LeftArm", "Head"));
        const double above = (spot.place - m_source.arms) * m_up;
        if (above < kHighHead * usual)
            return spot;
        spot.place = m_source.arms + (spot.place - m_source.arms) * (usual / above);
        spot.isSource = false;
        spot.along = "Neck&Head";
        return spot;
    }

    /// On the way from the neck, or from between the arms, to the crown.
    Spot insertedHead() const
    {
        const bool hasNeck = m_source.matching.has("Neck");
        Spot spot;
        spot.source = hasNeck ? static_cast<std::int32_t>(m_source.matching.at("Neck")) : m_top;
        spot.along = nameOf(spot.source) + "&" + nameOf(spot.source) + "End";
        const osg::Vec3d from =
            hasNeck ? m_source.rest[static_cast<std::size_t>(spot.source)].place : m_source.arms;
        const double toHead = m_source.avatar.rise(hasNeck ? "Neck" : "LeftArm", "Head");
        const double part = toHead / (toHead + m_source.avatar.ends.at("Head").z());
        spot.place = from + (crownAbove(spot.source) - from) * part;
        return spot;
    }

    /// The joint's end site if it may be a crown, or else where the avatar's proportions have one.
    osg::Vec3d crownAbove(std::int32_t joint) const
    {
        const double usual = m_source.avatar.rise("LeftArm", "Head") + m_source.avatar.ends.at("Head").z();
        const osg::Vec3d guessed = m_source.arms + m_up * inFigure(usual);
        for (std::size_t i = 0; i < m_source.figure.joints.size(); ++i) {
            const MotionFigure::Joint& child = m_source.figure.joints[i];
            if (child.parent != joint || !child.endSite)
                continue;
            const osg::Vec3d above = m_source.rest[i].place - m_source.arms;
            if (above * m_up > kCrownsPart * (guessed - m_source.arms).length())
                return m_source.rest[i].place;
        }
        return guessed;
    }

    bool isNeckBelow(const Spot& head, const osg::Vec3d& neck) const
    {
        const osg::Vec3d toHead = head.place - neck;
        const double usual = inFigure(m_source.avatar.offset("Head").length());
        return toHead * m_up > 0.0 && toHead.length() > kShortNeck * usual &&
               toHead.length() < kLongNeck * usual;
    }

    /// A length of the avatar's in the figure's size.
    double inFigure(double length) const { return length / m_source.avatar.height() * m_source.height; }

    const std::string& nameOf(std::int32_t joint) const
    {
        return m_source.figure.joints[static_cast<std::size_t>(joint)].name;
    }

    const BodySource& m_source;
    std::int32_t m_top;
    osg::Vec3d m_up;
};

}  // namespace

void findHead(Spots& spots, const BodySource& source, std::int32_t top, const osg::Vec3d& up)
{
    const HeadFinder finder(source, top, up);
    const Spot head = finder.headSpot();
    spots["Neck"] = finder.neckSpot(head);
    spots["Head"] = head;
}

}  // namespace KivReader
