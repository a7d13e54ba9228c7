// gx_stereographic.cpp -- the stereographic projection (oblique, equatorial and polar; sphere
// and ellipsoid) and its auxiliary-sphere form.
//
// Parameters: central meridian lambda0 (slot 2), latitude of origin phi0 (slot 6) and scale
// factor k0 at the origin (slot 5).
//
// On the sphere the projection from the point opposite the origin gives the angular distance c
// the radius 2 R k0 tan(c/2) = 2 R k0 sin c / (1 + cos c) (Snyder 1987, "Map Projections -- A
// Working Manual", eqs. 21-2 to 21-4; inverse 21-15, 20-14, 20-15).
//
// On the ellipsoid it is the same projection of the conformal sphere: the latitudes become
// conformal latitudes chi, and the sphere's radius R_c is chosen so that the scale at the origin
// is k0 (Snyder eqs. 21-24 to 21-27):
//   R_c = a k0 m0 / cos chi0,   m0 = cos phi0 / w(phi0),
// and at a pole its limit (Snyder eq. 21-33)
//   R_c = a k0 / sqrt((1 + e)^(1 + e) (1 - e)^(1 - e)).
// The polar projection is the oblique one with chi0 = +-pi/2 exactly (cos chi0 = 0).  The point
// opposite the origin (1 + cos c not above 2^-48) fails forward.
//
// Constants record:  sphere     3: [0] cos chi0, [1] sin chi0, [2] 2 R_c (R_c = a k0)
//                    ellipsoid 19: the same three, [3..18] conformal-latitude block
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_azimuthal.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kBlockOffset = 3;

// sqrt((1 + e)^(1 + e) (1 - e)^(1 - e)), the polar radius factor of the conformal sphere
double polar_conformal_factor(double e)
{
    return std::exp(0.5 * ((1.0 + e) * std::log1p(e) + (1.0 - e) * std::log1p(-e)));
}

class Stereographic : public ConstantsLayout<3, 19> {
public:
    static int constants(const double sphere[2], const double parms[16], double *values)
    {
        const double a = sphere[0], e2 = sphere[1];
        const double phi0 = parms[slot::latitude_of_origin], a_k0 = a * parms[slot::scale_factor];
        const bool polar = at_pole(phi0);
        if (is_sphere(e2)) {
            values[0] = polar ? 0.0 : std::cos(phi0);
            values[1] = polar ? std::copysign(1.0, phi0) : std::sin(phi0);
            values[2] = 2.0 * a_k0;
            return kSphereCount;
        }
        double *block = values + kBlockOffset;
        gx_chi_conformal_constants(e2, block, 0);
        if (polar) {
            values[0] = 0.0;
            values[1] = std::copysign(1.0, phi0);
            values[2] = 2.0 * a_k0 / polar_conformal_factor(std::sqrt(e2));
        } else {
            const double chi0 = gx_phi_to_chi_wconst(e2, phi0, block);
            const double m0 = std::cos(phi0) / gx_w(e2, phi0);
            values[0] = std::cos(chi0);
            values[1] = std::sin(chi0);
            values[2] = 2.0 * a_k0 * m0 / values[0];
        }
        return kEllipsoidCount;
    }

    Stereographic(const double sphere[2], const double parms[16], const double *values)
        : e2_(sphere[1]), center_{parms[slot::central_meridian], values[0], values[1]},
          two_radius_(values[2]), chi_block_(is_sphere(e2_) ? nullptr : values + kBlockOffset)
    {}

    bool forward(double *point) const
    {
        const AzimuthalView view = view_from_center(center_, point[0], conformal(point[1]));
        const double one_plus_cos_c = 1.0 + view.cos_c;
        if (!(one_plus_cos_c > gx::kTol))
            return false; // the point opposite the origin
        const double scale = two_radius_ / one_plus_cos_c;
        point[0] = scale * view.east;
        point[1] = scale * view.north;
        return true;
    }

    void inverse(double *point) const
    {
        const double x = point[0], y = point[1];
        const double rho = std::hypot(x, y);
        // c = 2 atan(t), t = rho / (2 R_c), as its sine and cosine
        const double t = rho / two_radius_, one_plus_t2 = 1.0 + t * t;
        double chi = 0.0;
        point_from_center(center_, x, y, rho, 2.0 * t / one_plus_t2,
                          (1.0 - t) * (1.0 + t) / one_plus_t2, &point[0], &chi);
        point[1] = geodetic(chi);
    }

private:
    double conformal(double phi) const
    {
        return chi_block_ ? gx_phi_to_chi_wconst(e2_, phi, chi_block_) : phi;
    }
    double geodetic(double chi) const
    {
        return chi_block_ ? gx_chi_to_phi_wconst(e2_, chi, chi_block_) : chi;
    }

    double e2_;
    AzimuthalCenter center_;
    double two_radius_;
    const double *chi_block_;
};

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(stereographic, Stereographic)
GX_DEFINE_AUXILIARY_SPHERE_ROUTINES(stereographic, Stereographic)
