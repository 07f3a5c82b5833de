#pragma once

#include <string>
#include <vector>

#include "host/KivReader/figure/motionfigure.h"
#include "host/KivReader/humanoid/recognition/vocabulary.h"

namespace KivReader {

/// What a joint's name says of it. It may say nothing.
struct NameHint
{
    Parts parts = 0;
    Parts perhaps = 0;
    Side side = Side::None;
    std::int8_t finger = WordMeaning::kNoFinger;
    bool isPalm = false;
    bool isTip = false;
    bool isNever = false;
    bool isBeast = false;
    std::vector<int> numbers;  ///< in the name, in order
    double weight = 0.0;       ///< 0 to 1: less where words stand beside that say nothing known
    std::string word;          ///< that was understood, for people

    bool says(Part part) const { return (parts & only(part)) != 0; }
    bool mayBe(Part part) const { return ((parts | perhaps) & only(part)) != 0; }
};

/// Of every joint of the figure. A side counts only where the other side's joint is there, too.
KIV_READER_API std::vector<NameHint> readNames(const MotionFigure& figure, const Vocabulary& vocabulary);

/// The letters that nearly all names share in front, and behind. None of a few names.
struct SharedLetters
{
    std::vector<char32_t> inFront, behind;
};
KIV_READER_API SharedLetters sharedLetters(const std::vector<std::string>& names);

/// As it stands where it is among those that do not share them.
KIV_READER_API std::string withoutShared(const std::string& name, const SharedLetters& shared);

}  // namespace KivReader
