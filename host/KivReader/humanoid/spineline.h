#pragma once

#include <string>
#include <vector>

#include "host/KivReader/humanoid/spot.h"

namespace KivReader {

/// The line from the hips over the file's spine joints to the neck. A place on it is told by how far it is
/// from the hips along the line.
class SpineLine
{
public:
    struct Vertex
    {
        Spot spot;
        std::string name;  ///< of the avatar's joint that the file means by it
        double at = 0.0;
    };

    explicit SpineLine(const MotionFigure& figure) : m_figure(figure) {}

    /// From the hips up; two at least before anything is asked for.
    void add(const Spot& spot, const std::string& name);

    const std::vector<Vertex>& vertices() const { return m_vertices; }
    double length() const { return m_vertices.back().at; }
    osg::Vec3d placeAt(double at) const;
    /// A joint put there, rigid with what turns the spine at this height.
    Spot spotAt(double at) const;

private:
    std::size_t segmentAt(double at) const;
    const std::string& nameInFile(const Spot& spot) const;

    const MotionFigure& m_figure;
    std::vector<Vertex> m_vertices;
};

}  // namespace KivReader
