#pragma once

#include <array>

namespace KivPlayer {

/// The clock that the window plays by: seconds of the motion from 0 to its end, and the frames of the
/// reference file in it.
class Transport
{
public:
    /// The speeds that keys step through and the bar offers, slowest first.
    static constexpr std::array<double, 8> kSpeeds{0.05, 0.1, 0.25, 0.5, 1.0, 2.0, 4.0, 8.0};

    /// @param frameTime seconds from one frame to the next, 0 for a motion of a single frame.
    void setMotion(double duration, double frameTime);

    /// Lets the clock run for a span of real time.
    void advance(double realSeconds);

    void play();
    void pause() { m_playing = false; }
    bool isPlaying() const { return m_playing; }

    void setTime(double seconds);
    double time() const { return m_time; }
    double duration() const { return m_duration; }

    /// Pauses and goes to a whole frame that many frames away; held at both ends.
    void step(int frames);
    long long frame() const;
    long long frameCount() const;
    double frameTime() const { return m_frameTime; }

    void setLooping(bool looping) { m_looping = looping; }
    bool isLooping() const { return m_looping; }

    void setSpeed(double factor) { m_speed = factor; }
    double speed() const { return m_speed; }
    void faster();
    void slower();

private:
    double m_duration = 0.0;
    double m_frameTime = 0.0;
    double m_time = 0.0;
    double m_speed = 1.0;
    bool m_playing = true;
    bool m_looping = true;
};

}  // namespace KivPlayer
