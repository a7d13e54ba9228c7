// gx_math_test_util.h -- shared pieces of the ellipsoid and complex mathematics tests: the test
// ellipsoids, degree conversion, worst-case bookkeeping printed at the end of a test, and an
// independent long-double meridian-arc oracle (Gauss-Legendre quadrature).
#ifndef GX_TEST_PROJECTION_MATH_UTIL_H
#define GX_TEST_PROJECTION_MATH_UTIL_H

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace gxtest {

struct Ellipsoid {
    const char *name;
    double a;
    double e2;
};

constexpr double kWgs84E2 = 0.0066943799901413165; // f = 1/298.257223563
constexpr double kClarke1866E2 = 0.006768657997291094;
inline const std::vector<Ellipsoid> &test_ellipsoids()
{
    static const std::vector<Ellipsoid> list = {
        {"WGS84", 6378137.0, kWgs84E2},
        {"Clarke1866", 6378206.4, kClarke1866E2},
        {"sphere", 6371000.0, 0.0},
        {"e2=0.0069 (closed forms)", 6378137.0, 0.0069},
    };
    return list;
}

// Flattening from e2 without cancellation: f = 1 - sqrt(1 - e2) = e2 / (1 + sqrt(1 - e2)).
inline double flattening(double e2) { return e2 / (1.0 + std::sqrt(1.0 - e2)); }

constexpr double kDeg = 3.14159265358979323846 / 180.0;

// Worst absolute error seen, with the argument where it happened; printed on destruction so
// that a test run reports the measured accuracy next to the bound it asserts.
class Worst {
public:
    explicit Worst(std::string what, std::string unit = "")
        : what_(std::move(what)), unit_(std::move(unit))
    {}
    ~Worst()
    {
        std::printf("[ worst    ] %-58s %.3g%s at %s\n", what_.c_str(), err_, unit_.c_str(),
                    where_.c_str());
    }
    double add(double err, const std::string &where)
    {
        if (err > err_ || std::isnan(err)) {
            err_ = err;
            where_ = where;
        }
        return err;
    }
    double value() const { return err_; }

private:
    std::string what_, unit_, where_ = "-";
    double err_ = 0.0;
};

inline std::string fmt(const char *f, double a, double b = 0.0, double c = 0.0)
{
    char buf[160];
    std::snprintf(buf, sizeof buf, f, a, b, c);
    return buf;
}

// Meridian arc a(1 - e2) * integral_0^phi (1 - e2 sin^2 t)^(-3/2) dt in long double by composite
// 20-point Gauss-Legendre quadrature (nodes found by Newton's method in long double).
inline long double meridian_arc_ld(long double a, long double e2, long double phi)
{
    static std::vector<long double> x, w;
    constexpr int n = 20;
    if (x.empty()) {
        const long double pi = 3.141592653589793238462643383279502884L;
        for (int i = 1; i <= n; ++i) {
            long double z = std::cos(pi * (i - 0.25L) / (n + 0.5L)), pp = 0;
            for (int it = 0; it < 100; ++it) {
                long double p1 = 1, p2 = 0;
                for (int j = 1; j <= n; ++j) {
                    const long double p3 = p2;
                    p2 = p1;
                    p1 = ((2 * j - 1) * z * p2 - (j - 1) * p3) / j;
                }
                pp = n * (z * p1 - p2) / (z * z - 1);
                const long double z1 = z;
                z = z1 - p1 / pp;
                if (std::fabs(z - z1) < 1e-19L)
                    break;
            }
            x.push_back(z);
            w.push_back(2 / ((1 - z * z) * pp * pp));
        }
    }
    constexpr int pieces = 8;
    long double sum = 0;
    const long double h = phi / pieces;
    for (int k = 0; k < pieces; ++k) {
        const long double mid = (k + 0.5L) * h;
        for (int i = 0; i < n; ++i) {
            const long double t = mid + 0.5L * h * x[i];
            const long double s = std::sin(t);
            const long double wt = 1 - e2 * s * s;
            sum += w[i] / (wt * std::sqrt(wt));
        }
    }
    return a * (1 - e2) * sum * 0.5L * h;
}

} // namespace gxtest

#endif
