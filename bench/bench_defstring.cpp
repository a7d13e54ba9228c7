// Macro-name lookups: name to code (binary search in one table) and code to name (linear scan
// of the type's table).
#include "gridex.h"

#include <benchmark/benchmark.h>

namespace {

// Spread over the tables, first and last rows of the largest one included.
const char *const names[] = {
    "GX_GCS_WGS_1984",
    "GX_PCS_WGS_1984_UTM_33N",
    "GX_U_FOOT",
    "gx-d-wgs-1984",
    "GX_VTMTH_EGM84",
    "GX_D_K0_1949",
    "4326",
};

void BM_DefstringToInt(benchmark::State &state)
{
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(gx_factory_defstring_to_int(names[i]));
        i = (i + 1) % std::size(names);
    }
}
BENCHMARK(BM_DefstringToInt);

void BM_DefstringToIntWholeTable(benchmark::State &state)
{
    const gx_deftbl &table = gx_projcs_deftbl;
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(gx_factory_defstring_to_int(table.rows[i].macro));
        i = (i + 1) % table.count;
    }
}
BENCHMARK(BM_DefstringToIntWholeTable);

void BM_IntToDefstring(benchmark::State &state)
{
    const int codes[] = {4326, 32633, 9002, 6326, 129861};
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(gx_factory_int_to_defstring(codes[i]));
        i = (i + 1) % std::size(codes);
    }
}
BENCHMARK(BM_IntToDefstring);

} // namespace
