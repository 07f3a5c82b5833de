// Whole frames with drawing, as the player's window has them, while actors are loaded and with nothing to
// load, in turns. Prints a line for every figure: its value, its name. Milliseconds of the clock, so that
// waiting counts, and multiples of a frame's own time: the median of the frames of the same turn that show as
// many figures, with nothing to load.
//   kivdrawnframes MOTION.bvh
#include <osg/Notify>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "apps/kivplayer/support/console.h"
#include "benchmarks/support/drawnloop.h"

namespace {

using namespace KivBenchmark;

constexpr int kWidth = 640;
constexpr int kHeight = 400;
constexpr int kQuietFrames = 12;
constexpr std::size_t kMostVisible = 3;

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

double medianOf(const std::vector<FrameParts>& frames, double FrameParts::*part)
{
    std::vector<double> values;
    for (const FrameParts& frame : frames)
        values.push_back(frame.*part);
    return median(values);
}

void print(double value, const std::string& name)
{
    std::printf("%.4g\t%s\n", value, name.c_str());
}

/// A frame, and a pause after it: who goes ahead of all other programs and leaves nothing of the processor is
/// held up by the system once a second.
FrameParts frameOf(DrawnLoop& loop)
{
    const FrameParts parts = loop.frame();
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(0.15 * parts.whole));
    return parts;
}

/// Frames of one kind, and what each took beside its own time.
class FrameRecord
{
public:
    /// @param own the frames that tell the own time of those that show as many figures.
    void add(const std::vector<FrameParts>& frames, const std::map<std::size_t, std::vector<FrameParts>>& own)
    {
        for (const FrameParts& frame : frames) {
            // Should one more come before another is hidden, its drawing counts as being late.
            const auto shown = own.find(frame.visible);
            const std::vector<FrameParts>& same = shown != own.end() ? shown->second : own.rbegin()->second;
            const double usual = medianOf(same, &FrameParts::whole);
            m_times.push_back(frame.whole);
            m_multiples.push_back(frame.whole / usual);
            m_processor.push_back(frame.processor / medianOf(same, &FrameParts::processor));
            if (frame.whole - usual <= m_longestBeyond)
                continue;
            m_longestBeyond = frame.whole - usual;
            for (const auto& [name, part] : FrameParts::names())
                m_parts[name] = frame.*part - medianOf(same, part);
        }
    }

    void print(const std::string& when) const
    {
        ::print(static_cast<double>(m_times.size()), "frames " + when);
        ::print(median(m_times), "median " + when);
        ::print(median(m_multiples), "median multiple " + when);
        ::print(*std::max_element(m_multiples.begin(), m_multiples.end()), "longest multiple " + when);
        ::print(*std::max_element(m_processor.begin(), m_processor.end()),
                "longest processor multiple " + when);
        ::print(m_longestBeyond, "longest beyond its own time " + when);
        for (const auto& [name, value] : m_parts)
            ::print(value, "of the longest: " + name + " " + when);
        std::vector<double> sorted = m_multiples;
        std::sort(sorted.begin(), sorted.end());
        auto counted = sorted.begin();
        for (const double limit : {1.1, 1.25, 1.5, 2.0}) {
            const auto end = std::upper_bound(sorted.begin(), sorted.end(), limit);
            std::printf("%td\tup to %g × %s\n", end - counted, limit, when.c_str());
            counted = end;
        }
        std::printf("%td\tmore %s\n", sorted.end() - counted, when.c_str());
    }

private:
    std::vector<double> m_times;
    std::vector<double> m_multiples;
    std::vector<double> m_processor;  ///< likewise, of the processor time of the thread that draws
    std::map<std::string, double> m_parts;
    double m_longestBeyond = -1e9;
};

/// Plays one figure and loads others beside it; a few of them stay visible, so that frames keep their time.
class Turns
{
public:
    Turns(KivPlayer::Session& session, std::string motion)
        : m_session(session), m_motion(std::move(motion)), m_loop(session, kWidth, kHeight)
    {
        m_session.load(0, m_motion, "Actor 0");
        m_loop.scene().takeActors();
        for (int i = 0; i < kQuietFrames; ++i)
            frameOf(m_loop);
    }

    /// Loads so many actors, then plays with nothing to load.
    void turn(unsigned actors)
    {
        std::vector<FrameParts> loading;
        const unsigned last = m_next + actors;
        for (; m_next < last; ++m_next)
            m_loop.load(m_next, m_motion);
        do {
            loading.push_back(frameOf(m_loop));
            m_uploaded += loading.back().upload;
            if (loading.back().visible + m_loop.scene().uploads().waiting() > kMostVisible)
                hideOne();
        } while (m_loop.isLoading());
        loading.push_back(frameOf(m_loop));
        std::map<std::size_t, std::vector<FrameParts>> own = quietFrames();
        m_loading.add(loading, own);
        for (const auto& [visible, frames] : own)
            m_quiet.add(frames, own);
    }

    void print(const std::string& actors) const
    {
        m_loading.print("while " + actors);
        m_quiet.print("with nothing to load, " + actors);
        ::print(m_uploaded / (m_next - 1), "upload of an actor, " + actors);
    }

private:
    void hideOne()
    {
        if (m_session.actors().count(m_hidden))
            m_loop.setVisible(m_hidden++, false);
    }

    /// By how many figures they show: from as many as there may be while actors are loaded down to one.
    std::map<std::size_t, std::vector<FrameParts>> quietFrames()
    {
        std::map<std::size_t, std::vector<FrameParts>> frames;
        for (std::size_t visible = frameOf(m_loop).visible; visible > 0; --visible) {
            for (int i = 0; i < kQuietFrames; ++i)
                frames[visible].push_back(frameOf(m_loop));
            if (visible > 1)
                hideOne();
            frameOf(m_loop);
        }
        return frames;
    }

    KivPlayer::Session& m_session;
    std::string m_motion;
    DrawnLoop m_loop;
    FrameRecord m_loading;
    FrameRecord m_quiet;
    unsigned m_next = 1;
    unsigned m_hidden = 1;  ///< the first that is not
    double m_uploaded = 0.0;
};

void measure(const std::string& motion, const std::string& title, unsigned turns, unsigned actorsATurn)
{
    KivPlayer::Console console(std::cerr, KivPlayer::Console::Verbosity::Quiet);
    KivPlayer::Session session(console);
    if (!session.start(KIV_RUNTIME_ROOT))
        throw std::runtime_error("no avatar below " KIV_RUNTIME_ROOT);
    Turns all(session, motion);
    for (unsigned i = 0; i < turns; ++i)
        all.turn(actorsATurn);
    all.print(title);
}

}  // namespace

int main(int argc, char** argv)
{
    osg::setNotifyLevel(osg::FATAL);
    try {
        if (argc != 2)
            throw std::runtime_error("usage: kivdrawnframes MOTION.bvh");
        measure(argv[1], "1 actor loads", 20, 1);
        measure(argv[1], "100 actors load", 10, 10);
    } catch (const std::exception& problem) {
        std::cerr << "kivdrawnframes: " << problem.what() << "\n";
        return 1;
    }
    return 0;
}
