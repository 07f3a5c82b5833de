#include "apps/kivplayer/output/motiontable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <ostream>
#include <vector>

#include "KivFrameData/contacttracker.h"
#include "KivMemoryShare/actorframemanager.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "apps/kivplayer/support/atomicfile.h"
#include "apps/kivplayer/support/numbers.h"

namespace KivPlayer {

namespace {

using Range = std::optional<std::pair<double, double>>;
using Cells = std::vector<std::string>;

/// Frame times are decimals: what multiplying leaves behind the nanosecond is none of the file's.
std::string timeText(double seconds)
{
    return numberText(std::round(seconds * 1e9) / 1e9);
}

/// For times that were multiplied up from a frame time.
constexpr double kSameTime = 1e-6;

std::string quoted(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quotes = "\"";
    for (const char letter : text)
        quotes += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return quotes + "\"";
}

bool writeRow(std::ostream& stream, const Cells& cells)
{
    const char* comma = "";
    for (const std::string& cell : cells) {
        stream << comma << cell;
        comma = ",";
    }
    return static_cast<bool>(stream << '\n');
}

/// The joints of all actors and those of them that can touch, each once, in the order in which they come.
class Columns
{
public:
    explicit Columns(const std::map<unsigned, LoadedActor>& actors)
    {
        for (const auto& [index, actor] : actors) {
            const Cells names = actor.dressed.jointNames();
            for (const std::string& name : names)
                m_joints.emplace(name, m_joints.size());
            for (const std::size_t joint : KivFrameData::ContactTracker(names).joints())
                m_touching.emplace(names[joint], m_touching.size());
        }
    }

    Cells header() const
    {
        Cells cells{"actor", "name", "frame", "time_s"};
        cells.resize(width());
        const auto position = [&cells](std::size_t first, const std::string& what) {
            cells[first] = quoted(what + "_x_cm");
            cells[first + 1] = quoted(what + "_y_cm");
            cells[first + 2] = quoted(what + "_z_up_cm");
        };
        for (const auto& [name, i] : m_joints)
            position(joint(i), name);
        position(centre(), "centre_of_mass");
        for (const auto& [name, i] : m_touching)
            cells[contact(i)] = quoted(name + "_contact");
        return cells;
    }

    std::size_t width() const { return contact(m_touching.size()); }
    std::size_t joint(const std::string& name) const { return joint(m_joints.at(name)); }
    std::size_t centre() const { return joint(m_joints.size()); }
    std::size_t contact(const std::string& name) const { return contact(m_touching.at(name)); }

private:
    static std::size_t joint(std::size_t i) { return 4 + 3 * i; }
    std::size_t contact(std::size_t i) const { return centre() + 3 + i; }

    std::map<std::string, std::size_t> m_joints;
    std::map<std::string, std::size_t> m_touching;
};

void putPosition(Cells& cells, std::size_t first, double x, double y, double z)
{
    cells[first] = numberText(static_cast<float>(x));
    cells[first + 1] = numberText(static_cast<float>(y));
    cells[first + 2] = numberText(static_cast<float>(z));
}

/// What has been published of an actor for the pose that it has.
void putFrameData(Cells& cells, const Columns& columns, unsigned actor, const Cells& touching)
{
    const auto* store = KivMemoryShare::ActorFrameManager::Ins();
    int tag = 0;
    unsigned long long count = 0;
    std::array<float, KivMemoryShare::ActorFrameManager::kGravityFloats> centre{};
    float* floats = centre.data();
    if (store->ReadActorGravity(actor, &floats, tag, count) && count >= 3)
        putPosition(cells, columns.centre(), centre[0], -centre[2], centre[1]);
    std::array<KivCommonDef::KIV_STICKCONTACT, KivMemoryShare::ActorFrameManager::kStickContacts> contacts{};
    KivCommonDef::KIV_STICKCONTACT* records = contacts.data();
    if (store->ReadActorStickContact(actor, &records, tag, count))
        for (std::size_t i = 0; i < std::min<std::size_t>(count, touching.size()); ++i)
            cells[columns.contact(touching[i])] = contacts[i].contact ? "1" : "0";
}

/// The frames of an actor that the clock reaches and whose times lie in the range: the first and the one
/// after the last.
std::pair<std::size_t, std::size_t> framesIn(const LoadedActor& actor, const Range& range)
{
    const auto inside = [&](std::size_t frame) {
        const double time = actor.timeOf(static_cast<double>(frame));
        return time >= (range ? range->first : 0.0) - kSameTime &&
               (!range || time <= range->second + kSameTime);
    };
    std::size_t first = 0;
    while (first < actor.frames() && !inside(first))
        ++first;
    std::size_t end = first;
    while (end < actor.frames() && inside(end))
        ++end;
    return {first, end};
}

bool writeActor(std::ostream& stream, const LoadedActor& actor, const Columns& columns, const Range& range,
                unsigned long long& rows, Progress& progress)
{
    // The publisher refers to the actors that it was given.
    const std::map<unsigned, LoadedActor> alone{{actor.index, actor}};
    FramePublisher publisher(true);
    publisher.setActors(alone);
    const Cells joints = actor.dressed.jointNames();
    Cells touching;
    for (const std::size_t joint : KivFrameData::ContactTracker(joints).joints())
        touching.push_back(joints[joint]);
    const auto [first, end] = framesIn(actor, range);
    bool written = true;
    for (std::size_t frame = first; frame < end && written; ++frame) {
        const double time = actor.timeOf(static_cast<double>(frame));
        publisher.show(time);
        Cells cells{actor.id(), quoted(actor.name), std::to_string(frame), timeText(time)};
        cells.resize(columns.width());
        const std::vector<osg::Vec3d> positions = actor.dressed.positions();
        for (std::size_t i = 0; i < joints.size(); ++i)
            putPosition(cells, columns.joint(joints[i]), positions[i].x(), positions[i].y(),
                        positions[i].z());
        putFrameData(cells, columns, actor.index, touching);
        written = writeRow(stream, cells);
        progress.done(++rows);
    }
    publisher.publishContacts(false);
    return written;
}

}  // namespace

unsigned long long rowsOfMotionTable(const Session& session, const Range& range)
{
    unsigned long long rows = 0;
    for (const auto& [index, actor] : session.actors()) {
        const auto [first, end] = framesIn(actor, range);
        rows += end - first;
    }
    return rows;
}

std::string writeMotionTable(const std::string& file, const Session& session, const Range& range,
                             Progress& progress)
{
    return writeAtomically(file, [&](std::ostream& stream) {
        const Columns columns(session.actors());
        unsigned long long rows = 0;
        bool written = writeRow(stream, columns.header());
        for (const auto& [index, actor] : session.actors())
            written = written && writeActor(stream, actor, columns, range, rows, progress);
        return written;
    });
}

}  // namespace KivPlayer
