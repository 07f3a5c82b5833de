#include "tests/host/KivReader/forwardkinematics.h"

#include <array>
#include <cmath>

namespace KivReaderTest {

namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;  // rows

constexpr Matrix kUnturned = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
constexpr double kRadiansPerDegree = 0.017453292519943295;

Matrix product(const Matrix& left, const Matrix& right)
{
    Matrix result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            for (std::size_t i = 0; i < 3; ++i)
                result[row][column] += left[row][i] * right[i][column];
        }
    }
    return result;
}

Vector product(const Matrix& left, const Vector& right)
{
    Vector result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t i = 0; i < 3; ++i)
            result[row] += left[row][i] * right[i];
    }
    return result;
}

Matrix turnAbout(std::size_t axis, double degrees)
{
    const double sine = std::sin(degrees * kRadiansPerDegree);
    const double cosine = std::cos(degrees * kRadiansPerDegree);
    const std::size_t next = (axis + 1) % 3;
    const std::size_t last = (axis + 2) % 3;
    Matrix turn = kUnturned;
    turn[next][next] = turn[last][last] = cosine;
    turn[next][last] = -sine;
    turn[last][next] = sine;
    return turn;
}

struct Local
{
    Vector move{};
    Matrix turn = kUnturned;
};

Local localOf(const KivReader::MotionDocument& document, const KivReader::MotionDocument::Joint& joint,
              std::size_t frame)
{
    Local local;
    local.move = joint.offset;
    for (std::size_t i = 0; i < joint.channels.size(); ++i) {
        const auto channel = static_cast<std::size_t>(joint.channels[i]);
        const double value = document.values[frame * document.columns + joint.firstColumn + i];
        if (channel >= 3)
            local.turn = product(local.turn, turnAbout(channel - 3, value));
        else
            local.move[channel] = joint.positionsAreDeltas ? joint.offset[channel] + value : value;
    }
    return local;
}

}  // namespace

std::vector<Vector> placesOf(const KivReader::MotionDocument& document, std::size_t frame)
{
    std::vector<Vector> places;
    std::vector<Matrix> turns;
    for (const KivReader::MotionDocument::Joint& joint : document.joints) {
        const Local local = localOf(document, joint, frame);
        if (joint.parent < 0) {
            places.push_back(local.move);
            turns.push_back(local.turn);
            continue;
        }
        const auto parent = static_cast<std::size_t>(joint.parent);
        Vector place = product(turns[parent], local.move);
        for (std::size_t i = 0; i < 3; ++i)
            place[i] += places[parent][i];
        places.push_back(place);
        turns.push_back(product(turns[parent], local.turn));
    }
    return places;
}

}  // namespace KivReaderTest
