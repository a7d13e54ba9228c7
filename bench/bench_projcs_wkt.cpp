// Reading and writing a typical projected system (a UTM zone) as WKT.
#include "gridex.h"

#include <benchmark/benchmark.h>

namespace {

const char *const utm_zone_33n =
    "PROJCS[\"WGS_1984_UTM_Zone_33N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
    "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"False_Northing\",0.0],"
    "PARAMETER[\"Central_Meridian\",15.0],PARAMETER[\"Scale_Factor\",0.9996],"
    "PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0],AUTHORITY[\"EPSG\",32633]]";

} // namespace

static void BM_ParseProjcsUtm(benchmark::State &state)
{
    for (auto _ : state) {
        gx_projcs *cs = gx_projcs_from_string(utm_zone_33n);
        benchmark::DoNotOptimize(cs);
        gx_projcs_del(cs);
    }
}
BENCHMARK(BM_ParseProjcsUtm);

static void BM_WriteProjcsUtm(benchmark::State &state)
{
    gx_projcs *cs = gx_projcs_from_string(utm_zone_33n);
    char buf[GX_TEXT_LEN];
    for (auto _ : state)
        benchmark::DoNotOptimize(gx_projcs_to_string_ext(cs, 1, buf));
    gx_projcs_del(cs);
}
BENCHMARK(BM_WriteProjcsUtm);
