// UTM zone 33N on WGS84, forward and inverse, a million points per iteration: points per second,
// side by side with PROJ's proj_trans_generic on the same points where PROJ is installed.
#include "gridex.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#ifdef GX_HAVE_PROJ
#include <proj.h>
#endif

namespace {

constexpr int point_count = 1000000;

const char *utm33 = "PROJCS[\"WGS_1984_UTM_Zone_33N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
                    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
                    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
                    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
                    "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
                    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

// Longitudes 12..18 and latitudes 0..84 degrees, as x, y pairs.
const std::vector<double> &zone_points()
{
    static const std::vector<double> points = [] {
        std::mt19937 random(33);
        std::uniform_real_distribution<double> lon(12.0, 18.0), lat(0.0, 84.0);
        std::vector<double> p(2 * point_count);
        for (int i = 0; i < point_count; ++i) {
            p[2 * i] = lon(random);
            p[2 * i + 1] = lat(random);
        }
        return p;
    }();
    return points;
}

void BM_GridexUtmForward(benchmark::State &state)
{
    gx_projcs *cs = gx_projcs_from_string(utm33);
    std::vector<double> points;
    for (auto _ : state) {
        state.PauseTiming();
        points = zone_points();
        state.ResumeTiming();
        benchmark::DoNotOptimize(gx_geog_to_proj(cs, point_count, points.data()));
    }
    state.SetItemsProcessed(state.iterations() * point_count);
    gx_projcs_del(cs);
}
BENCHMARK(BM_GridexUtmForward)->Unit(benchmark::kMillisecond);

void BM_GridexUtmInverse(benchmark::State &state)
{
    gx_projcs *cs = gx_projcs_from_string(utm33);
    std::vector<double> projected = zone_points();
    gx_geog_to_proj(cs, point_count, projected.data());
    std::vector<double> points;
    for (auto _ : state) {
        state.PauseTiming();
        points = projected;
        state.ResumeTiming();
        benchmark::DoNotOptimize(gx_proj_to_geog(cs, point_count, points.data()));
    }
    state.SetItemsProcessed(state.iterations() * point_count);
    gx_projcs_del(cs);
}
BENCHMARK(BM_GridexUtmInverse)->Unit(benchmark::kMillisecond);

#ifdef GX_HAVE_PROJ
// PROJ with the same definition: degrees in, metres out (axis order longitude, latitude).
void proj_utm(benchmark::State &state, PJ_DIRECTION direction)
{
    PJ_CONTEXT *context = proj_context_create();
    PJ *pj = proj_create(context, "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad "
                                  "+step +proj=utm +zone=33 +ellps=WGS84");
    std::vector<double> start = zone_points();
    if (direction == PJ_INV)
        proj_trans_generic(pj, PJ_FWD, start.data(), 2 * sizeof(double), point_count,
                           start.data() + 1, 2 * sizeof(double), point_count, nullptr, 0, 0,
                           nullptr, 0, 0);
    std::vector<double> points;
    for (auto _ : state) {
        state.PauseTiming();
        points = start;
        state.ResumeTiming();
        benchmark::DoNotOptimize(proj_trans_generic(
            pj, direction, points.data(), 2 * sizeof(double), point_count, points.data() + 1,
            2 * sizeof(double), point_count, nullptr, 0, 0, nullptr, 0, 0));
    }
    state.SetItemsProcessed(state.iterations() * point_count);
    proj_destroy(pj);
    proj_context_destroy(context);
}
void BM_ProjUtmForward(benchmark::State &state) { proj_utm(state, PJ_FWD); }
void BM_ProjUtmInverse(benchmark::State &state) { proj_utm(state, PJ_INV); }
BENCHMARK(BM_ProjUtmForward)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ProjUtmInverse)->Unit(benchmark::kMillisecond);
#endif

} // namespace
