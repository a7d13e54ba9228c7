// gx_projection_test_util.h -- shared pieces of the projection tests: the test ellipsoids, a
// projection under test (its three routines, sphere and parameters, with and without its
// constants), PROJ as the oracle, point grids, and the worst differences seen.
#ifndef GX_TEST_PROJECTIONS_UTIL_H
#define GX_TEST_PROJECTIONS_UTIL_H

#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#ifdef GX_HAVE_PROJ
#include <proj.h>
#define GX_REQUIRE_PROJ() (void)0
#else
#define GX_REQUIRE_PROJ() GTEST_SKIP() << "PROJ is not available: the comparison with it is skipped"
#endif

namespace gxtest {

constexpr double kDeg = 3.14159265358979323846 / 180.0;
constexpr double kForwardTol = 1e-3;   // metres
constexpr double kRoundTripTol = 1e-4; // metres

struct Ellipsoid {
    const char *name;
    double a;
    double e2;
};

inline double e2_from_rf(double rf)
{
    const double f = 1.0 / rf;
    return (2.0 - f) * f;
}

// GRS80, Clarke 1866, Bessel 1841, a sphere, and a flattened one whose e2 lies above the series
// threshold (the auxiliary latitudes then go through their closed forms and iterations).
inline const std::vector<Ellipsoid> &ellipsoids()
{
    static const std::vector<Ellipsoid> list = {
        {"GRS80", 6378137.0, e2_from_rf(298.257222101)},
        {"Clarke1866", 6378206.4, 1.0 - (6356583.8 / 6378206.4) * (6356583.8 / 6378206.4)},
        {"Bessel", 6377397.155, e2_from_rf(299.1528128)},
        {"sphere", 6371000.0, 0.0},
        {"e2=0.01", 6378137.0, 0.01},
    };
    return list;
}

inline std::string proj_ellipsoid(const Ellipsoid &e)
{
    char buf[96];
    if (e.e2 == 0.0)
        std::snprintf(buf, sizeof buf, " +R=%.17g", e.a);
    else
        std::snprintf(buf, sizeof buf, " +a=%.17g +es=%.17g", e.a, e.e2);
    return buf;
}

// 16 parameter slots from {slot, value} pairs; angles given in degrees for the angle slots.
struct Parms {
    double v[16] = {};
    Parms(std::initializer_list<std::pair<int, double>> slots)
    {
        v[5] = 1.0; // scale factor: the driver's default
        for (const auto &[slot, value] : slots) {
            const bool angle =
                slot == 2 || slot == 3 || slot == 4 || slot == 6 || slot == 10 || slot == 11;
            v[slot] = angle ? value * kDeg : value;
        }
    }
};

struct Routines {
    gx_prj_rtn fwd;
    gx_prj_rtn inv;
    gx_pcsconst_rtn cst; // null for a projection without a constants setup
};

#define GX_ROUTINES(stem)                                                                          \
    gxtest::Routines { gx_##stem##_fwd, gx_##stem##_inv, gx_##stem##_const }
#define GX_PER_CALL_ROUTINES(stem)                                                                 \
    gxtest::Routines { gx_##stem##_fwd, gx_##stem##_inv, nullptr }

// A projection under test: runs each routine with the constants its setup stored and without.
class Subject {
public:
    Subject(Routines r, const Ellipsoid &e, const Parms &p) : r_(r)
    {
        sphere_[0] = e.a;
        sphere_[1] = e.e2;
        std::memcpy(parms_, p.v, sizeof parms_);
        constants_ = gx_constants_new();
        count_ = r_.cst ? r_.cst(constants_, sphere_, parms_) : 0;
    }
    ~Subject() { gx_constants_del(constants_); }
    Subject(const Subject &) = delete;
    Subject &operator=(const Subject &) = delete;

    int constants_count() const { return count_; }
    bool has_setup() const { return r_.cst != nullptr; }
    const double *dvals() const { return count_ ? gx_constants_dvals(constants_) : nullptr; }
    const int *ivals() const { return count_ ? gx_constants_ivals(constants_) : nullptr; }

    int fwd(std::vector<double> &xy, bool with_constants = true) const
    {
        return r_.fwd(sphere_, parms_, int(xy.size() / 2), xy.data(),
                      with_constants ? ivals() : nullptr, with_constants ? dvals() : nullptr);
    }
    int inv(std::vector<double> &xy, bool with_constants = true) const
    {
        return r_.inv(sphere_, parms_, int(xy.size() / 2), xy.data(),
                      with_constants ? ivals() : nullptr, with_constants ? dvals() : nullptr);
    }

private:
    Routines r_;
    double sphere_[2];
    double parms_[16];
    gx_constants *constants_;
    int count_ = 0;
};

// (longitude, latitude) pairs in radians on a grid of n x n points over the given degrees.
inline std::vector<double> grid(double lon_lo, double lon_hi, double lat_lo, double lat_hi,
                                int n = 25)
{
    std::vector<double> xy;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            xy.push_back((lon_lo + (lon_hi - lon_lo) * i / (n - 1)) * kDeg);
            xy.push_back((lat_lo + (lat_hi - lat_lo) * j / (n - 1)) * kDeg);
        }
    return xy;
}

// The distance in metres between two geographic points close to each other.
inline double ground_distance(double a, double lam1, double phi1, double lam2, double phi2)
{
    const double dlam = std::remainder(lam1 - lam2, 2.0 * 3.14159265358979323846);
    return a * std::hypot(phi1 - phi2, dlam * std::cos(phi1));
}

inline bool bitwise_equal(const std::vector<double> &u, const std::vector<double> &v)
{
    return u.size() == v.size() && std::memcmp(u.data(), v.data(), u.size() * sizeof(double)) == 0;
}

// The same numbers (0 and -0 alike, NaN where the other has NaN).
inline bool same_values(const std::vector<double> &u, const std::vector<double> &v)
{
    if (u.size() != v.size())
        return false;
    for (size_t i = 0; i < u.size(); ++i)
        if (!(u[i] == v[i] || (std::isnan(u[i]) && std::isnan(v[i]))))
            return false;
    return true;
}

// Worst difference seen, printed when the test ends next to the bound it asserts.
class Worst {
public:
    explicit Worst(std::string what) : what_(std::move(what)) {}
    ~Worst()
    {
        std::printf("[ worst    ] %-52s %.3g m at %s\n", what_.c_str(), err_, where_.c_str());
    }
    void add(double err, const std::string &where)
    {
        if (err > err_ || std::isnan(err)) {
            err_ = err;
            where_ = where;
        }
    }
    double value() const { return err_; }

private:
    std::string what_, where_ = "-";
    double err_ = 0.0;
};

inline std::string where(const char *label, const Ellipsoid &e, double lam, double phi)
{
    char buf[160];
    std::snprintf(buf, sizeof buf, "%s %s (%.2f, %.2f)", label, e.name, lam / kDeg, phi / kDeg);
    return buf;
}

#ifdef GX_HAVE_PROJ
// A PROJ operation on radians and metres, e.g. "+proj=lcc +lat_1=33 +lat_2=45 +a=.. +es=..".
class Oracle {
public:
    explicit Oracle(const std::string &definition)
    {
        ctx_ = proj_context_create();
        pj_ = proj_create(ctx_, definition.c_str());
    }
    ~Oracle()
    {
        proj_destroy(pj_);
        proj_context_destroy(ctx_);
    }
    Oracle(const Oracle &) = delete;
    Oracle &operator=(const Oracle &) = delete;
    bool ok() const { return pj_ != nullptr; }
    // Forward of (lambda, phi) in radians; false when PROJ refuses the point.
    bool fwd(double lam, double phi, double *x, double *y) const
    {
        const PJ_COORD c = proj_trans(pj_, PJ_FWD, proj_coord(lam, phi, 0, 0));
        *x = c.xy.x;
        *y = c.xy.y;
        return std::isfinite(*x) && std::isfinite(*y) && std::fabs(*x) < 1e30;
    }

private:
    PJ_CONTEXT *ctx_ = nullptr;
    PJ *pj_ = nullptr;
};

// Compares a projection with PROJ over the points of xy (radians) whose forward PROJ accepts:
// the forward within 1 mm, the round trip within 0.1 mm, and the results with and without
// constants bit for bit.  Points that the routine fails (NaN) are skipped; returns how many
// points were compared.
inline int compare_with_proj(const Subject &s, const Oracle &oracle, const Ellipsoid &e,
                             const std::vector<double> &geo, Worst &fwd_worst, Worst &trip_worst,
                             const char *label)
{
    std::vector<double> xy = geo, xy_plain = geo;
    s.fwd(xy);
    s.fwd(xy_plain, false);
    EXPECT_TRUE(bitwise_equal(xy, xy_plain)) << label << " forward with and without constants";
    std::vector<double> back = xy, back_plain = xy;
    s.inv(back);
    s.inv(back_plain, false);
    EXPECT_TRUE(bitwise_equal(back, back_plain)) << label << " inverse with and without constants";
    int compared = 0;
    for (size_t i = 0; i < geo.size(); i += 2) {
        double px, py;
        if (std::isnan(xy[i]) || !oracle.fwd(geo[i], geo[i + 1], &px, &py))
            continue;
        ++compared;
        const std::string at = where(label, e, geo[i], geo[i + 1]);
        const double d_fwd = std::hypot(xy[i] - px, xy[i + 1] - py);
        const double d_trip = ground_distance(e.a, back[i], back[i + 1], geo[i], geo[i + 1]);
        fwd_worst.add(d_fwd, at);
        trip_worst.add(d_trip, at);
        EXPECT_LE(d_fwd, kForwardTol) << at;
        EXPECT_LE(d_trip, kRoundTripTol) << at;
    }
    return compared;
}

// One parameter set on every test ellipsoid: proj_args is PROJ's definition without the
// ellipsoid, e.g. "+proj=lcc +lat_1=33 +lat_2=45 +lat_0=23 +lon_0=-96".
inline void check_on_ellipsoids(Routines r, const Parms &p, const std::string &proj_args,
                                const std::vector<double> &geo, const char *label, Worst &fwd_worst,
                                Worst &trip_worst)
{
    for (const Ellipsoid &e : ellipsoids()) {
        const Subject s(r, e, p);
        if (s.has_setup()) {
            ASSERT_GT(s.constants_count(), 0) << label << " " << e.name;
        }
        const Oracle oracle(proj_args + proj_ellipsoid(e));
        ASSERT_TRUE(oracle.ok()) << proj_args;
        EXPECT_GT(compare_with_proj(s, oracle, e, geo, fwd_worst, trip_worst, label),
                  int(geo.size() / 4))
            << label << " " << e.name;
    }
}
#endif

} // namespace gxtest

#endif // GX_TEST_PROJECTIONS_UTIL_H
