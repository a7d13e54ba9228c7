// Conformal, authalic and rectifying latitudes with their constant blocks; isometric and
// geocentric latitudes.
#include "gridex.h"
#include "projection/gx_math.h"
#include "gx_math_test_util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#ifdef GX_HAVE_GEOGRAPHICLIB
#include <GeographicLib/Ellipsoid.hpp>
#endif

using namespace gxtest;

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kThreshold = 0.006884661117170036;
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// Test latitudes in degrees: a 0.01 degree grid over [-90, 90] and points closing in on the poles.
const std::vector<double> &latitudes_deg()
{
    static const std::vector<double> list = [] {
        std::vector<double> v;
        for (int i = -9000; i <= 9000; ++i)
            v.push_back(i * 0.01);
        for (int k = 1; k <= 12; ++k) {
            v.push_back(90 - std::pow(10.0, -k));
            v.push_back(-90 + std::pow(10.0, -k));
            v.push_back(std::pow(10.0, -k));
        }
        return v;
    }();
    return list;
}

struct Kind {
    const char *name;
    int len;
    void (*constants)(double, double *, int);
    double (*fwd)(double, double, const double *);
    double (*inv)(double, double, const double *);
    double (*fwd1)(double, double);
    double (*inv1)(double, double);
};

const Kind kKinds[] = {
    {"conformal", GX_CHI_BLOCK_LEN, gx_chi_conformal_constants, gx_phi_to_chi_wconst,
     gx_chi_to_phi_wconst, gx_phi_to_chi, gx_chi_to_phi},
    {"authalic", GX_BETA_BLOCK_LEN, gx_beta_authalic_constants, gx_phi_to_beta_wconst,
     gx_beta_to_phi_wconst, gx_phi_to_beta, gx_beta_to_phi},
    {"rectifying", GX_MU_BLOCK_LEN, gx_mu_rectifying_constants, gx_phi_to_mu_wconst,
     gx_mu_to_phi_wconst, gx_phi_to_mu, gx_mu_to_phi},
};

TEST(AuxLatitude, GuardsReturnTheInput)
{
    for (const Kind &k : kKinds) {
        for (double e2 : {kWgs84E2, 0.0069}) {
            double block[GX_BETA_BLOCK_LEN];
            k.constants(e2, block, 0);
            for (double lat : {kHalfPi, -kHalfPi, 0.0, 1.570796326794891, -1.570796326794891}) {
                EXPECT_EQ(k.fwd(e2, lat, block), lat) << k.name << " " << e2 << " " << lat;
                EXPECT_EQ(k.inv(e2, lat, block), lat) << k.name << " " << e2 << " " << lat;
            }
        }
        double block[GX_BETA_BLOCK_LEN];
        k.constants(0.0, block, 0);
        EXPECT_EQ(k.fwd(0.0, 0.7, block), 0.7) << k.name;
        EXPECT_EQ(k.inv(0.0, -0.7, block), -0.7) << k.name;
        EXPECT_EQ(k.fwd1(1e-16, 0.7), 0.7) << k.name; // below 2^-48: a sphere
    }
}

TEST(AuxLatitude, BlockLayoutAndFlags)
{
    // flags 0: every slot.  Below the threshold a flag computes only its series half; at or
    // above it only the closed-form slots.  Slots not asked for are left as they were.
    for (const Kind &k : kKinds) {
        for (double e2 : {kWgs84E2, 0.0069}) {
            const bool series = e2 < kThreshold;
            std::vector<double> all(k.len + 1, kNaN);
            k.constants(e2, all.data(), 0);
            for (int i = 0; i < k.len; ++i)
                EXPECT_FALSE(std::isnan(all[i])) << k.name << " slot " << i;
            EXPECT_TRUE(std::isnan(all[k.len])) << k.name << ": wrote past the block";
            for (int flags : {1, 2, 3}) {
                std::vector<double> b(k.len + 1, kNaN);
                k.constants(e2, b.data(), flags);
                for (int i = 0; i <= k.len; ++i) {
                    const bool want =
                        i < k.len &&
                        (series ? ((i < 7 && (flags & 1)) || (i >= 7 && i < 14 && (flags & 2)))
                                : i >= 14);
                    if (want)
                        EXPECT_EQ(b[i], all[i]) << k.name << " flags " << flags << " slot " << i;
                    else
                        EXPECT_TRUE(std::isnan(b[i]))
                            << k.name << " flags " << flags << " slot " << i;
                }
            }
        }
    }
}

TEST(AuxLatitude, AgainstGeographicLib)
{
#ifndef GX_HAVE_GEOGRAPHICLIB
    GTEST_SKIP() << "GeographicLib not found at configure time: oracle comparison not built";
#else
    using GeographicLib::Ellipsoid;
    using Member = double (Ellipsoid::*)(double) const;
    struct Ref {
        Member fwd, inv;
    };
    const Ref refs[] = {{&Ellipsoid::ConformalLatitude, &Ellipsoid::InverseConformalLatitude},
                        {&Ellipsoid::AuthalicLatitude, &Ellipsoid::InverseAuthalicLatitude},
                        {&Ellipsoid::RectifyingLatitude, &Ellipsoid::InverseRectifyingLatitude}};
    for (int kind = 0; kind < 3; ++kind) {
        const Kind &k = kKinds[kind];
        for (const auto &ell : test_ellipsoids()) {
            const Ellipsoid ref(ell.a, flattening(ell.e2));
            std::vector<double> block(k.len);
            k.constants(ell.e2, block.data(), 0);
            Worst wf(std::string(k.name) + " phi->aux vs GeographicLib, " + ell.name, " rad");
            Worst wi(std::string(k.name) + " aux->phi vs GeographicLib, " + ell.name, " rad");
            for (double deg : latitudes_deg()) {
                const double lat = deg * kDeg;
                const std::string at = fmt("lat = %.14g deg", deg);
                const double fwd = k.fwd(ell.e2, lat, block.data());
                ASSERT_LE(wf.add(std::fabs(fwd - (ref.*refs[kind].fwd)(deg)*kDeg), at), 1e-14)
                    << k.name << " " << ell.name << " " << at;
                const double inv = k.inv(ell.e2, lat, block.data());
                ASSERT_LE(wi.add(std::fabs(inv - (ref.*refs[kind].inv)(deg)*kDeg), at), 1e-14)
                    << k.name << " " << ell.name << " " << at;
                // the one-off forms give the same numbers
                ASSERT_EQ(k.fwd1(ell.e2, lat), fwd) << k.name << " " << at;
                ASSERT_EQ(k.inv1(ell.e2, lat), inv) << k.name << " " << at;
            }
        }
    }
#endif
}

TEST(AuxLatitude, RoundTrips)
{
    for (const Kind &k : kKinds) {
        for (const auto &ell : test_ellipsoids()) {
            std::vector<double> block(k.len);
            k.constants(ell.e2, block.data(), 0);
            Worst w(std::string(k.name) + " round trip, " + ell.name, " rad");
            for (double deg : latitudes_deg()) {
                const double lat = deg * kDeg;
                const double back = k.inv(ell.e2, k.fwd(ell.e2, lat, block.data()), block.data());
                ASSERT_LE(w.add(std::fabs(back - lat), fmt("lat = %.14g deg", deg)), 1e-14)
                    << k.name << " " << ell.name << " " << deg;
            }
        }
    }
}

TEST(AuxLatitude, SeriesMeetsClosedFormAtThreshold)
{
    // The public functions switch at the threshold: just below it the series, at it the closed
    // forms.  Both sides must agree within 1e-12 rad; so must the series slots of a flags-0 block
    // computed at the threshold itself against the closed forms there.
    const double below = std::nextafter(kThreshold, 0.0);
    for (const Kind &k : kKinds) {
        std::vector<double> lo(k.len), hi(k.len);
        k.constants(below, lo.data(), 0);
        k.constants(kThreshold, hi.data(), 0);
        Worst wf(std::string(k.name) + " forward: series vs closed at the threshold", " rad");
        Worst wi(std::string(k.name) + " inverse: series vs closed at the threshold", " rad");
        for (int i = -9000; i <= 9000; i += 3) {
            const double lat = i * 0.01 * kDeg;
            const std::string at = fmt("lat = %.2f deg", i * 0.01);
            const double closed_f = k.fwd(kThreshold, lat, hi.data());
            const double closed_i = k.inv(kThreshold, lat, hi.data());
            ASSERT_LE(wf.add(std::fabs(k.fwd(below, lat, lo.data()) - closed_f), at), 1e-12)
                << k.name << at;
            ASSERT_LE(wi.add(std::fabs(k.inv(below, lat, lo.data()) - closed_i), at), 1e-12)
                << k.name << at;
            ASSERT_LE(wf.add(std::fabs(lat + gx::math::sine_series(hi.data(), lat) - closed_f),
                             at + " (same e2)"),
                      1e-12);
            ASSERT_LE(wi.add(std::fabs(lat + gx::math::sine_series(hi.data() + 7, lat) - closed_i),
                             at + " (same e2)"),
                      1e-12);
        }
    }
}

TEST(AuxLatitude, RectifyingNewtonEqualsTheLiteralIteration)
{
    // gx_mu_to_phi_wconst reads the 50th iterate off a two-cycle instead of iterating to it:
    // compare with the fixed-point iteration written out literally, bit for bit.
    for (double e2 : {kThreshold, 0.0069, 0.01, 0.08}) {
        double block[GX_MU_BLOCK_LEN];
        gx_mu_rectifying_constants(e2, block, 0);
        for (int i = -2000; i <= 2000; ++i) {
            const double mu = i * (kHalfPi / 2000.5);
            double phi = std::fabs(mu);
            const double target = std::fabs(mu) * block[15] / kHalfPi;
            for (int k = 0; k < 50; ++k) {
                const double s = std::sin(phi), c = std::cos(phi);
                const double w2 = 1 - e2 * s * s, w = std::sqrt(w2);
                const double step =
                    (gx::math::ellint2_amp(phi, e2) - block[14] * 2 * s * c / w - target) * w2 * w /
                    block[16];
                phi -= step;
                if (std::fabs(step) <= 1e-16)
                    break;
            }
            phi = std::copysign(phi, mu);
            if (mu == 0.0)
                phi = mu;
            ASSERT_EQ(gx_mu_to_phi_wconst(e2, mu, block), phi) << e2 << " " << mu;
        }
    }
}

TEST(AuxLatitude, IsometricAndGeocentric)
{
    for (const auto &ell : test_ellipsoids()) {
        Worst we(std::string("isometric round trip, ") + ell.name, " rad");
        Worst wg(std::string("geocentric round trip, ") + ell.name, " rad");
#ifdef GX_HAVE_GEOGRAPHICLIB
        const GeographicLib::Ellipsoid ref(ell.a, flattening(ell.e2));
        Worst wre(std::string("isometric latitude vs GeographicLib, ") + ell.name, " rad");
        Worst wrg(std::string("geocentric latitude vs GeographicLib, ") + ell.name, " rad");
#endif
        for (int i = -8999; i <= 8999; i += 7) {
            const double deg = i * 0.01, lat = deg * kDeg;
            const std::string at = fmt("lat = %.2f deg", deg);
            const double eta = gx_phi_to_eta(ell.e2, lat);
            ASSERT_LE(we.add(std::fabs(gx_eta_to_phi(ell.e2, eta) - lat), at), 1e-14) << at;
            const double phig = gx_phi_to_phig(ell.e2, lat);
            ASSERT_LE(wg.add(std::fabs(gx_phig_to_phi(ell.e2, phig) - lat), at), 1e-14) << at;
            // conformal latitude = gd(isometric latitude)
            EXPECT_NEAR(std::atan(std::sinh(eta)), gx_phi_to_chi(ell.e2, lat), 1e-14) << at;
#ifdef GX_HAVE_GEOGRAPHICLIB
            // eta has the condition number 1/cos(phi): one unit in the last place of the latitude
            // moves it by 2.2e-16/cos(phi)
            ASSERT_LE(wre.add(std::fabs(eta - ref.IsometricLatitude(deg) * kDeg), at),
                      1e-14 * std::fmax(1, std::fabs(eta)) + 1e-15 / std::cos(lat))
                << at;
            ASSERT_LE(wrg.add(std::fabs(phig - ref.GeocentricLatitude(deg) * kDeg), at), 1e-14)
                << at;
#endif
        }
        EXPECT_EQ(gx_phi_to_phig(ell.e2, 0.0), 0.0);
        EXPECT_EQ(gx_phi_to_eta(ell.e2, 0.0), 0.0);
        EXPECT_NEAR(gx_phi_to_phig(ell.e2, kHalfPi), kHalfPi, 1e-15);
    }
}

} // namespace
