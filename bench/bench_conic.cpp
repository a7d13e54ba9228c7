// Lambert conformal conic and Mercator, forward and inverse on 1e6 points of the GRS80
// ellipsoid, next to PROJ's proj_trans_generic on the same points.  items_per_second is points
// per second.  Built only where PROJ's development files are installed.
#ifdef GX_HAVE_PROJ

#include "gridex.h"

#include <benchmark/benchmark.h>
#include <proj.h>

#include <random>
#include <vector>

namespace {

constexpr int kPoints = 1000000;
constexpr double kDeg = 3.14159265358979323846 / 180.0;
constexpr double kGrs80[2] = {6378137.0, 0.0066943800229007876};

struct Projection {
    const char *proj; // PROJ's definition of the same projection, radians in
    gx_prj_rtn fwd;
    gx_prj_rtn inv;
    gx_pcsconst_rtn cst;
    double parms[16];
};

const Projection kLambert = {"+proj=lcc +lat_1=33 +lat_2=45 +lat_0=23 +lon_0=-96 +ellps=GRS80",
                             gx_lambert_conformal_conic_fwd,
                             gx_lambert_conformal_conic_inv,
                             gx_lambert_conformal_conic_const,
                             {0, 0, -96 * kDeg, 33 * kDeg, 45 * kDeg, 1.0, 23 * kDeg}};

const Projection kMercator = {"+proj=merc +lon_0=-96 +ellps=GRS80",
                              gx_mercator_fwd,
                              gx_mercator_inv,
                              gx_mercator_const,
                              {0, 0, -96 * kDeg, 0, 0, 1.0}};

// 1e6 (longitude, latitude) pairs in radians over the conterminous United States.
const std::vector<double> &geographic_points()
{
    static const std::vector<double> points = [] {
        std::mt19937_64 random(20090226);
        std::uniform_real_distribution<double> lon(-126 * kDeg, -66 * kDeg),
            lat(20 * kDeg, 55 * kDeg);
        std::vector<double> xy(2 * kPoints);
        for (int i = 0; i < kPoints; ++i) {
            xy[2 * i] = lon(random);
            xy[2 * i + 1] = lat(random);
        }
        return xy;
    }();
    return points;
}

// The input of a run: geographic points forward, their projected images inverse.
std::vector<double> input_points(const Projection &p, bool forward)
{
    std::vector<double> xy = geographic_points();
    if (!forward)
        p.fwd(kGrs80, p.parms, kPoints, xy.data(), nullptr, nullptr);
    return xy;
}

void BM_Gridex(benchmark::State &state, const Projection &p, bool forward)
{
    gx_constants *constants = gx_constants_new();
    p.cst(constants, kGrs80, p.parms);
    const int *ivals = gx_constants_ivals(constants);
    const double *dvals = gx_constants_dvals(constants);
    const gx_prj_rtn routine = forward ? p.fwd : p.inv;
    const std::vector<double> input = input_points(p, forward);
    std::vector<double> work(input.size());
    for (auto _ : state) {
        state.PauseTiming();
        work = input;
        state.ResumeTiming();
        benchmark::DoNotOptimize(routine(kGrs80, p.parms, kPoints, work.data(), ivals, dvals));
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    gx_constants_del(constants);
}

void BM_Proj(benchmark::State &state, const Projection &p, bool forward)
{
    PJ_CONTEXT *ctx = proj_context_create();
    PJ *pj = proj_create(ctx, p.proj);
    if (pj == nullptr) {
        state.SkipWithError("PROJ refused the definition");
        proj_context_destroy(ctx);
        return;
    }
    const std::vector<double> input = input_points(p, forward);
    std::vector<double> work(input.size());
    const size_t stride = 2 * sizeof(double);
    for (auto _ : state) {
        state.PauseTiming();
        work = input;
        state.ResumeTiming();
        benchmark::DoNotOptimize(proj_trans_generic(pj, forward ? PJ_FWD : PJ_INV, work.data(),
                                                    stride, kPoints, work.data() + 1, stride,
                                                    kPoints, nullptr, 0, 0, nullptr, 0, 0));
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    proj_destroy(pj);
    proj_context_destroy(ctx);
}

} // namespace

BENCHMARK_CAPTURE(BM_Gridex, lcc_forward, kLambert, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Proj, lcc_forward, kLambert, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Gridex, lcc_inverse, kLambert, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Proj, lcc_inverse, kLambert, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Gridex, mercator_forward, kMercator, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Proj, mercator_forward, kMercator, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Gridex, mercator_inverse, kMercator, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Proj, mercator_inverse, kMercator, false)->Unit(benchmark::kMillisecond);

#endif // GX_HAVE_PROJ
