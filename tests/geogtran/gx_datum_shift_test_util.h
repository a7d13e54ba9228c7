// gx_datum_shift_test_util.h -- shared pieces of the datum-shift tests: ellipsoids and published
// parameter sets, point clouds over each transformation's area, a method run on a copy of the
// points, PROJ as the oracle, and the worst differences seen.
#ifndef GX_TEST_GEOGTRAN_UTIL_H
#define GX_TEST_GEOGTRAN_UTIL_H

#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#ifdef GX_HAVE_PROJ
#include <proj.h>
#define GX_REQUIRE_PROJ() (void)0
#else
#define GX_REQUIRE_PROJ() GTEST_SKIP() << "PROJ is not available: the comparison with it is skipped"
#endif

namespace gxtest {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDeg = kPi / 180.0;
constexpr double kArcSec = 4.84813681109536e-6; // as the driver converts arc-seconds
constexpr double kSameFormulaTol = 1e-4;        // metres
constexpr double kOracleTol = 1e-3;             // metres

struct Ellipsoid {
    const char *name;
    double a, rf;
    double f() const { return 1.0 / rf; }
    double e2() const { return (2.0 - f()) * f(); }
    std::vector<double> pair() const { return {a, e2()}; }
    std::string proj() const
    {
        char buf[96];
        std::snprintf(buf, sizeof buf, " +a=%.17g +es=%.17g", a, e2());
        return buf;
    }
};

inline const Ellipsoid kWGS84{"WGS84", 6378137.0, 298.257223563};
inline const Ellipsoid kGRS80{"GRS80", 6378137.0, 298.257222101};
inline const Ellipsoid kIntl{"International 1924", 6378388.0, 297.0};
inline const Ellipsoid kBessel{"Bessel 1841", 6377397.155, 299.1528128};
inline const Ellipsoid kClarke66{"Clarke 1866", 6378206.4, 6378206.4 / (6378206.4 - 6356583.8)};

// The area of a transformation, in degrees.
struct Area {
    const char *name;
    double lon_lo, lon_hi, lat_lo, lat_hi;
};

inline const Area kEurope{"Europe", -10.0, 32.0, 35.0, 71.0};
inline const Area kJapan{"Japan", 128.0, 146.0, 30.0, 46.0};
inline const Area kNorthAmerica{"North America", -130.0, -60.0, 20.0, 60.0};
inline const Area kNetherlands{"Netherlands", 3.2, 7.3, 50.7, 53.6};
inline const Area kGlobe{"the globe", -180.0, 180.0, -89.5, 89.5};

// (longitude, latitude) pairs in radians on a 60 x 50 grid over the area, with heights that
// wander between -100 m and 4 km.
struct Cloud {
    std::vector<double> points, heights;
    int size() const { return static_cast<int>(heights.size()); }
};

inline Cloud cloud(const Area &area, int nlon = 60, int nlat = 50)
{
    Cloud c;
    for (int i = 0; i < nlon; ++i)
        for (int j = 0; j < nlat; ++j) {
            c.points.push_back((area.lon_lo + (area.lon_hi - area.lon_lo) * i / (nlon - 1)) * kDeg);
            c.points.push_back((area.lat_lo + (area.lat_hi - area.lat_lo) * j / (nlat - 1)) * kDeg);
            c.heights.push_back(1950.0 + 2050.0 * std::sin(0.37 * i + 1.1 * j));
        }
    return c;
}

// Runs a method on a copy of the cloud; without heights when with_heights is false.
inline Cloud run(gx_mth_rtn method, const Ellipsoid &e1, const Ellipsoid &e2,
                 const double parms[16], Cloud c, bool with_heights = true)
{
    const std::vector<double> p1 = e1.pair(), p2 = e2.pair();
    const int done = method(p1.data(), p2.data(), parms, nullptr, c.size(), c.points.data(),
                            with_heights ? c.heights.data() : nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(done, c.size());
    return c;
}

// The distance in metres between two geographic points close to each other.
inline double ground_distance(double a, double lam1, double phi1, double lam2, double phi2)
{
    const double dlam = std::remainder(lam1 - lam2, 2.0 * kPi);
    return a * std::hypot(phi1 - phi2, dlam * std::cos(phi1));
}

// Worst difference seen, printed when the test ends next to the bound it asserts.
struct Worst {
    std::string what;
    double value = 0.0, lam = 0.0, phi = 0.0;
    ~Worst()
    {
        std::printf("[ worst    ] %-58s %.3g m at (%.3f, %.3f)\n", what.c_str(), value, lam / kDeg,
                    phi / kDeg);
    }
    void add(double err, double at_lam, double at_phi)
    {
        if (err > value || std::isnan(err))
            value = err, lam = at_lam, phi = at_phi;
    }
};

// Compares two clouds point by point (horizontal and, when both carry them, vertical).
inline void compare(Worst &worst, const Cloud &got, const Cloud &want, double a,
                    bool heights = true)
{
    for (int i = 0; i < got.size(); ++i) {
        const double lam = want.points[2 * i], phi = want.points[2 * i + 1];
        double err = ground_distance(a, got.points[2 * i], got.points[2 * i + 1], lam, phi);
        if (heights)
            err = std::hypot(err, got.heights[i] - want.heights[i]);
        worst.add(err, lam, phi);
    }
}

#ifdef GX_HAVE_PROJ
// A PROJ operation on (radians, radians, metres).
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

    // The cloud through the operation; the heights are 0 in and dropped out when absent.
    Cloud run(Cloud c, PJ_DIRECTION direction, bool with_heights = true) const
    {
        for (int i = 0; i < c.size(); ++i) {
            const double h = with_heights ? c.heights[i] : 0.0;
            const PJ_COORD r =
                proj_trans(pj_, direction, proj_coord(c.points[2 * i], c.points[2 * i + 1], h, 0));
            c.points[2 * i] = r.lpz.lam;
            c.points[2 * i + 1] = r.lpz.phi;
            if (with_heights)
                c.heights[i] = r.lpz.z;
        }
        return c;
    }

private:
    PJ_CONTEXT *ctx_ = nullptr;
    PJ *pj_ = nullptr;
};
#endif

} // namespace gxtest

#endif
