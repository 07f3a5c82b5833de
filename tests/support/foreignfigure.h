// Writes motions of figures that nobody has: any names, proportions, units and axes.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/figure/restfigure.h"

namespace KivTestSupport {

/// A figure that walks on the spot for three frames, arms hanging or stretched out.
class ForeignFigure
{
public:
    using Names = std::map<std::string, std::string>;  ///< of the rest figure's joints → of the file

    explicit ForeignFigure(Names names) : m_names(std::move(names)) {}

    void leaveOut(const std::string& joint) { m_leftOut.insert(joint); }
    void leaveOutHands();
    void move(const std::string& joint, const KivFigure::Offset& by);
    void place(const std::string& joint, const KivFigure::Offset& offset);
    void stretch(const std::string& part, double factor);
    /// A joint of this name between a joint and its parent, at its parent's place.
    void putBefore(const std::string& joint, const std::string& name) { m_before[joint] = name; }
    void hangArms() { m_armsHang = true; }
    void leaveOutEndSites() { m_hasEndSites = false; }
    void lift(double centimetres) { m_lift = centimetres; }
    void inUnits(double centimetres) { m_unit = centimetres; }
    void upAlongZ() { m_isZUp = true; }

    std::string text() const;

private:
    struct Joint
    {
        std::string restName;
        std::string name;
        int parent = -1;
        KivFigure::Offset offset{};
    };

    std::vector<Joint> joints() const;
    std::string nameOf(const std::string& joint) const;
    KivFigure::Offset offsetOf(const KivFigure::RestJoint& joint) const;
    std::string numbers(KivFigure::Offset offset) const;
    std::string block(const std::vector<Joint>& joints, std::size_t index) const;
    std::string row(const std::vector<Joint>& joints, double phase) const;

    Names m_names;
    std::set<std::string> m_leftOut;
    std::map<std::string, KivFigure::Offset> m_offsets;
    std::map<std::string, std::string> m_before;
    bool m_armsHang = false;
    bool m_hasEndSites = true;
    bool m_isZUp = false;
    double m_lift = 0.0;
    double m_unit = 1.0;
};

}  // namespace KivTestSupport
