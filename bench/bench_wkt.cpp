// WKT parsing and writing of small objects.
#include "gridex.h"

#include <benchmark/benchmark.h>

static void BM_ParseUnit(benchmark::State &state)
{
    const char *text = "UNIT[\"Degree\",0.0174532925199433,AUTHORITY[\"EPSG\",9102]]";
    for (auto _ : state) {
        gx_unit *unit = gx_unit_from_string(text);
        benchmark::DoNotOptimize(unit);
        gx_unit_del(unit);
    }
}
BENCHMARK(BM_ParseUnit);

static void BM_WriteUnit(benchmark::State &state)
{
    gx_unit *unit = gx_unit_new("Degree", 0.017453292519943295);
    gx_unit_code_set(unit, 9102, "EPSG", "6.13");
    char buf[GX_TEXT_LEN];
    for (auto _ : state)
        benchmark::DoNotOptimize(gx_unit_to_string_ext(unit, 1, buf));
    gx_unit_del(unit);
}
BENCHMARK(BM_WriteUnit);

static void BM_Tokenize(benchmark::State &state)
{
    const char *text =
        "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,"
        "298.257223563]],PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]";
    static gx_token_list list;
    for (auto _ : state)
        benchmark::DoNotOptimize(gx_objstring_to_tokens(&list, text, nullptr));
}
BENCHMARK(BM_Tokenize);
