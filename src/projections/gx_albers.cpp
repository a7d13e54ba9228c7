// gx_albers.cpp -- the Albers equal-area conic projection, on the sphere and on the ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2), standard parallels phi1, phi2 (slots 3, 4; equal
// for the one-parallel form) and latitude of origin phi0 (slot 6).  Snyder 1987, "Map
// Projections -- A Working Manual", eqs. 14-1 to 14-6 (sphere) and 14-3, 14-12 to 14-15
// (ellipsoid), with the authalic function q = q_p sin(beta) (beta the authalic latitude, q_p its
// value at the pole) and m = cos phi / w(phi):
//   n   = (m1^2 - m2^2) / (q2 - q1)        (n = sin phi1 when q1 = q2)
//   C   = m1^2 + n q1
//   rho = a sqrt(C - n q) / n,   rho0 the same at phi0,
//   x = rho sin(theta),   y = rho0 - rho cos(theta),   theta = n (lambda - lambda0).
// On the sphere q = 2 sin phi and n = (sin phi1 + sin phi2) / 2.  Back (eqs. 14-10, 14-11, 14-19):
// rho and theta from (x, rho0 - y) with the sign of n, q = (C - (rho n / a)^2) / n, and beta from
// sin(beta) = q / q_p, held to [-1, 1] so that no point fails.
//
// Symmetric parallels (phi1 = -phi2) make n = 0: the cone opens into a cylinder, and the
// projection is the cylindrical equal-area one with standard parallel phi1.
//
// Constants record:  sphere     3: [0] rho0, [1] C, [2] n
//                    ellipsoid 22: [0] rho0, [1] C, [2] n, [3] q_p, [4..21] authalic block
//                    phi1 = -phi2: the cylindrical equal-area record
#include "projections/gx_projection_support.h"

#include <algorithm>
#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 4;

bool symmetric_parallels(const double parms[16])
{
    return eq(parms[slot::standard_parallel_1], -parms[slot::standard_parallel_2]);
}

// The authalic function q = q_p sin(beta) of a latitude; beta = phi on the sphere (null block).
double authalic_q(double e2, const double *beta_block, double q_pole, double phi)
{
    const double beta = beta_block ? gx_phi_to_beta_wconst(e2, phi, beta_block) : phi;
    return q_pole * std::sin(beta);
}

class AlbersCone : public ConstantsLayout<3, 22> {
public:
    // The constants record of a cone (not for symmetric parallels).
    static int constants(const double sphere[2], const double parms[16], double *values)
    {
        const double a = sphere[0], e2 = sphere[1];
        const double phi1 = parms[slot::standard_parallel_1],
                     phi2 = parms[slot::standard_parallel_2];
        double *block = is_sphere(e2) ? nullptr : values + kBlockOffset;
        if (block != nullptr)
            gx_beta_authalic_constants(e2, block, 0);
        const double q_pole = authalic_q_pole(e2);
        const double q1 = authalic_q(e2, block, q_pole, phi1),
                     q2 = authalic_q(e2, block, q_pole, phi2);
        const double m1 = std::cos(phi1) / gx_w(e2, phi1), m2 = std::cos(phi2) / gx_w(e2, phi2);
        double n;
        if (block == nullptr)
            n = (std::sin(phi1) + std::sin(phi2)) / 2.0;
        else if (eq(q1, q2))
            n = std::sin(phi1);
        else
            n = (m1 * m1 - m2 * m2) / (q2 - q1);
        const double c = m1 * m1 + n * q1;
        const double q0 = authalic_q(e2, block, q_pole, parms[slot::latitude_of_origin]);
        values[0] = a * std::sqrt(std::max(0.0, c - n * q0)) / n;
        values[1] = c;
        values[2] = n;
        if (block == nullptr)
            return kSphereCount;
        values[3] = q_pole;
        return kEllipsoidCount;
    }

    AlbersCone(const double sphere[2], const double parms[16], const double *values)
        : a_(sphere[0]), e2_(sphere[1]), lam0_(parms[slot::central_meridian]), rho0_(values[0]),
          c_(values[1]), n_(values[2])
    {
        if (!is_sphere(e2_)) {
            q_pole_ = values[3];
            beta_block_ = values + kBlockOffset;
        }
    }

    void forward(double *point) const
    {
        const double q = authalic_q(e2_, beta_block_, q_pole_, point[1]);
        const double rho = a_ * std::sqrt(std::max(0.0, c_ - n_ * q)) / n_;
        const double theta = n_ * gx_delta(point[0] - lam0_);
        point[0] = rho * std::sin(theta);
        point[1] = rho0_ - rho * std::cos(theta);
    }

    void inverse(double *point) const
    {
        const double sign = n_ < 0.0 ? -1.0 : 1.0;
        const double dx = sign * point[0], dy = sign * (rho0_ - point[1]);
        const double rho_n_a = std::hypot(dx, dy) * n_ / a_;
        const double sin_beta = (c_ - rho_n_a * rho_n_a) / (n_ * q_pole_);
        const double beta = std::asin(std::clamp(sin_beta, -1.0, 1.0));
        point[0] = gx_delta(lam0_ + std::atan2(dx, dy) / n_);
        point[1] = beta_block_ ? gx_beta_to_phi_wconst(e2_, beta, beta_block_) : beta;
    }

private:
    double a_, e2_, lam0_, rho0_, c_, n_, q_pole_ = 2.0;
    const double *beta_block_ = nullptr;
};

} // namespace

extern "C" {

GX_API int gx_albers_const(gx_constants *constants, const double sphere[2], const double parms[16])
{
    if (symmetric_parallels(parms))
        return gx_cylindrical_eqarea_const(constants, sphere, parms);
    return projection_setup<AlbersCone>(constants, sphere, parms);
}

GX_API int gx_albers_fwd(const double sphere[2], const double parms[16], int n, double *coords,
                         const int *ivals, const double *dvals)
{
    if (symmetric_parallels(parms))
        return gx_cylindrical_eqarea_fwd(sphere, parms, n, coords, ivals, dvals);
    return projection_run<AlbersCone>(Pass::Forward, sphere, parms, n, coords, ivals, dvals);
}

GX_API int gx_albers_inv(const double sphere[2], const double parms[16], int n, double *coords,
                         const int *ivals, const double *dvals)
{
    if (symmetric_parallels(parms))
        return gx_cylindrical_eqarea_inv(sphere, parms, n, coords, ivals, dvals);
    return projection_run<AlbersCone>(Pass::Inverse, sphere, parms, n, coords, ivals, dvals);
}

} // extern "C"
