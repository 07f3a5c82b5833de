#pragma once

#include <functional>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "KivTaskCommand/commandthread.h"
#include "KivTaskCommand/scenegate.h"
#include "apps/kivplayer/content/avatarfile.h"
#include "apps/kivplayer/content/loadedactor.h"
#include "apps/kivplayer/content/motionfilereader.h"
#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/support/console.h"

namespace KivCharacterization {
class CharacterizationManager;
}

namespace KivPlayer {

/// Drives the module: owns the command thread and knows which actors are in the scene. Everything goes
/// through the exported class and through commands. Made, used and destroyed on the thread of the frame loop,
/// which must have the gate open while it waits for an answer; one session at a time.
class Session
{
public:
    using Attach =
        std::function<bool(KivCharacterization::CharacterizationManager&, KivTaskCommand::TaskCommand&)>;

    /// @param reading how skeletons from elsewhere are read: the words of KivReader::profileOptionsFrom.
    explicit Session(Console& console, const std::string& reading = "profile=auto");
    /// Takes every actor out of the scene, ends the command thread and releases module and scene.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Loads avatar and font from below a root directory; what is missing is reported, and so is a profile
    /// table that cannot be read: then no motion is loaded.
    bool start(const std::string& root);
    static std::string avatarBelow(const std::string& root) { return root + "/Data/IVE/avatar.ive"; }

    /// Reads a motion file and makes it the actor of that index, in place of an earlier one. A file that
    /// cannot be read is reported and leaves the earlier actor as it is.
    bool load(unsigned index, const std::string& file, const std::string& name);

    /// The steps of load, for a frame loop that goes on meanwhile. read may run on any thread; build hands
    /// the command over and does not wait; finish takes the actor in once the command has answered.
    std::optional<MotionFile> read(unsigned index, const std::string& file, const std::string& name) const
    {
        return m_reader.read(index, file, name);
    }
    std::future<bool> build(const MotionFile& motion);
    bool finish(MotionFile motion, bool built);

    bool remove(unsigned index);
    /// What is known of an actor changes with a command that was submitted by the caller.
    void forget(unsigned index);
    void noteName(unsigned index, const std::string& name);
    bool rename(unsigned index, const std::string& name);

    /// Sets when the actor of that index starts on the shared clock, be it there or still to come; another
    /// file in its place starts then, too. What is forgotten starts at 0 again. Between frames.
    /// @param seconds positive: later, negative: earlier.
    /// @return false, and nothing changed, for what is not within kMaxOffset.
    bool setOffset(unsigned index, double seconds);
    double offsetOf(unsigned index) const;
    /// Gives the playback the offsets. An actor that is being built may play before finish knows of it: a
    /// frame loop that goes on meanwhile calls this before each frame, the gate closed.
    void keepOffsets() const;

    bool showPropsDraggers(bool shown);
    /// Overrides what the module does with the name labels by itself.
    void showNames(bool shown);

    /// Hands a command over without waiting; false at once where nothing was attached to it.
    std::future<bool> submit(const Attach& attach);

    KivTaskCommand::SceneGate& gate() { return m_gate; }
    const std::map<unsigned, LoadedActor>& actors() const { return m_actors; }
    /// What there is to wear, as the player reads it; empty before start and where it cannot be read.
    const AvatarFile& avatar() const { return m_avatar; }
    const std::string& avatarPath() const { return m_avatarPath; }
    const std::string& fontPath() const { return m_fontPath; }

private:
    bool run(const Attach& attach);

    Console& m_console;
    MotionFileReader m_reader;
    KivTaskCommand::SceneGate m_gate;
    std::unique_ptr<KivTaskCommand::CommandThread> m_spCommands;
    std::map<unsigned, LoadedActor> m_actors;
    std::map<unsigned, double> m_offsets;  ///< seconds; 0 for all others
    std::string m_avatarPath;
    std::string m_fontPath;
    AvatarFile m_avatar;
};

}  // namespace KivPlayer
