// Latitude conversions with precomputed constant blocks: ns per call.  "series" is
// WGS84 (below the series threshold: one sine series), "closed" an ellipsoid with e2 = 0.0069
// (closed forms and iterations).  The one-off forms, which build their block on every call, are
// measured for comparison.
#include "gridex.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

constexpr double kWgs84E2 = 0.0066943799901413165;
constexpr double kClosedE2 = 0.0069;

const std::vector<double> &lats()
{
    static const std::vector<double> v = [] {
        std::vector<double> r;
        for (int i = 0; i < 1024; ++i)
            r.push_back((i - 511.5) / 512.0 * 1.55); // about +-88.8 deg
        return r;
    }();
    return v;
}

using Conv = double (*)(double, double, const double *);
using Consts = void (*)(double, double *, int);

void run(benchmark::State &state, Consts constants, Conv conv, double e2)
{
    double block[18];
    constants(e2, block, 0);
    const auto &v = lats();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(conv(e2, v[i], block));
        i = (i + 1) & 1023;
    }
    state.SetItemsProcessed(state.iterations());
}

void run_oneoff(benchmark::State &state, double (*conv)(double, double), double e2)
{
    const auto &v = lats();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(conv(e2, v[i]));
        i = (i + 1) & 1023;
    }
    state.SetItemsProcessed(state.iterations());
}

#define GX_AUXLAT_BENCH(name, consts, conv)                                                        \
    void BM_##name##_series(benchmark::State &s) { run(s, consts, conv, kWgs84E2); }               \
    void BM_##name##_closed(benchmark::State &s) { run(s, consts, conv, kClosedE2); }              \
    BENCHMARK(BM_##name##_series);                                                                 \
    BENCHMARK(BM_##name##_closed)

GX_AUXLAT_BENCH(phi_to_chi_wconst, gx_chi_conformal_constants, gx_phi_to_chi_wconst);
GX_AUXLAT_BENCH(chi_to_phi_wconst, gx_chi_conformal_constants, gx_chi_to_phi_wconst);
GX_AUXLAT_BENCH(phi_to_beta_wconst, gx_beta_authalic_constants, gx_phi_to_beta_wconst);
GX_AUXLAT_BENCH(beta_to_phi_wconst, gx_beta_authalic_constants, gx_beta_to_phi_wconst);
GX_AUXLAT_BENCH(phi_to_mu_wconst, gx_mu_rectifying_constants, gx_phi_to_mu_wconst);
GX_AUXLAT_BENCH(mu_to_phi_wconst, gx_mu_rectifying_constants, gx_mu_to_phi_wconst);

void BM_phi_to_chi_oneoff_series(benchmark::State &s) { run_oneoff(s, gx_phi_to_chi, kWgs84E2); }
void BM_mu_to_phi_oneoff_series(benchmark::State &s) { run_oneoff(s, gx_mu_to_phi, kWgs84E2); }
BENCHMARK(BM_phi_to_chi_oneoff_series);
BENCHMARK(BM_mu_to_phi_oneoff_series);

void BM_meridian_arc_series(benchmark::State &s)
{
    const auto &v = lats();
    std::size_t i = 0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(gx_q(6378137.0, kWgs84E2, v[i]));
        i = (i + 1) & 1023;
    }
}
void BM_meridian_arc_closed(benchmark::State &s)
{
    const auto &v = lats();
    std::size_t i = 0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(gx_q(6378137.0, kClosedE2, v[i]));
        i = (i + 1) & 1023;
    }
}
BENCHMARK(BM_meridian_arc_series);
BENCHMARK(BM_meridian_arc_closed);

} // namespace
