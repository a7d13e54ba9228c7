// gx_equidistant_conic.cpp -- the equidistant conic projection, on the sphere and on the
// ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2), standard parallels phi1, phi2 (slots 3, 4; equal
// for the one-parallel form) and latitude of origin phi0 (slot 6).  Distances along the meridians
// are true: the radius of a parallel falls off with the meridian arc M(phi).  Snyder 1987, "Map
// Projections -- A Working Manual", eqs. 16-1 to 16-5 (sphere) and 16-11 to 16-14 (ellipsoid),
// with m = cos phi / w(phi):
//   n   = a (m1 - m2) / (M2 - M1)           (n = sin phi1 for equal parallels)
//   a G = a m1 / n + M1
//   rho = a G - M,   rho0 = a G - M0,
//   x = rho sin(theta),   y = rho0 - rho cos(theta),   theta = n (lambda - lambda0).
// The meridian arc is taken as M = R_r mu, R_r the rectifying radius and mu the rectifying latitude
// (on the sphere R_r = a and mu = phi).  Back: rho and theta from (x, rho0 - y) with the sign of
// n, mu = (a G - rho) / R_r held to [-pi/2, pi/2], and phi from mu.
//
// Symmetric parallels (phi1 = -phi2, also both on the equator) open the cone into a cylinder,
// n = 0: the limit is the equidistant cylindrical projection x = a m1 (lambda - lambda0),
// y = M - M0.  With both parallels at the poles it has no width: no constants, no point converted.
//
// Constants record:  sphere     4: [0] n, [1] a G, [2] rho0, [3] R_r = a
//                    ellipsoid 21: the same four, [4..20] rectifying-latitude block
//                    a cylinder (n = 0) holds [1] a m1 and [2] M0 in place of a G and rho0.
#include "projections/gx_projection_support.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 4;

// The meridian arc from the equator, R_r mu(phi).
double meridian_arc(double e2, const double *mu_block, double rect_radius, double phi)
{
    return rect_radius * (mu_block ? gx_phi_to_mu_wconst(e2, phi, mu_block) : phi);
}

class EquidistantConic : public ConstantsLayout<4, 21> {
public:
    // The constants, or 0 for a cylinder without width.
    static int constants(const double sphere[2], const double parms[16], double *values)
    {
        const double a = sphere[0], e2 = sphere[1];
        const double phi1 = parms[slot::standard_parallel_1],
                     phi2 = parms[slot::standard_parallel_2];
        double *block = is_sphere(e2) ? nullptr : values + kBlockOffset;
        if (block != nullptr)
            gx_mu_rectifying_constants(e2, block, 0);
        const double rect_radius = gx_rect_r(a, e2);
        const double m1 = std::cos(phi1) / gx_w(e2, phi1), m2 = std::cos(phi2) / gx_w(e2, phi2);
        const double arc0 = meridian_arc(e2, block, rect_radius, parms[slot::latitude_of_origin]);
        const double arc1 = meridian_arc(e2, block, rect_radius, phi1);
        const double arc2 = meridian_arc(e2, block, rect_radius, phi2);
        if (eq(phi1, -phi2)) {
            if (at_pole(phi1))
                return 0;
            values[0] = 0.0;
            values[1] = a * m1;
            values[2] = arc0;
        } else {
            const double n = eq(phi1, phi2) ? std::sin(phi1) : a * (m1 - m2) / (arc2 - arc1);
            const double a_g = a * m1 / n + arc1;
            values[0] = n;
            values[1] = a_g;
            values[2] = a_g - arc0;
        }
        values[3] = rect_radius;
        return block ? kEllipsoidCount : kSphereCount;
    }

    EquidistantConic(const double sphere[2], const double parms[16], const double *values)
        : e2_(sphere[1]), lam0_(parms[slot::central_meridian]), n_(values[0]),
          rect_radius_(values[3]), mu_block_(is_sphere(e2_) ? nullptr : values + kBlockOffset)
    {
        if (n_ == 0.0) {
            a_m1_ = values[1];
            arc0_ = values[2];
        } else {
            a_g_ = values[1];
            rho0_ = values[2];
        }
    }

    void forward(double *point) const
    {
        const double arc = meridian_arc(e2_, mu_block_, rect_radius_, point[1]);
        const double dlam = gx_delta(point[0] - lam0_);
        if (n_ == 0.0) {
            point[0] = a_m1_ * dlam;
            point[1] = arc - arc0_;
            return;
        }
        const double rho = a_g_ - arc, theta = n_ * dlam;
        point[0] = rho * std::sin(theta);
        point[1] = rho0_ - rho * std::cos(theta);
    }

    void inverse(double *point) const
    {
        double arc;
        if (n_ == 0.0) {
            arc = point[1] + arc0_;
            point[0] = gx_delta(lam0_ + point[0] / a_m1_);
        } else {
            const double sign = n_ < 0.0 ? -1.0 : 1.0;
            const double dx = sign * point[0], dy = sign * (rho0_ - point[1]);
            arc = a_g_ - sign * std::hypot(dx, dy);
            point[0] = gx_delta(lam0_ + std::atan2(dx, dy) / n_);
        }
        const double mu = std::clamp(arc / rect_radius_, -kHalfPi, kHalfPi);
        point[1] = mu_block_ ? gx_mu_to_phi_wconst(e2_, mu, mu_block_) : mu;
    }

private:
    double e2_, lam0_;
    double n_, rect_radius_;
    const double *mu_block_;
    double a_g_ = 0.0, rho0_ = 0.0, a_m1_ = 0.0, arc0_ = 0.0;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(equidistant_conic, EquidistantConic)
