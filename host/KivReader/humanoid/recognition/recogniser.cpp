#include "host/KivReader/humanoid/recognition/recogniser.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "host/KivReader/humanoid/recognition/assignment.h"
#include "host/KivReader/humanoid/recognition/crowding.h"
#include "host/KivReader/humanoid/recognition/personcheck.h"
#include "host/KivReader/humanoid/recognition/tablehints.h"

namespace KivReader {

namespace {

constexpr std::array<const char*, 9> kNeeded = {"Hips",     "LeftUpLeg",   "RightUpLeg",
                                                "LeftLeg",  "RightLeg",    "LeftArm",
                                                "RightArm", "LeftForeArm", "RightForeArm"};

/// What a person needs and is not there; empty if nothing.
std::string missingJoints(const JointMatching& matching)
{
    std::string missing;
    for (const char* name : kNeeded) {
        if (!matching.has(name))
            missing += (missing.empty() ? "" : ", ") + std::string(name);
    }
    return missing.empty() ? missing : "there is no " + missing;
}

std::string joined(const std::vector<std::string>& sentences)
{
    std::string text;
    for (const std::string& sentence : sentences)
        text += (text.empty() ? "" : "; ") + sentence;
    return text;
}

class Recogniser
{
public:
    Recogniser(const MotionDocument& document, const ProfileTable& table)
        : m_document(document),
          m_avatar(table.figure),
          m_figure(makeFigure(document, FileFrame())),
          m_table(matchJoints(m_figure, table)),
          m_hints(readNames(m_figure, builtInVocabulary()))
    {}

    Recognition recognise()
    {
        applyTable(m_hints, m_table);
        m_posed = poseFrames(m_document, m_figure);
        m_tree = makeBoneTree(m_figure, m_posed, m_hints);
        m_found.matching = m_table;
        m_found.matching.joints.clear();
        const Evidence evidence = {m_figure, m_posed, m_tree, m_hints};
        const std::vector<LimbPair> pairs = findPairs(evidence);
        const std::optional<Body> body = findBody(evidence, pairs);
        if (body)
            assign(evidence, pairs, *body);
        else
            m_found.whyNot = whyNoBody(evidence, pairs);
        if (m_table.isUsers)
            obeyUser();
        judge();
        return std::move(m_found);
    }

private:
    void assign(const Evidence& evidence, const std::vector<LimbPair>& pairs, const Body& body)
    {
        const PersonCheck check = checkPerson(evidence, pairs, body);
        m_found.whyNot = check.whyNot;
        if (check.whyNot.empty() && !check.doubts.empty())
            m_found.matching.warnings.push_back("this is unusual for a person: " + joined(check.doubts));
        const Sides sides = findSides(evidence, body);
        if (!sides.warning.empty())
            m_found.matching.warnings.push_back(sides.warning);
        Assignment assignment;
        assignLimbs(assignment, body, sides);
        assignTrunk(assignment, evidence, body, m_table);
        assignFingers(assignment, evidence);
        for (const auto& [name, reasoned] : assignment.joints) {
            m_found.matching.joints[name] = reasoned.joint;
            weigh(name, reasoned, std::min(check.confidence, sides.confidence));
        }
        m_found.matching.toes = assignment.toes;
    }

    /// A name that says the same makes sure; one that says otherwise makes a guess of it.
    void weigh(const std::string& name, const Assignment::Reasoned& reasoned, double confidence)
    {
        ProfileRecord::Evidence evidence = {name, m_figure.joints[reasoned.joint].name, 0.0,
                                            reasoned.reasons};
        const NameHint& hint = m_hints[reasoned.joint];
        const auto known = m_table.joints.find(name);
        if (known != m_table.joints.end() && known->second == reasoned.joint) {
            evidence.confidence = 1.0;
            evidence.reasons.push_back(m_table.dialect.empty()
                                           ? "its name is the avatar's"
                                           : "its name in the dialect " + m_table.dialect);
        } else if (!hint.word.empty()) {
            evidence.confidence = 0.9;
            evidence.reasons.push_back("\"" + hint.word + "\" in its name");
        } else {
            evidence.confidence = 0.7;
        }
        evidence.confidence *= confidence;
        m_found.evidence.push_back(std::move(evidence));
    }

    /// What the user says holds, whatever else was found.
    void obeyUser()
    {
        JointMatching& matching = m_found.matching;
        for (const auto& [name, joint] : m_table.joints) {
            for (auto other = matching.joints.begin(); other != matching.joints.end();)
                other = other->second == joint ? matching.joints.erase(other) : std::next(other);
        }
        for (const auto& [name, joint] : m_table.joints) {
            matching.joints[name] = joint;
            const auto said = std::find_if(m_found.evidence.begin(), m_found.evidence.end(),
                                           [&joined = name](const auto& its) { return its.joint == joined; });
            ProfileRecord::Evidence evidence = {
                name, m_figure.joints[joint].name, 1.0, {"the user's dialect " + m_table.dialect}};
            if (said == m_found.evidence.end())
                m_found.evidence.push_back(std::move(evidence));
            else
                *said = std::move(evidence);
        }
        m_found.whyNot.clear();
    }

    void judge()
    {
        JointMatching& matching = m_found.matching;
        if (m_found.whyNot.empty())
            m_found.whyNot = missingJoints(matching);
        if (m_found.whyNot.empty())
            m_found.whyNot = crowding(matching, m_figure);
        m_found.isHumanoid = m_found.whyNot.empty();
        std::vector<ProfileRecord::Evidence>& evidence = m_found.evidence;
        evidence.erase(std::remove_if(evidence.begin(), evidence.end(),
                                      [&](const auto& its) { return !matching.has(its.joint); }),
                       evidence.end());
        std::sort(evidence.begin(), evidence.end(), [&](const auto& a, const auto& b) {
            return m_avatar.index.at(a.joint) < m_avatar.index.at(b.joint);
        });
        m_found.confidence = m_found.isHumanoid ? 1.0 : 0.0;
        for (const ProfileRecord::Evidence& its : evidence) {
            if (std::find(kNeeded.begin(), kNeeded.end(), its.joint) != kNeeded.end())
                m_found.confidence = std::min(m_found.confidence, its.confidence);
        }
    }

    const MotionDocument& m_document;
    const RestFigure& m_avatar;
    MotionFigure m_figure;
    JointMatching m_table;
    std::vector<NameHint> m_hints;
    PosedFrames m_posed;
    BoneTree m_tree;
    Recognition m_found;
};

}  // namespace

Recognition recognise(const MotionDocument& document, const ProfileTable& table)
{
    return Recogniser(document, table).recognise();
}

}  // namespace KivReader
