// gx_polyhedral.h -- what the polyhedral world projections (cube, Fuller's icosahedron) share:
// points of the unit sphere as vectors, and the net a polyhedron's faces are unfolded into.
#ifndef GX_PROJECTIONS_GX_POLYHEDRAL_H
#define GX_PROJECTIONS_GX_POLYHEDRAL_H

#include "projections/gx_world.h"

#include <cmath>

namespace gx::projections {

struct Vec3 {
    double x, y, z;
};

inline Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec3 operator*(double s, Vec3 a) { return {s * a.x, s * a.y, s * a.z}; }
inline double dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) { return std::sqrt(dot(a, a)); }
inline Vec3 unit(Vec3 a) { return (1.0 / length(a)) * a; }

// The unit vector of (lambda, phi): x towards (0, 0), y towards (90 E, 0), z north.
inline Vec3 to_vector(double lam, double phi)
{
    return {std::cos(phi) * std::cos(lam), std::cos(phi) * std::sin(lam), std::sin(phi)};
}
inline void to_angles(Vec3 v, double *lam, double *phi)
{
    *phi = std::atan2(v.z, std::hypot(v.x, v.y));
    *lam = std::atan2(v.y, v.x);
}

// The angle between two unit vectors, exact also when small or near pi.
inline double arc_between(Vec3 a, Vec3 b) { return std::atan2(length(cross(a, b)), dot(a, b)); }

} // namespace gx::projections

#endif // GX_PROJECTIONS_GX_POLYHEDRAL_H
