#include "host/KivReader/humanoid/spineline.h"

namespace KivReader {

void SpineLine::add(const Spot& spot, const std::string& name)
{
    Vertex vertex{spot, name};
    if (!m_vertices.empty())
        vertex.at = m_vertices.back().at + (spot.place - m_vertices.back().spot.place).length();
    m_vertices.push_back(std::move(vertex));
}

/// By its lower end.
std::size_t SpineLine::segmentAt(double at) const
{
    std::size_t segment = 0;
    while (segment + 2 < m_vertices.size() && m_vertices[segment + 1].at <= at)
        ++segment;
    return segment;
}

osg::Vec3d SpineLine::placeAt(double at) const
{
    const Vertex& low = m_vertices[segmentAt(at)];
    const Vertex& high = m_vertices[segmentAt(at) + 1];
    const double length = high.at - low.at;
    const double part = length > 0.0 ? (at - low.at) / length : 0.0;
    return low.spot.place + (high.spot.place - low.spot.place) * part;
}

Spot SpineLine::spotAt(double at) const
{
    const Vertex& low = m_vertices[segmentAt(at)];
    const Vertex& high = m_vertices[segmentAt(at) + 1];
    Spot spot;
    spot.place = placeAt(at);
    spot.source = low.spot.source;
    spot.along = nameInFile(low.spot) + "&" + (high.spot.isSource ? nameInFile(high.spot) : high.name);
    return spot;
}

const std::string& SpineLine::nameInFile(const Spot& spot) const
{
    return m_figure.joints[static_cast<std::size_t>(spot.source)].name;
}

}  // namespace KivReader
