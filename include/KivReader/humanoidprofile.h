#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "KivCommonDef/sharedlibrary.h"
#include "KivReader/motiondocument.h"

namespace KivReader {

/// How a humanoid motion file is to be made ready for dressing. By default everything is found out from the
/// file.
struct ProfileOptions
{
    enum class Use : std::uint8_t
    {
        Off,  ///< the file is read as it stands
        On
    };
    enum class Up : std::uint8_t
    {
        Auto,
        Y,
        Z,
        X,
        MinusY,
        MinusZ,
        MinusX
    };

    Use use = Use::On;
    std::string tableFile;  ///< dialects of the user's own, looked at first; empty: none
    double unit = 0.0;      ///< centimetres per length unit of the file; 0: guessed
    Up up = Up::Auto;
    bool firstFrameIsRest = false;  ///< the first row is the rest pose, instead of all channels 0
};

/// What was done to a motion's joints, and why. Lengths in centimetres, names as the scene has them unless
/// they are said to be the file's.
struct ProfileRecord
{
    struct Renamed
    {
        std::string from, to;  ///< the file's name, the avatar's
    };
    struct Folded
    {
        std::string joint, into;  ///< the file's name; the joint that now carries its moves
    };
    struct Inserted
    {
        std::string joint, parent;
        std::string along;  ///< the segment that it stands on, or what it is rigid with
    };
    struct RestPose
    {
        std::string choice;  ///< "motion", "zero pose" or "first frame"; empty where there is no person
        std::string reason;
        double score = 0.0;  ///< 0…1: the part of the checks that the figure passes with it
    };
    /// Of the figure that came out: something that holds for persons.
    struct Check
    {
        std::string name;
        bool passed = false;
        double value = 0.0;
        std::string unit;
        std::string sentence;  ///< what was found, for a person to read
    };
    struct Unmatched
    {
        std::string joint;  ///< the file's name
        std::vector<std::string> nearest;
    };

    /// Why a joint of the file's was taken for one of the avatar's.
    struct Evidence
    {
        std::string joint;        ///< the avatar's name
        std::string fileJoint;    ///< the file's
        double confidence = 0.0;  ///< 0 to 1; below kGuess it is a guess
        std::vector<std::string> reasons;
    };

    static constexpr double kGuess = 0.6;  ///< what is less sure than this is a guess

    bool isHumanoid = false;
    std::string whyNot;                ///< why the file is no humanoid; empty where it is one
    double confidence = 0.0;           ///< 0 to 1: the least sure of the joints that a person needs
    std::vector<Evidence> evidence;    ///< of every joint that was found, in the avatar's order
    std::string dialect;               ///< of the table that was used; empty where none fits
    std::vector<std::string> matched;  ///< the avatar's names that the file has, renamed ones included
    std::vector<Renamed> renamed;
    std::vector<Folded> folded;
    std::vector<Inserted> inserted;
    std::vector<std::string> left;  ///< joints of the file that stay and stand for nothing of the avatar's
    std::vector<std::string> ambiguous;  ///< sentences: two joints for one name, two dialects for one file
    std::vector<Unmatched> unmatched;    ///< those of `left` that are no end sites
    std::vector<std::string> reframed;   ///< joints whose own axes were turned to the avatar's
    std::string unit;                    ///< "cm", "m", …; "fitted" where none gives a person's size
    double centimetresPerUnit = 1.0;
    std::string unitReason;
    std::string upAxis = "y";  ///< "x", "y", "z", or one of these with a "-" before it
    std::string upReason;
    double height = 0.0;            ///< of the figure standing up, estimated from its bones
    double hipWidth = 0.0;          ///< from one thigh's joint to the other's, at rest, as the file has it
    double hipWidthMeasured = 0.0;  ///< the same as dressing measures it, to size the torso by
    std::string hipWidthReason;     ///< why these two differ; empty where they do not
    double groundShift = 0.0;       ///< added to the height of everything, in every frame
    RestPose restPose;
    std::vector<Check> checks;
    std::vector<std::size_t>
        thrownFrames;  ///< ascending: they show the figure where no person can have moved to
    std::vector<std::string> warnings;
};

/// What reading a document with these options does to it. The same as what the reader does. Throws
/// std::runtime_error with the reason where the options' table cannot be read.
KIV_READER_API ProfileRecord profileMotion(const MotionDocument& document, const ProfileOptions& options);

/// What was recognised as an alias table in the syntax of the reader's profile: a person corrects it and
/// passes it back as `ProfileOptions::tableFile`. Guesses have a comment. The signature is as many of the
/// file's names as tell it from others; every joint that was left has a comment with its name.
KIV_READER_API std::string profileTextOf(const ProfileRecord& record);

/// Options from words apart by blanks, as the reader's option string has them: `profile=off`, `profile=auto`
/// or `profile=` and a table's path, `unit=auto`, `unit=cm` (m, mm, inch, dm, cmu) or centimetres per unit,
/// `up=auto`, `up=y` (z, x, -y, -z, -x), and `firstFrameIsRest`. A path may stand in double quotes. Without a
/// profile word the profile is off. Other words belong to other readers.
/// @param error receives why a word cannot be obeyed; emptied where all can.
KIV_READER_API ProfileOptions profileOptionsFrom(const std::string& words, std::string& error);

}  // namespace KivReader
