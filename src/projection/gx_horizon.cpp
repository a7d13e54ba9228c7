// Horizons: the polygon of the area where a projection is valid.  The normal cylindrical
// projections (and every projection that has no horizon of its own yet) are valid over the
// whole globe: 360 degrees of longitude centred on the central meridian, pole to pole.
#include "gridex.h"

#include <numbers>

namespace {

constexpr int central_meridian_slot = 2;

struct vertex {
    double x;
    double y;
};

// Writes the vertices that fit and returns how many the polygon has.
template <int N> int write_polygon(const vertex (&polygon)[N], int max_points, double *points)
{
    for (int i = 0; i < N && i < max_points && points != nullptr; ++i) {
        points[2 * i] = polygon[i].x;
        points[2 * i + 1] = polygon[i].y;
    }
    return N;
}

} // namespace

int gx_horizon_normal_cylindrical(const double *, const double *parms, int max_points,
                                  double *points)
{
    const double pi = std::numbers::pi;
    const double lon0 = parms != nullptr ? parms[central_meridian_slot] : 0.0;
    const vertex globe[] = {
        {lon0 - pi, -pi / 2}, {lon0 + pi, -pi / 2}, {lon0 + pi, pi / 2}, {lon0 - pi, pi / 2}};
    return write_polygon(globe, max_points, points);
}
