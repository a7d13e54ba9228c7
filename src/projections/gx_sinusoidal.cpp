// gx_sinusoidal.cpp -- the sinusoidal projection (Sanson-Flamsteed), on the sphere and on the
// ellipsoid.
//
// Parameters: central meridian lambda0 (slot 2).  Snyder 1987, "Map Projections -- A Working
// Manual", eqs. 30-1, 30-2 (sphere) and 30-8, 30-9 (ellipsoid): the parallels are straight and
// true to scale, the central meridian is true to scale, and the projection is equal-area:
//   x = a lambda cos(phi) / w(phi) = N(phi) cos(phi) lambda,   y = M(phi),
// where M is the meridian arc from the equator, taken as R_m mu with the rectifying latitude mu
// and the rectifying radius R_m (on the sphere simply a phi).  Back (eqs. 30-10 to 30-12):
// mu = y / R_m gives phi, then lambda = x w(phi) / (a cos phi).  A plane point beyond the poles'
// lines or beyond the bounding meridians +-180 degrees is outside the map and fails.
//
// Constants record:  sphere     1: [0] a
//                    ellipsoid 19: [0] a, [1] R_m, [2..18] rectifying-latitude block
#include "projections/gx_world.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 2;

class Sinusoidal : public ConstantsLayout<1, kBlockOffset + GX_MU_BLOCK_LEN> {
public:
    static int constants(const double sphere[2], const double * /*parms*/, double *values)
    {
        const double a = sphere[0], e2 = sphere[1];
        values[0] = a;
        if (is_sphere(e2))
            return kSphereCount;
        values[1] = gx_rect_r(a, e2);
        gx_mu_rectifying_constants(e2, values + kBlockOffset, 0);
        return kEllipsoidCount;
    }

    Sinusoidal(const double sphere[2], const double parms[16], const double *values)
        : e2_(sphere[1]), lam0_(parms[slot::central_meridian]), a_(values[0]),
          meridian_radius_(is_sphere(e2_) ? a_ : values[1]),
          mu_block_(is_sphere(e2_) ? nullptr : values + kBlockOffset)
    {}

    void forward(double *point) const
    {
        const double phi = point[1];
        point[0] = a_ * gx_delta(point[0] - lam0_) * std::cos(phi) / gx_w(e2_, phi);
        point[1] = meridian_radius_ * rectifying(phi);
    }

    bool inverse(double *point) const
    {
        double mu = point[1] / meridian_radius_;
        if (!within_outline(&mu, kHalfPi))
            return false;
        const double phi = geodetic(mu);
        const double parallel_radius = a_ * std::cos(phi) / gx_w(e2_, phi);
        double lam = 0.0;
        if (std::fabs(point[0]) > kOutlineTol * a_) {
            lam = point[0] / parallel_radius;
            if (!within_outline(&lam, kPi))
                return false;
        }
        point[0] = gx_delta(lam + lam0_);
        point[1] = phi;
        return true;
    }

private:
    double rectifying(double phi) const
    {
        return mu_block_ ? gx_phi_to_mu_wconst(e2_, phi, mu_block_) : phi;
    }
    double geodetic(double mu) const
    {
        return mu_block_ ? gx_mu_to_phi_wconst(e2_, mu, mu_block_) : mu;
    }

    double e2_, lam0_, a_, meridian_radius_;
    const double *mu_block_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(sinusoidal, Sinusoidal)
