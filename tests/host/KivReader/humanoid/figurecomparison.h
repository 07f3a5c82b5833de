// Whether two readings of a person show the same one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/KivReader/humanoid/jointmatching.h"
#include "host/KivReader/humanoid/profiledfigure.h"
#include "tests/support/motionrewriting/rewritings.h"

namespace KivReaderTest {

/// What the recogniser made of a document.
struct ReadPerson
{
    explicit ReadPerson(const KivReader::MotionDocument& of);

    /// The document's joint that the avatar's one is, or -1 for an inserted one.
    std::int32_t jointFor(const std::string& name) const;

    const KivReader::MotionDocument& document;
    KivReader::JointMatching matching;
    KivReader::ProfiledFigure profiled;
    std::map<std::string, std::size_t> index;  ///< in the figure, by the avatar's names
};

/// What is compared of the joints.
enum class Names
{
    Body,  ///< hips, legs, feet, spine, neck, head, arms and hands, those that the file has
    All    ///< fingers and shoulders as well
};

/// The first joint that is another one in the rewritten motion; empty where all are the same.
std::string otherJoint(const ReadPerson& before, const ReadPerson& after,
                       const KivTestSupport::Rewriting& rewriting, Names names);

/// The joint that is farthest from where it was, or turned most, if it is farther than 0.5 cm or turned more
/// than 5°; empty where all stand as before. A figure may look another way round, by quarters of a turn.
std::string otherPlace(const ReadPerson& before, const ReadPerson& after,
                       const KivTestSupport::Rewriting& rewriting);

}  // namespace KivReaderTest
