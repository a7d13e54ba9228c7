// gx_cylindrical_eqarea.cpp -- the normal cylindrical equal-area projection (Lambert's, and with
// other standard parallels Behrmann's, Gall-Peters' ...), on the sphere and on the ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2) and standard parallel phi_s of true scale
// (slot 3).  Snyder 1987, "Map Projections -- A Working Manual", eqs. 10-1, 10-2 (sphere) and
// 10-13 to 10-15 (ellipsoid), with k = cos phi_s / w(phi_s):
//   x = a k (lambda - lambda0),   y = a q / (2 k) = a (q_p / (2 k)) sin(beta),
// where beta is the authalic latitude and q_p the authalic function at the pole (on the sphere
// q_p = 2 and beta = phi).  Back: sin(beta) = y / (a q_p / (2 k)); a plane point beyond the
// poles' lines fails.  A standard parallel at a pole leaves no cylinder: no constants, and
// no point is converted.
//
// Constants record:  sphere     3: [0] k = cos phi_s, [1] a k, [2] a / k
//                    ellipsoid 21: [0] k = cos phi_s / w(phi_s), [1] a k, [2] a q_p / (2 k),
//                                  [3..20] authalic-latitude block
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 3;

class CylindricalEqualArea : public ConstantsLayout<3, 21> {
public:
    // The constants, or 0 when the standard parallel is at a pole.
    static int constants(const double sphere[2], const double parms[16], double *values)
    {
        const double a = sphere[0], e2 = sphere[1], phi_s = parms[slot::standard_parallel_1];
        if (at_pole(phi_s))
            return 0;
        const double k = std::cos(phi_s) / gx_w(e2, phi_s);
        values[0] = k;
        values[1] = a * k;
        values[2] = a * authalic_q_pole(e2) / (2.0 * k);
        if (is_sphere(e2))
            return kSphereCount;
        gx_beta_authalic_constants(e2, values + kBlockOffset, 0);
        return kEllipsoidCount;
    }

    CylindricalEqualArea(const double sphere[2], const double parms[16], const double *values)
        : e2_(sphere[1]), lam0_(parms[slot::central_meridian]), a_k_(values[1]),
          northing_scale_(values[2]), beta_block_(is_sphere(e2_) ? nullptr : values + kBlockOffset)
    {}

    void forward(double *point) const
    {
        const double beta = authalic(point[1]);
        point[0] = a_k_ * gx_delta(point[0] - lam0_);
        point[1] = northing_scale_ * std::sin(beta);
    }

    bool inverse(double *point) const
    {
        double sin_beta = point[1] / northing_scale_;
        if (std::fabs(sin_beta) > 1.0) {
            if (std::fabs(sin_beta) > 1.0 + kTol)
                return false;
            sin_beta = std::copysign(1.0, sin_beta);
        }
        point[0] = gx_delta(lam0_ + point[0] / a_k_);
        point[1] = geodetic(std::asin(sin_beta));
        return true;
    }

private:
    double authalic(double phi) const
    {
        return beta_block_ ? gx_phi_to_beta_wconst(e2_, phi, beta_block_) : phi;
    }
    double geodetic(double beta) const
    {
        return beta_block_ ? gx_beta_to_phi_wconst(e2_, beta, beta_block_) : beta;
    }

    double e2_, lam0_, a_k_, northing_scale_;
    const double *beta_block_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(cylindrical_eqarea, CylindricalEqualArea)
