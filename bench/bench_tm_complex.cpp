// The exact transverse Mercator (gx_tm_complex) on WGS84, UTM zone 33N parameters, forward and
// inverse on 1e5 points of the zone per iteration; items_per_second is points per second.  The
// series transverse Mercator (gx_gauss_kruger) runs on the same points for comparison.
#include "gridex.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

constexpr int kPoints = 100000;
constexpr double kDeg = 3.14159265358979323846 / 180.0;
constexpr double kWgs84[2] = {6378137.0, 0.0066943799901413165};
const double kParms[16] = {0, 0, 15 * kDeg, 0, 0, 0.9996, 0};

struct Routines {
    gx_prj_rtn fwd, inv;
    gx_pcsconst_rtn cst;
};

const Routines kExact = {gx_tm_complex_fwd, gx_tm_complex_inv, gx_tm_complex_const};
const Routines kSeries = {gx_gauss_kruger_fwd, gx_gauss_kruger_inv, gx_gauss_kruger_const};

// Longitudes 12..18 and latitudes -80..84 degrees, in radians.
const std::vector<double> &zone_points()
{
    static const std::vector<double> points = [] {
        std::mt19937_64 random(33);
        std::uniform_real_distribution<double> lon(12 * kDeg, 18 * kDeg);
        std::uniform_real_distribution<double> lat(-80 * kDeg, 84 * kDeg);
        std::vector<double> xy(2 * kPoints);
        for (int i = 0; i < kPoints; ++i) {
            xy[2 * i] = lon(random);
            xy[2 * i + 1] = lat(random);
        }
        return xy;
    }();
    return points;
}

void BM_Convert(benchmark::State &state, const Routines &r, bool forward)
{
    gx_constants *constants = gx_constants_new();
    r.cst(constants, kWgs84, kParms);
    const int *ivals = gx_constants_ivals(constants);
    const double *dvals = gx_constants_dvals(constants);
    std::vector<double> input = zone_points();
    if (!forward)
        r.fwd(kWgs84, kParms, kPoints, input.data(), ivals, dvals);
    const gx_prj_rtn routine = forward ? r.fwd : r.inv;
    std::vector<double> work(input.size());
    for (auto _ : state) {
        state.PauseTiming();
        work = input;
        state.ResumeTiming();
        benchmark::DoNotOptimize(routine(kWgs84, kParms, kPoints, work.data(), ivals, dvals));
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    gx_constants_del(constants);
}

} // namespace

BENCHMARK_CAPTURE(BM_Convert, tm_complex_forward, kExact, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Convert, tm_complex_inverse, kExact, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Convert, gauss_kruger_forward, kSeries, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Convert, gauss_kruger_inverse, kSeries, false)->Unit(benchmark::kMillisecond);
