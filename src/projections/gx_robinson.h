// gx_robinson.h -- Robinson's projection of the unit sphere: the table of Robinson 1974 ("A New
// Map Projection: Its Development and Characteristics", International Yearbook of Cartography
// 14) and the two ways the library interpolates it.
//
// Robinson defined his projection by a table, every 5 degrees of latitude, of the length of the
// parallel (PLEN, relative to the equator's) and of its distance from the equator (PDFE,
// relative to the pole's), as reprinted by Snyder & Voxland 1989, "An Album of Map
// Projections", p. 82:
//   x = 0.8487 lambda PLEN(phi),   y = 1.3523 PDFE(phi) sign(phi).
// What lies between the tabulated latitudes is a choice of interpolation:
//   - RobinsonSpline: the cubic spline through the table, continuous to the second derivative,
//     with the symmetry of the map at the equator (PLEN even, PDFE odd in phi) and the
//     not-a-knot condition at the pole.  Its coefficients are solved at compile time.
//   - RobinsonBessel: on each 5-degree interval the cubic through the four nearest tabulated
//     latitudes (Bessel's central-difference formula through third differences), continuous at
//     the tabulated latitudes; the equator's neighbours are mirrored, the last interval takes the
//     last four latitudes.
// The inverse finds the latitude from y by Newton's method on the interpolant (PDFE increases),
// then lambda = x / (0.8487 PLEN).  A plane point beyond the pole lines or the bounding
// meridians fails.
#ifndef GX_PROJECTIONS_GX_ROBINSON_H
#define GX_PROJECTIONS_GX_ROBINSON_H

#include "projections/gx_world.h"

#include <array>
#include <cmath>

namespace gx::projections {

inline constexpr int kRobinsonNodes = 19;                    // 0, 5, ..., 90 degrees
inline constexpr double kRobinsonStep = 0.08726646259971647; // 5 degrees
inline constexpr double kRobinsonX = 0.8487, kRobinsonY = 1.3523;

// clang-format off
inline constexpr std::array<double, kRobinsonNodes> kRobinsonPlen = {
    1.0000, 0.9986, 0.9954, 0.9900, 0.9822, 0.9730, 0.9600, 0.9427, 0.9216, 0.8962,
    0.8679, 0.8350, 0.7986, 0.7597, 0.7186, 0.6732, 0.6213, 0.5722, 0.5322};
inline constexpr std::array<double, kRobinsonNodes> kRobinsonPdfe = {
    0.0000, 0.0620, 0.1240, 0.1860, 0.2480, 0.3100, 0.3720, 0.4340, 0.4958, 0.5571,
    0.6176, 0.6769, 0.7346, 0.7903, 0.8435, 0.8936, 0.9394, 0.9761, 1.0000};
// clang-format on

// A value of an interpolated column and its derivative, in tabulated latitude steps.
struct Interpolated {
    double value;
    double slope;
};

// The second derivatives (per step squared) of the cubic spline through a column: symmetric at
// the equator (odd: the column is an odd function of latitude), not-a-knot at the pole.
constexpr std::array<double, kRobinsonNodes>
robinson_spline_moments(const std::array<double, kRobinsonNodes> &v, bool odd)
{
    constexpr int n = kRobinsonNodes;
    std::array<std::array<double, n + 1>, n> m{}; // the system, right-hand side in column n
    if (odd) {
        m[0][0] = 1.0; // an odd function has no curvature at 0
    } else {
        m[0][0] = 4.0; // mirrored neighbour: M[-1] = M[1], v[-1] = v[1]
        m[0][1] = 2.0;
        m[0][n] = 12.0 * (v[1] - v[0]);
    }
    for (int i = 1; i < n - 1; ++i) {
        m[i][i - 1] = 1.0;
        m[i][i] = 4.0;
        m[i][i + 1] = 1.0;
        m[i][n] = 6.0 * (v[i + 1] - 2.0 * v[i] + v[i - 1]);
    }
    m[n - 1][n - 3] = 1.0; // not-a-knot: the third derivative continuous at the last interior node
    m[n - 1][n - 2] = -2.0;
    m[n - 1][n - 1] = 1.0;
    for (int col = 0; col < n; ++col) { // Gaussian elimination with partial pivoting
        int pivot = col;
        for (int r = col + 1; r < n; ++r)
            if ((m[r][col] < 0 ? -m[r][col] : m[r][col]) >
                (m[pivot][col] < 0 ? -m[pivot][col] : m[pivot][col]))
                pivot = r;
        std::swap(m[col], m[pivot]);
        for (int r = 0; r < n; ++r) {
            if (r == col || m[r][col] == 0.0)
                continue;
            const double f = m[r][col] / m[col][col];
            for (int c = col; c <= n; ++c)
                m[r][c] -= f * m[col][c];
        }
    }
    std::array<double, n> moments{};
    for (int i = 0; i < n; ++i)
        moments[i] = m[i][n] / m[i][i];
    return moments;
}

struct RobinsonSpline {
    static constexpr std::array<double, kRobinsonNodes> kPlenMoments =
        robinson_spline_moments(kRobinsonPlen, false);
    static constexpr std::array<double, kRobinsonNodes> kPdfeMoments =
        robinson_spline_moments(kRobinsonPdfe, true);

    static Interpolated at(const std::array<double, kRobinsonNodes> &v,
                           const std::array<double, kRobinsonNodes> &moments, double t)
    {
        const int i = std::min(kRobinsonNodes - 2, std::max(0, static_cast<int>(t)));
        const double u = t - i, w = 1.0 - u;
        return {w * v[i] + u * v[i + 1] +
                    ((w * w * w - w) * moments[i] + (u * u * u - u) * moments[i + 1]) / 6.0,
                v[i + 1] - v[i] +
                    ((1.0 - 3.0 * w * w) * moments[i] + (3.0 * u * u - 1.0) * moments[i + 1]) /
                        6.0};
    }
    static Interpolated plen(double t) { return at(kRobinsonPlen, kPlenMoments, t); }
    static Interpolated pdfe(double t) { return at(kRobinsonPdfe, kPdfeMoments, t); }
};

struct RobinsonBessel {
    // the column at node j, mirrored about the equator
    static double node(const std::array<double, kRobinsonNodes> &v, int j, bool odd)
    {
        return j >= 0 ? v[j] : (odd ? -v[-j] : v[-j]);
    }
    // the cubic through the nodes first .. first + 3, at t
    static Interpolated at(const std::array<double, kRobinsonNodes> &v, bool odd, double t)
    {
        const int i = std::min(kRobinsonNodes - 2, std::max(0, static_cast<int>(t)));
        const int first = std::min(i - 1, kRobinsonNodes - 4);
        const double u = t - first; // the nodes sit at u = 0, 1, 2, 3
        const double f0 = node(v, first, odd), f1 = node(v, first + 1, odd),
                     f2 = node(v, first + 2, odd), f3 = node(v, first + 3, odd);
        // Lagrange weights and their derivatives
        const double l0 = -(u - 1.0) * (u - 2.0) * (u - 3.0) / 6.0;
        const double l1 = u * (u - 2.0) * (u - 3.0) / 2.0;
        const double l2 = -u * (u - 1.0) * (u - 3.0) / 2.0;
        const double l3 = u * (u - 1.0) * (u - 2.0) / 6.0;
        const double d0 =
            -((u - 2.0) * (u - 3.0) + (u - 1.0) * (u - 3.0) + (u - 1.0) * (u - 2.0)) / 6.0;
        const double d1 = ((u - 2.0) * (u - 3.0) + u * (u - 3.0) + u * (u - 2.0)) / 2.0;
        const double d2 = -((u - 1.0) * (u - 3.0) + u * (u - 3.0) + u * (u - 1.0)) / 2.0;
        const double d3 = ((u - 1.0) * (u - 2.0) + u * (u - 2.0) + u * (u - 1.0)) / 6.0;
        return {l0 * f0 + l1 * f1 + l2 * f2 + l3 * f3, d0 * f0 + d1 * f1 + d2 * f2 + d3 * f3};
    }
    static Interpolated plen(double t) { return at(kRobinsonPlen, false, t); }
    static Interpolated pdfe(double t) { return at(kRobinsonPdfe, true, t); }
};

// Robinson's projection of the unit sphere with the interpolation I.
template <class I> struct RobinsonFormulas {
    explicit RobinsonFormulas(const double * /*parms*/) {}

    static bool forward(double lam, double phi, double *x, double *y)
    {
        const double t = std::fmin(std::fabs(phi), kHalfPi) / kRobinsonStep;
        *x = kRobinsonX * lam * I::plen(t).value;
        *y = std::copysign(kRobinsonY * I::pdfe(t).value, phi);
        return true;
    }

    static bool inverse(double x, double y, double *lam, double *phi)
    {
        double target = std::fabs(y) / kRobinsonY;
        if (!within_outline(&target, 1.0))
            return false;
        constexpr double last = kRobinsonNodes - 1;
        double t = 0.0;
        if (!solve_increasing([](double s) { return I::pdfe(s).value; },
                              [](double s) { return I::pdfe(s).slope; }, target, 0.0, last,
                              target * last, &t))
            return false;
        double l = x / (kRobinsonX * I::plen(t).value);
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = std::copysign(std::fmin(t * kRobinsonStep, kHalfPi), y);
        return true;
    }
};

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_ROBINSON_H
