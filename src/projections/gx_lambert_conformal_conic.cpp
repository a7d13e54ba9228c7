// gx_lambert_conformal_conic.cpp -- the Lambert conformal conic projection, on the sphere and on
// the ellipsoid, one or two standard parallels, with a scale factor.
//
// Parameters: central meridian lambda0 (slot 2), standard parallels phi1, phi2 (slots 3, 4; equal
// for the one-parallel form), scale factor k0 (slot 5) and latitude of origin phi0 (slot 6).
// Snyder 1987, "Map Projections -- A Working Manual", eqs. 15-1 to 15-5 (sphere) and 15-7 to
// 15-11 (ellipsoid).  With chi the conformal latitude (chi = phi on the sphere),
// t = tan(pi/4 - chi/2) and m = cos phi / w(phi):
//   n   = (ln m1 - ln m2) / (ln t1 - ln t2)   (n = sin phi1 for equal parallels)
//   a F = a m1 / (n t1^n)
//   rho = a F t^n,   rho0 = a F |t0|^n,
//   x = k0 rho sin(theta),   y = k0 (rho0 - rho cos(theta)),   theta = n (lambda - lambda0).
// A latitude at or beyond a pole is pulled in to kPoleLatitude, so the cone's apex maps near the
// origin of the radii and the opposite pole to a large but finite radius: no point fails.  Back
// (eqs. 15-8, 15-9, 14-11): rho = sign(n) hypot(x, rho0 - y), theta from (x, rho0 - y) with the
// sign of n, t = (rho / (a F))^(1/n), chi = pi/2 - 2 atan(t); a radius of 0 is the pole of the
// cone's sign.
//
// Limits of the cone:
//   - phi1 = -phi2 (also both on the equator): n = 0, the cone is the Mercator cylinder with
//     standard parallel phi1, its northings counted from phi0 and scaled by k0;
//   - phi1 = phi2 at a pole: n = 1, the polar stereographic projection from that pole with
//     scale factor k0 there, northings counted from phi0;
//   - only one parallel at a pole: the cone is undefined; no constants and no point converted.
// The limits call the Mercator and stereographic routines themselves, so their coordinates are
// exactly those projections' ones.
//
// Constants record:  sphere     3: [0] n, [1] a F, [2] rho0
//                    ellipsoid 21: [0] n, [1] a F, [2] rho0, [3..18] conformal-latitude block,
//                                  [19..20] zero
//                    limits: the Mercator or stereographic record for their parameters.
#include "projections/gx_projection_support.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr int kSphereCount = 3;
constexpr int kEllipsoidCount = 21;
constexpr int kBlockOffset = 3;

int constants_count(double e2) { return is_sphere(e2) ? kSphereCount : kEllipsoidCount; }

enum class Shape { Cone, Mercator, PolarStereographic, Undefined };

Shape shape_of(const double parms[16])
{
    const double phi1 = parms[slot::standard_parallel_1], phi2 = parms[slot::standard_parallel_2];
    const bool pole1 = at_pole(phi1), pole2 = at_pole(phi2);
    if (pole1 || pole2)
        return pole1 && pole2 && eq(phi1, phi2) ? Shape::PolarStereographic : Shape::Undefined;
    return eq(phi1, -phi2) ? Shape::Mercator : Shape::Cone;
}

// ---- the cone ----------------------------------------------------------------------------

// tan(pi/4 - chi/2) of a latitude; chi = phi on the sphere (null block).
double lambert_t(double e2, const double *chi_block, double phi)
{
    const double chi = chi_block ? gx_phi_to_chi_wconst(e2, phi, chi_block) : phi;
    return std::tan(kQuarterPi - chi / 2.0);
}

int cone_constants(const double sphere[2], const double parms[16], double *values)
{
    const double a = sphere[0], e2 = sphere[1];
    const double phi1 = parms[slot::standard_parallel_1], phi2 = parms[slot::standard_parallel_2];
    double *block = is_sphere(e2) ? nullptr : values + kBlockOffset;
    if (block != nullptr)
        gx_chi_conformal_constants(e2, block, 0);
    const double m1 = std::cos(phi1) / gx_w(e2, phi1), m2 = std::cos(phi2) / gx_w(e2, phi2);
    const double t1 = lambert_t(e2, block, phi1), t2 = lambert_t(e2, block, phi2);
    const double t0 = std::fabs(lambert_t(e2, block, parms[slot::latitude_of_origin]));
    const double n = eq(phi1, phi2) ? std::sin(phi1)
                                    : (std::log(m1) - std::log(m2)) / (std::log(t1) - std::log(t2));
    const double a_f = a * m1 / (n * std::pow(t1, n));
    values[0] = n;
    values[1] = a_f;
    values[2] = a_f * std::pow(t0, n);
    if (block == nullptr)
        return kSphereCount;
    values[kBlockOffset + GX_CHI_BLOCK_LEN] = 0.0;
    values[kBlockOffset + GX_CHI_BLOCK_LEN + 1] = 0.0;
    return kEllipsoidCount;
}

class LambertCone {
public:
    LambertCone(const double sphere[2], const double parms[16], const int *ivals,
                const double *dvals)
        : e2_(sphere[1]), lam0_(parms[slot::central_meridian]), k0_(parms[slot::scale_factor])
    {
        const double *values = given_constants(ivals, dvals, constants_count(e2_));
        if (values == nullptr) {
            cone_constants(sphere, parms, local_);
            values = local_;
        }
        n_ = values[0];
        a_f_ = values[1];
        rho0_ = values[2];
        chi_block_ = is_sphere(e2_) ? nullptr : values + kBlockOffset;
    }

    void forward(double *point) const
    {
        const double t = lambert_t(e2_, chi_block_, pull_in_pole(point[1]));
        const double rho = a_f_ * std::pow(t, n_);
        const double theta = n_ * gx_delta(point[0] - lam0_);
        point[0] = k0_ * rho * std::sin(theta);
        point[1] = k0_ * (rho0_ - rho * std::cos(theta));
    }

    void inverse(double *point) const
    {
        const double sign = n_ < 0.0 ? -1.0 : 1.0;
        const double dx = sign * point[0] / k0_, dy = sign * (rho0_ - point[1] / k0_);
        const double rho = sign * std::hypot(dx, dy);
        const double t = std::pow(rho / a_f_, 1.0 / n_);
        const double chi = kHalfPi - 2.0 * std::atan(t);
        point[0] = gx_delta(std::atan2(dx, dy) / n_ + lam0_);
        point[1] = chi_block_ ? gx_chi_to_phi_wconst(e2_, chi, chi_block_) : chi;
    }

private:
    double e2_, lam0_, k0_, n_ = 0.0, a_f_ = 0.0, rho0_ = 0.0;
    const double *chi_block_ = nullptr;
    double local_[kEllipsoidCount] = {};
};

// ---- the limits --------------------------------------------------------------------------

// A projection the cone delegates to, with its own parameters, and the northing of the cone's
// origin in it, which the cone's northings are counted from.
class Limit {
public:
    Limit(Shape shape, const double sphere[2], const double parms[16], const int *ivals,
          const double *dvals)
        : sphere_(sphere), ivals_(ivals), dvals_(dvals)
    {
        for (double &p : parms_)
            p = 0.0;
        if (shape == Shape::Mercator) {
            // the false offsets, the central meridian and the standard parallel
            for (int i = 0; i <= slot::standard_parallel_1; ++i)
                parms_[i] = parms[i];
            forward_ = gx_mercator_fwd;
            inverse_ = gx_mercator_inv;
            constants_ = gx_mercator_const;
            scale_ = parms[slot::scale_factor];
        } else {
            for (int i = 0; i < gx::parameter_slots; ++i)
                parms_[i] = parms[i];
            parms_[slot::latitude_of_origin] = parms[slot::standard_parallel_1];
            forward_ = gx_stereographic_fwd;
            inverse_ = gx_stereographic_inv;
            constants_ = gx_stereographic_const;
        }
        const double phi0 = parms[slot::latitude_of_origin];
        if (!eq(phi0, parms_[slot::latitude_of_origin])) {
            double origin[2] = {parms[slot::central_meridian], phi0};
            origin_ok_ = forward_(sphere_, parms_, 1, origin, ivals_, dvals_) == 1;
            origin_northing_ = origin[1];
        }
    }

    int forward(int n, double *coords) const
    {
        if (!origin_ok_)
            return fail_all(n, coords);
        const int converted = forward_(sphere_, parms_, n, coords, ivals_, dvals_);
        for (int i = 0; i < n; ++i) {
            coords[2 * i] *= scale_;
            coords[2 * i + 1] = (coords[2 * i + 1] - origin_northing_) * scale_;
        }
        return converted;
    }

    int inverse(int n, double *coords) const
    {
        if (!origin_ok_)
            return fail_all(n, coords);
        for (int i = 0; i < n; ++i) {
            coords[2 * i] /= scale_;
            coords[2 * i + 1] = coords[2 * i + 1] / scale_ + origin_northing_;
        }
        return inverse_(sphere_, parms_, n, coords, ivals_, dvals_);
    }

    int constants(gx_constants *container) const { return constants_(container, sphere_, parms_); }

private:
    // The cone's origin has no image (the pole opposite a polar stereographic projection):
    // no point can be given a northing.
    static int fail_all(int n, double *coords)
    {
        for (int i = 0; i < n; ++i)
            mark_failed(&coords[2 * i]);
        return 0;
    }

    const double *sphere_;
    const int *ivals_;
    const double *dvals_;
    double parms_[gx::parameter_slots];
    gx_prj_rtn forward_ = nullptr, inverse_ = nullptr;
    gx_pcsconst_rtn constants_ = nullptr;
    double scale_ = 1.0; // k0 of the Mercator limit; stereographic carries its own
    double origin_northing_ = 0.0;
    bool origin_ok_ = true;
};

} // namespace

extern "C" {

GX_API int gx_lambert_conformal_conic_const(gx_constants *constants, const double sphere[2],
                                            const double parms[16])
{
    const Shape shape = shape_of(parms);
    if (shape == Shape::Undefined)
        return 0;
    if (shape != Shape::Cone)
        return Limit(shape, sphere, parms, nullptr, nullptr).constants(constants);
    double values[kEllipsoidCount];
    return store_constants(constants, values, cone_constants(sphere, parms, values));
}

GX_API int gx_lambert_conformal_conic_fwd(const double sphere[2], const double parms[16], int n,
                                          double *coords, const int *ivals, const double *dvals)
{
    const Shape shape = shape_of(parms);
    if (shape == Shape::Undefined || n <= 0)
        return 0;
    if (shape != Shape::Cone)
        return Limit(shape, sphere, parms, ivals, dvals).forward(n, coords);
    const LambertCone cone(sphere, parms, ivals, dvals);
    return convert_points(n, coords, [&](double *p) { cone.forward(p); });
}

GX_API int gx_lambert_conformal_conic_inv(const double sphere[2], const double parms[16], int n,
                                          double *coords, const int *ivals, const double *dvals)
{
    const Shape shape = shape_of(parms);
    if (shape == Shape::Undefined || n <= 0)
        return 0;
    if (shape != Shape::Cone)
        return Limit(shape, sphere, parms, ivals, dvals).inverse(n, coords);
    const LambertCone cone(sphere, parms, ivals, dvals);
    return convert_points(n, coords, [&](double *p) { cone.inverse(p); });
}

} // extern "C"
