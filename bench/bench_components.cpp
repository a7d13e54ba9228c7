// Geodetic components: reading a datum with its spheroid, comparing spheroids (the flattening
// path and the quarter-meridian path) and writing a long array.
#include "gridex.h"

#include <benchmark/benchmark.h>

#include <vector>

static void BM_ParseDatum(benchmark::State &state)
{
    const char *text = "DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563,"
                       "AUTHORITY[\"EPSG\",7030]],AUTHORITY[\"EPSG\",6326]]";
    for (auto _ : state) {
        gx_datum *datum = gx_datum_from_string(text);
        benchmark::DoNotOptimize(datum);
        gx_datum_del(datum);
    }
}
BENCHMARK(BM_ParseDatum);

// state.range(0): 0 compares equal flattenings, 1 flattenings that differ in the twelfth digit
// and so go through the quarter meridians.
static void BM_SpheroidEq(benchmark::State &state)
{
    const double f = 1.0 / 298.257223563;
    gx_spheroid *a = gx_spheroid_new("WGS_1984", 6378137.0, f);
    gx_spheroid *b = gx_spheroid_new("WGS_1984", 6378137.0, state.range(0) != 0 ? f + 1e-14 : f);
    for (auto _ : state)
        benchmark::DoNotOptimize(gx_spheroid_eq(a, b));
    gx_spheroid_del(a);
    gx_spheroid_del(b);
}
BENCHMARK(BM_SpheroidEq)->Arg(0)->Arg(1);

static void BM_WriteLongArray(benchmark::State &state)
{
    const std::vector<double> values(200, 1.0 / 3.0);
    gx_array *array = gx_array_new("Thirds", static_cast<int>(values.size()), values.data());
    char buf[GX_TEXT_LEN];
    for (auto _ : state)
        benchmark::DoNotOptimize(gx_array_to_string(array, buf));
    gx_array_del(array);
}
BENCHMARK(BM_WriteLongArray);
