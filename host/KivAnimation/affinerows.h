#pragma once

#include <algorithm>

#include "host/KivAnimation/rowprogram.h"

namespace KivAnimation {

/// The rows of a matrix whose last column is 0, 0, 0, 1. Plain numbers that can stay in registers: a matrix
/// that is put together in memory and then copied is waited for.
struct AffineRows
{
    double values[4][3];
};

inline AffineRows rowsOf(const LocalPose& pose)
{
    const double x = pose.rotation[0], y = pose.rotation[1], z = pose.rotation[2], w = pose.rotation[3];
    const double scale = 2.0 / (x * x + y * y + z * z + w * w);
    const double sx = scale * x, sy = scale * y, sz = scale * z;
    const double wx = sx * w, wy = sy * w, wz = sz * w;
    const double xx = sx * x, xy = sx * y, xz = sx * z;
    const double yy = sy * y, yz = sy * z, zz = sz * z;
    return {{{1.0 - (yy + zz), xy + wz, xz - wy},
             {xy - wz, 1.0 - (xx + zz), yz + wx},
             {xz + wy, yz - wx, 1.0 - (xx + yy)},
             {pose.position[0], pose.position[1], pose.position[2]}}};
}

inline bool equal(const AffineRows& local, const double* matrix)
{
    bool same = true;
    for (int row = 0; row < 4; ++row) {
        for (int i = 0; i < 3; ++i) {
            same = same && local.values[row][i] == matrix[4 * row + i];
        }
    }
    return same;
}

inline void write(const AffineRows& local, double* matrix)
{
    for (int row = 0; row < 4; ++row) {
        for (int i = 0; i < 3; ++i) {
            matrix[4 * row + i] = local.values[row][i];
        }
        matrix[4 * row + 3] = row == 3 ? 1.0 : 0.0;
    }
}

/// local × parent, written out so that the parent is read once.
inline void writeProduct(const AffineRows& local, const double* parent, double* product)
{
    double p[16];
    std::copy_n(parent, 16, p);
    const auto writeRow = [&p](const double* a, double* row) {
        for (int i = 0; i < 4; ++i) {
            row[i] = a[0] * p[i] + a[1] * p[4 + i] + a[2] * p[8 + i];
        }
    };
    writeRow(local.values[0], product);
    writeRow(local.values[1], product + 4);
    writeRow(local.values[2], product + 8);
    writeRow(local.values[3], product + 12);
    for (int i = 0; i < 4; ++i) {
        product[12 + i] += p[12 + i];
    }
}

}  // namespace KivAnimation
