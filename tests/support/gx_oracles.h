// gx_oracles.h -- what every test folder shares when it checks numbers: angle constants, the
// test ellipsoids, the ground distance between nearby points, the worst-case tracker that prints
// the measured accuracy next to the bound a test asserts, PROJ as an oracle, the skips for an
// absent oracle, and temporary data directories for grid files.
//
// The oracles are independent libraries (PROJ, GeographicLib) used by tests only; a test that
// needs one starts with GX_REQUIRE_PROJ() or GX_REQUIRE_GEOGRAPHICLIB(), which skip it with a
// message when the library was not found at configuration time.
#ifndef GX_TESTS_SUPPORT_GX_ORACLES_H
#define GX_TESTS_SUPPORT_GX_ORACLES_H

#include "gridex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#ifdef GX_HAVE_PROJ
#include <proj.h>
#define GX_REQUIRE_PROJ() (void)0
#else
#define GX_REQUIRE_PROJ()                                                                          \
    GTEST_SKIP() << "PROJ (Debian libproj-dev) is not available: the comparison with it is "       \
                    "skipped"
#endif

#ifdef GX_HAVE_GEOGRAPHICLIB
#define GX_REQUIRE_GEOGRAPHICLIB() (void)0
#else
#define GX_REQUIRE_GEOGRAPHICLIB()                                                                 \
    GTEST_SKIP() << "GeographicLib (Debian libgeographiclib-dev) is not available: the "           \
                    "comparison with it is skipped"
#endif

namespace gxtest {

constexpr double kPi = 3.14159265358979323846;
constexpr double kDeg = kPi / 180.0;
constexpr double kArcSec = 4.84813681109536e-6; // pi / 648000, as the drivers convert it

// ---- ellipsoids ---------------------------------------------------------------------------------

struct Ellipsoid {
    const char *name;
    double a;  // semi-major axis, metres
    double e2; // squared eccentricity
    double f() const { return e2 / (1.0 + std::sqrt(1.0 - e2)); }
    // PROJ's form of the same ellipsoid, " +a=... +es=...".
    std::string proj() const
    {
        char buf[96];
        std::snprintf(buf, sizeof buf, " +a=%.17g +es=%.17g", a, e2);
        return buf;
    }
};

constexpr double e2_from_rf(double rf) { return (2.0 - 1.0 / rf) / rf; }

inline const Ellipsoid kWGS84{"WGS84", 6378137.0, e2_from_rf(298.257223563)};
inline const Ellipsoid kGRS80{"GRS80", 6378137.0, e2_from_rf(298.257222101)};
inline const Ellipsoid kClarke1866{"Clarke1866", 6378206.4,
                                   1.0 - (6356583.8 / 6378206.4) * (6356583.8 / 6378206.4)};
inline const Ellipsoid kBessel{"Bessel", 6377397.155, e2_from_rf(299.1528128)};
inline const Ellipsoid kIntl1924{"International1924", 6378388.0, e2_from_rf(297.0)};
inline const Ellipsoid kSphere{"sphere", 6371000.0, 0.0};
// Flatter than any real ellipsoid: e2 above the series threshold, so the auxiliary latitudes go
// through their closed forms and iterations.
inline const Ellipsoid kFlattened{"e2=0.01", 6378137.0, 0.01};

// The ellipsoids a projection is checked on against PROJ.
inline const std::vector<Ellipsoid> &projection_ellipsoids()
{
    static const std::vector<Ellipsoid> list = {kGRS80,    kClarke1866, kBessel,
                                                kIntl1924, kSphere,     kFlattened};
    return list;
}

// ---- distances and worst cases ------------------------------------------------------------------

// The distance in metres between two geographic points (radians) close to each other.
inline double ground_distance(double a, double lam1, double phi1, double lam2, double phi2)
{
    const double dlam = std::remainder(lam1 - lam2, 2.0 * kPi);
    return a * std::hypot(phi1 - phi2, dlam * std::cos(phi1));
}

// Worst difference seen, printed when the test ends next to the bound it asserts:
//   [ worst    ] LCC forward on GRS80                 1.4e-08 m at (12.00, 45.00)
class Worst {
public:
    explicit Worst(std::string what, std::string unit = " m")
        : what_(std::move(what)), unit_(std::move(unit))
    {}
    ~Worst()
    {
        std::printf("[ worst    ] %-58s %.3g%s at %s\n", what_.c_str(), err_, unit_.c_str(),
                    where_.c_str());
    }
    Worst(const Worst &) = delete;
    Worst &operator=(const Worst &) = delete;
    // Records err (NaN counts as worst of all) and returns it.
    double add(double err, const std::string &where)
    {
        if (err > err_ || std::isnan(err)) {
            err_ = err;
            where_ = where;
        }
        return err;
    }
    double add(double err, double lam, double phi) { return add(err, at(lam, phi)); }
    double value() const { return err_; }

    // "(lon, lat)" of a point in radians, in degrees.
    static std::string at(double lam, double phi)
    {
        char buf[64];
        std::snprintf(buf, sizeof buf, "(%.4f, %.4f)", lam / kDeg, phi / kDeg);
        return buf;
    }

private:
    std::string what_, unit_, where_ = "-";
    double err_ = 0.0;
};

// ---- PROJ ---------------------------------------------------------------------------------------

#ifdef GX_HAVE_PROJ
// A PROJ operation from a definition string ("+proj=lcc +lat_1=33 ..." or a pipeline), in PROJ's
// own units for it (radians and metres for a +proj string).  Coordinates PROJ refuses come back
// as HUGE_VAL, which ok_point() tells.
class ProjOracle {
public:
    explicit ProjOracle(const std::string &definition)
        : ctx_(proj_context_create()), pj_(proj_create(ctx_, definition.c_str()))
    {}
    ~ProjOracle()
    {
        proj_destroy(pj_);
        proj_context_destroy(ctx_);
    }
    ProjOracle(const ProjOracle &) = delete;
    ProjOracle &operator=(const ProjOracle &) = delete;

    bool ok() const { return pj_ != nullptr; }
    PJ *get() const { return pj_; }

    PJ_COORD trans(PJ_DIRECTION direction, double x, double y, double z = 0.0) const
    {
        return proj_trans(pj_, direction, proj_coord(x, y, z, 0.0));
    }
    // Forward of (x, y) into (*u, *v); false when PROJ refuses the point.
    bool fwd(double x, double y, double *u, double *v) const
    {
        const PJ_COORD c = trans(PJ_FWD, x, y);
        *u = c.xy.x;
        *v = c.xy.y;
        return ok_point(*u, *v);
    }
    bool inv(double x, double y, double *u, double *v) const
    {
        const PJ_COORD c = trans(PJ_INV, x, y);
        *u = c.xy.x;
        *v = c.xy.y;
        return ok_point(*u, *v);
    }
    static bool ok_point(double u, double v)
    {
        return std::isfinite(u) && std::isfinite(v) && std::fabs(u) < 1e30 && std::fabs(v) < 1e30;
    }

private:
    PJ_CONTEXT *ctx_;
    PJ *pj_;
};
#endif

// ---- data directories ---------------------------------------------------------------------------

// The folder of Debian's proj-data (grids, the EPSG database), or "" when it is not installed.
inline std::string proj_data_dir()
{
    const char *dir = "/usr/share/proj";
    return std::filesystem::exists(std::string(dir) + "/proj.db") ? dir : "";
}

#define GX_REQUIRE_PROJ_DATA()                                                                     \
    if (gxtest::proj_data_dir().empty())                                                           \
    GTEST_SKIP() << "proj-data (Debian package) is not installed: the test on its grids is "       \
                    "skipped"

// A fresh directory under the system's temporary folder, removed with everything in it when the
// object goes.  Used as a data directory (gx_datahome_setdir) holding grid files made or linked
// by a test.
class TempDir {
public:
    explicit TempDir(const std::string &stem = "gridex-test")
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / (stem + "-XXXXXX")).string();
        if (mkdtemp(pattern.data()) != nullptr)
            path_ = pattern;
    }
    ~TempDir()
    {
        std::error_code ignored;
        if (!path_.empty())
            std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;

    const std::string &path() const { return path_; }
    // A subfolder (made when missing), e.g. sub("ntv2").
    std::string sub(const std::string &name) const
    {
        const std::filesystem::path p = std::filesystem::path(path_) / name;
        std::filesystem::create_directories(p);
        return p.string();
    }
    // A symbolic link `folder`/`name` to `target` (a file of proj-data, say).
    std::string link(const std::string &folder, const std::string &name,
                     const std::string &target) const
    {
        const std::filesystem::path p = std::filesystem::path(sub(folder)) / name;
        std::filesystem::create_symlink(target, p);
        return p.string();
    }

private:
    std::string path_;
};

} // namespace gxtest

#endif // GX_TESTS_SUPPORT_GX_ORACLES_H
