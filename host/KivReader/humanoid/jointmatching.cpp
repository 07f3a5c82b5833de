#include "host/KivReader/humanoid/jointmatching.h"

#include <algorithm>
#include <set>

#include "KivReader/editdistance.h"
#include "host/KivReader/figure/motionfigure.h"

namespace KivReader {

namespace {

constexpr std::size_t kNearestListed = 3;
constexpr double kMostUnlike = 0.4;  ///< of the longer name: names less alike are nothing to offer

std::string_view withoutNamespace(std::string_view name)
{
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool fits(const Dialect::Term& term, const MotionFigure& figure)
{
    for (const MotionFigure::Joint& joint : figure.joints) {
        for (const std::string& name : term) {
            if (!joint.endSite &&
                (matchesPattern(name, joint.name) || matchesPattern(name, withoutNamespace(joint.name))))
                return true;
        }
    }
    return false;
}

bool fits(const Dialect& dialect, const MotionFigure& figure)
{
    return std::any_of(dialect.signatures.begin(), dialect.signatures.end(),
                       [&](const Dialect::Signature& signature) {
                           return std::all_of(signature.begin(), signature.end(),
                                              [&](const Dialect::Term& term) { return fits(term, figure); });
                       });
}

/// A name as the dialect's table has it; empty for one that does not count.
std::string bareName(const std::string& name, const Dialect* dialect)
{
    if (dialect == nullptr || dialect->prefix.empty())
        return std::string(withoutNamespace(name));
    std::string_view rest = behindPrefix(dialect->prefix, name);
    if (rest.data() == nullptr)
        rest = behindPrefix(dialect->prefix, withoutNamespace(name));
    return std::string(withoutNamespace(rest));
}

class Matcher
{
public:
    Matcher(const MotionFigure& figure, const RestFigure& rest, const Dialect* dialect)
        : m_figure(figure), m_rest(rest), m_dialect(dialect)
    {
        for (const MotionFigure::Joint& joint : figure.joints)
            m_bare.push_back(joint.endSite ? std::string() : bareName(joint.name, dialect));
    }

    void matchByTable(JointMatching& matching)
    {
        if (m_dialect == nullptr)
            return;
        for (const auto& [pattern, target] : m_dialect->names) {
            for (std::size_t i = 0; i < m_bare.size(); ++i) {
                if (m_bare[i].empty() || m_spokenFor.count(i) > 0 || !matchesPattern(pattern, m_bare[i]))
                    continue;
                m_spokenFor.insert(i);
                take(matching, i, target);
            }
        }
    }

    void matchExactly(JointMatching& matching)
    {
        for (std::size_t i = 0; i < m_bare.size(); ++i) {
            if (m_spokenFor.count(i) == 0 && m_rest.has(m_bare[i]))
                take(matching, i, m_bare[i]);
        }
    }

private:
    void take(JointMatching& matching, std::size_t joint, const std::string& target) const
    {
        if (!m_rest.has(target)) {
            matching.excluded.push_back(joint);
            return;
        }
        const auto [place, isNew] = matching.joints.emplace(target, joint);
        if (!isNew)
            matching.ambiguous.push_back("both " + m_figure.joints[place->second].name + " and " +
                                         m_figure.joints[joint].name + " may be " + target +
                                         "; the first one is taken");
    }

    const MotionFigure& m_figure;
    const RestFigure& m_rest;
    const Dialect* m_dialect;
    std::vector<std::string> m_bare;
    std::set<std::size_t> m_spokenFor;
};

}  // namespace

JointMatching matchJoints(const MotionFigure& figure, const ProfileTable& table)
{
    JointMatching matching;
    const Dialect* chosen = nullptr;
    for (const Dialect& dialect : table.dialects) {
        if (!fits(dialect, figure))
            continue;
        if (chosen == nullptr)
            chosen = &dialect;
        else if (!dialect.names.empty() && dialect.name != "humanik")
            matching.ambiguous.push_back("the signature of " + dialect.name + " fits too; " + chosen->name +
                                         " is used");
    }
    if (chosen != nullptr) {
        matching.dialect = chosen->name;
        matching.isUsers = static_cast<std::size_t>(chosen - table.dialects.data()) < table.usersDialects;
    }
    Matcher matcher(figure, table.figure, chosen);
    matcher.matchByTable(matching);
    matcher.matchExactly(matching);
    return matching;
}

std::vector<std::string> nearestNames(const std::string& name, const RestFigure& figure)
{
    std::string bare(withoutNamespace(name));
    bare.resize(std::min<std::size_t>(bare.size(), 64));
    std::vector<std::pair<std::size_t, std::string>> ranked;
    for (const RestFigure::Joint& joint : figure.joints) {
        const std::size_t longer = std::max(bare.size(), joint.name.size());
        const std::size_t distance = editDistance(bare, joint.name);
        if (distance > 0 && static_cast<double>(distance) <= kMostUnlike * static_cast<double>(longer))
            ranked.emplace_back(distance, joint.name);
    }
    const std::size_t count = std::min(kNearestListed, ranked.size());
    std::partial_sort(ranked.begin(), ranked.begin() + static_cast<std::ptrdiff_t>(count), ranked.end());
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(ranked[i].second);
    return names;
}

}  // namespace KivReader
