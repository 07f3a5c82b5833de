#include "KivReader/editdistance.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace KivReader {

std::size_t editDistance(std::string_view from, std::string_view to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t corner = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t changed = corner + (from[i] == to[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, corner + 1});
        }
    }
    return row.back();
}

}  // namespace KivReader
