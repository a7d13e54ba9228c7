// gx_mercator.cpp -- the normal Mercator projection, on the sphere and on the ellipsoid, and its
// auxiliary-sphere form.
//
// Snyder 1987, "Map Projections -- A Working Manual", eqs. 7-1, 7-2 (sphere) and 7-6, 7-7
// (ellipsoid), with the standard parallel phi1 of true scale (slot 3) giving the scale
// K = cos phi1 / w(phi1) on the equator.  On the ellipsoid the latitude goes through the
// conformal latitude chi, after which the projection is the spherical one:
//   x = a K (lambda - lambda0),   y = a K ln tan(pi/4 + chi/2) = a K asinh(tan chi),
// and back  chi = pi/2 - 2 atan(exp(-y / (a K))) = atan(sinh(y / (a K))).
// The asinh/atan(sinh) forms are the same functions (the inverse Gudermannian and the
// Gudermannian) without the cancellation of the tangent forms near the equator: phi = 0 maps to
// y = 0 exactly.  A pole is pulled in to kPoleLatitude, where the northing is large but finite.
//
// Constants record:  sphere     2: [0] K = cos phi1, [1] a K
//                    ellipsoid 20: [0] K = cos phi1 / w(phi1), [1] a K,
//                                  [2..17] conformal-latitude block, [18..19] zero
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 2;

class Mercator : public ConstantsLayout<2, 20> {
public:
    static int constants(const double sphere[2], const double parms[16], double *values)
    {
        return constants_with_block(sphere, parms, values, 0);
    }
    // A call in one direction computes only the half of the conformal block it uses.
    static int constants(const double sphere[2], const double parms[16], double *values, Pass pass)
    {
        return constants_with_block(sphere, parms, values,
                                    pass == Pass::Forward ? GX_AUXLAT_FORWARD : GX_AUXLAT_INVERSE);
    }

    Mercator(const double sphere[2], const double parms[16], const double *values)
        : e2_(sphere[1]), lam0_(parms[slot::central_meridian]), a_k_(values[1]),
          chi_block_(is_sphere(e2_) ? nullptr : values + kBlockOffset)
    {}

    void forward(double *point) const
    {
        const double chi = conformal(pull_in_pole(point[1]));
        point[0] = a_k_ * gx_delta(point[0] - lam0_);
        point[1] = a_k_ * std::asinh(std::tan(chi));
    }

    void inverse(double *point) const
    {
        const double chi = std::atan(std::sinh(point[1] / a_k_));
        point[0] = gx_delta(lam0_ + point[0] / a_k_);
        point[1] = geodetic(chi);
    }

private:
    // K and a K, then on the ellipsoid the conformal block (block_flags selects its halves, 0 for
    // both).
    static int constants_with_block(const double sphere[2], const double parms[16], double *values,
                                    int block_flags)
    {
        const double a = sphere[0], e2 = sphere[1], phi1 = parms[slot::standard_parallel_1];
        if (is_sphere(e2)) {
            values[0] = std::cos(phi1);
            values[1] = a * values[0];
            return kSphereCount;
        }
        values[0] = std::cos(phi1) / gx_w(e2, phi1);
        values[1] = a * values[0];
        gx_chi_conformal_constants(e2, values + kBlockOffset, block_flags);
        values[kBlockOffset + GX_CHI_BLOCK_LEN] = 0.0;
        values[kBlockOffset + GX_CHI_BLOCK_LEN + 1] = 0.0;
        return kEllipsoidCount;
    }

    double conformal(double phi) const
    {
        return chi_block_ ? gx_phi_to_chi_wconst(e2_, phi, chi_block_) : phi;
    }
    double geodetic(double chi) const
    {
        return chi_block_ ? gx_chi_to_phi_wconst(e2_, chi, chi_block_) : chi;
    }

    double e2_, lam0_, a_k_;
    const double *chi_block_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(mercator, Mercator)
GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(mercator, Mercator)
