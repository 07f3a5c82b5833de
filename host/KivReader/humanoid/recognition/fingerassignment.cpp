#include <algorithm>
#include <array>

#include "host/KivReader/humanoid/recognition/assignment.h"

namespace KivReader {

namespace {

constexpr std::array<const char*, 5> kFingerParts = {"Thumb", "Index", "Middle", "Ring", "Pinky"};
constexpr std::size_t kThumb = 0;
constexpr std::size_t kPhalanges = 3;

class FingerAssigner
{
public:
    FingerAssigner(Assignment& assignment, const Evidence& evidence, std::string side)
        : m_assignment(assignment), m_evidence(evidence), m_side(std::move(side))
    {}

    void assign()
    {
        const std::size_t hand = m_assignment.joints.at(m_side + "Hand").joint;
        std::array<std::vector<std::size_t>, kFingerParts.size()> joints;
        std::vector<int> fingers(m_evidence.tree.bones.size(), kNoneBelow);
        fingers[hand] = WordMeaning::kNoFinger;
        const int base = lowestNumber(hand);
        for (std::size_t i = hand + 1; i < fingers.size(); ++i) {
            const int above = fingers[m_evidence.tree.parentOf(i)];
            if (above == kNoneBelow)
                continue;
            fingers[i] = fingerOf(i, above, base);
            const NameHint& hint = m_evidence.hints[i];
            if (fingers[i] >= 0 && !hint.isTip && !hint.isNever)
                joints[static_cast<std::size_t>(fingers[i])].push_back(i);
        }
        for (std::size_t finger = 0; finger < kFingerParts.size(); ++finger)
            put(finger, joints[finger]);
    }

private:
    static constexpr int kNoneBelow = -2;  ///< of what is not below the hand

    /// Counted from 0 or from 1: the lowest that there is.
    int lowestNumber(std::size_t hand) const
    {
        int lowest = 1;
        for (std::size_t i = hand + 1; i < m_evidence.hints.size(); ++i) {
            const NameHint& hint = m_evidence.hints[i];
            if (hint.finger == WordMeaning::kAnyFinger && !hint.numbers.empty() &&
                m_evidence.tree.isBelow(i, hand))
                lowest = std::min(lowest, hint.numbers.front());
        }
        return lowest;
    }

    /// By its own name; fingers by number from the joint on where they begin.
    int fingerOf(std::size_t joint, int above, int base) const
    {
        const NameHint& hint = m_evidence.hints[joint];
        if (hint.finger == WordMeaning::kNoFinger)
            return WordMeaning::kNoFinger;
        if (hint.finger != WordMeaning::kAnyFinger)
            return hint.finger;
        if (above >= 0)
            return above;
        const int number = hint.numbers.empty() ? -1 : hint.numbers.front() - base;
        return number >= 0 && number < static_cast<int>(kFingerParts.size()) ? number
                                                                             : WordMeaning::kNoFinger;
    }

    /// A bone of the palm says so, or has no number where the next one has the first.
    bool beginsInPalm(std::size_t finger, const std::vector<std::size_t>& joints) const
    {
        if (finger == kThumb || joints.size() < 2)
            return false;
        const NameHint& first = m_evidence.hints[joints[0]];
        const NameHint& second = m_evidence.hints[joints[1]];
        return first.isPalm || (first.numbers.empty() && second.numbers == std::vector<int>{1});
    }

    void put(std::size_t finger, std::vector<std::size_t> joints)
    {
        const std::string name = kFingerParts[finger];
        if (beginsInPalm(finger, joints)) {
            putOne(m_side + "InHand" + name, joints.front());
            joints.erase(joints.begin());
        }
        if (joints.empty() ||
            (joints.size() == 1 && m_evidence.hints[joints.front()].isPalm && finger != kThumb))
            return;
        for (std::size_t i = 0; i < std::min(kPhalanges, joints.size()); ++i)
            putOne(m_side + "Hand" + name + std::to_string(i + 1), joints[i]);
    }

    void putOne(const std::string& name, std::size_t joint)
    {
        m_assignment.put(name, joint, "a finger by its name and its place");
    }

    Assignment& m_assignment;
    const Evidence& m_evidence;
    std::string m_side;
};

}  // namespace

void assignFingers(Assignment& assignment, const Evidence& evidence)
{
    for (const char* side : {"Left", "Right"}) {
        if (assignment.has(std::string(side) + "Hand"))
            FingerAssigner(assignment, evidence, side).assign();
    }
}

}  // namespace KivReader
