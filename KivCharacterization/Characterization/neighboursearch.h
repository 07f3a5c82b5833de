#pragma once

#include <iterator>
#include <string_view>

namespace KivCharacterization {

/// Finds entries of a map by going on from the last one that was asked for: right for any order of keys,
/// quick where each is near the one before. The map outlives the search and gains and loses nothing
/// meanwhile.
template <typename Map>
class NeighbourSearch
{
public:
    explicit NeighbourSearch(const Map& map) : m_map(map), m_at(map.begin()) {}

    /// @return null for a key that the map has not.
    const typename Map::mapped_type* find(std::string_view key)
    {
        for (; m_at != m_map.end(); ++m_at) {
            const int order = m_at->first.compare(key);
            if (order == 0) {
                return &m_at->second;
            }
            if (order > 0) {
                break;
            }
        }
        while (m_at != m_map.begin()) {
            const auto before = std::prev(m_at);
            const int order = before->first.compare(key);
            if (order < 0) {
                break;
            }
            m_at = before;
            if (order == 0) {
                return &m_at->second;
            }
        }
        return nullptr;
    }

private:
    const Map& m_map;
    typename Map::const_iterator m_at;  ///< the first entry that is not before the last key
};

}  // namespace KivCharacterization
