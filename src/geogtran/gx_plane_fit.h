// gx_plane_fit.h -- what the two plane-coordinate fits (affine and 2D projective) share: the
// loop over (x, y) pairs and the test for a fit that cannot be inverted.
#ifndef GX_GEOGTRAN_GX_PLANE_FIT_H
#define GX_GEOGTRAN_GX_PLANE_FIT_H

namespace gx::geogtran {

struct PlanePoint {
    double x, y;
};

// Replaces each (x, y) pair of points by map(PlanePoint); returns n.
template <class Map> int map_plane_points(int n, double *points, const Map &map)
{
    for (int i = 0; i < n; ++i) {
        const PlanePoint p = map(PlanePoint{points[2 * i], points[2 * i + 1]});
        points[2 * i] = p.x;
        points[2 * i + 1] = p.y;
    }
    return n;
}

// A determinant that is neither positive nor negative (zero, or NaN from a NaN coefficient)
// leaves the fit without an inverse.
inline bool singular(double det) { return !(det > 0.0 || det < 0.0); }

} // namespace gx::geogtran

#endif
