// Building predefined objects from their codes, and what loading the library costs.
//
// The definition tables are constant data compiled into the library: loading it parses
// nothing, and the first factory call costs what any later one does.  BM_LibraryLoad loads
// and unloads the shared library (libgridex.so beside the benchmark's build folder, or the
// file named by GX_LIBRARY): what the dynamic loader does, chiefly relocating the pointers of
// the constant tables.  BM_FirstProjcsAfterLoad times the first factory call after a load.
#include "gridex.h"

#include <benchmark/benchmark.h>

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::vector<int> projcs_codes()
{
    int count = 0;
    int *list = gx_factory_projcs_codelist(&count);
    std::vector<int> codes(list, list + count);
    gx_factory_codelist_del(list);
    return codes;
}

// One object per iteration, cycling through every predefined projected system.
void BM_FactoryProjcs(benchmark::State &state)
{
    const std::vector<int> codes = projcs_codes();
    size_t next = 0;
    for (auto _ : state) {
        gx_projcs *cs = gx_factory_projcs(codes[next]);
        benchmark::DoNotOptimize(cs);
        gx_projcs_del(cs);
        next = next + 1 < codes.size() ? next + 1 : 0;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_FactoryProjcs)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_FactoryProjcsUtm33(benchmark::State &state)
{
    for (auto _ : state) {
        gx_projcs *cs = gx_factory_projcs(32633);
        benchmark::DoNotOptimize(cs);
        gx_projcs_del(cs);
    }
}
BENCHMARK(BM_FactoryProjcsUtm33)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_FactoryGeogcs(benchmark::State &state)
{
    for (auto _ : state) {
        gx_geogcs *cs = gx_factory_geogcs(4326);
        benchmark::DoNotOptimize(cs);
        gx_geogcs_del(cs);
    }
}
BENCHMARK(BM_FactoryGeogcs);

// Through the generic factory: the code's type from the code ranges, then the type factory.
void BM_FactoryGeneric(benchmark::State &state)
{
    for (auto _ : state) {
        void *cs = gx_factory(32633);
        benchmark::DoNotOptimize(cs);
        gx_object_del(cs);
    }
}
BENCHMARK(BM_FactoryGeneric);

// ---- loading the library ------------------------------------------------------------------

std::string shared_library_path()
{
    if (const char *given = std::getenv("GX_LIBRARY"))
        return given;
    char exe[4096];
    const ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (n <= 0)
        return "libgridex.so";
    std::string dir(exe, static_cast<size_t>(n));
    dir.erase(dir.rfind('/'));
    return dir + "/../libgridex.so";
}

void BM_LibraryLoad(benchmark::State &state)
{
    const std::string path = shared_library_path();
    for (auto _ : state) {
        void *library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            state.SkipWithError(dlerror());
            break;
        }
        dlclose(library);
    }
}
BENCHMARK(BM_LibraryLoad)->Unit(benchmark::kMicrosecond);

// Only the first factory call after each load is timed: it costs what any later call does
// (BM_FactoryProjcsUtm33), as nothing is read or set up on first use.
void BM_FirstProjcsAfterLoad(benchmark::State &state)
{
    const std::string path = shared_library_path();
    for (auto _ : state) {
        state.PauseTiming();
        void *library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            state.SkipWithError(dlerror());
            break;
        }
        auto factory = reinterpret_cast<gx_projcs *(*)(int)>(dlsym(library, "gx_factory_projcs"));
        auto del = reinterpret_cast<void (*)(gx_projcs *)>(dlsym(library, "gx_projcs_del"));
        state.ResumeTiming();
        gx_projcs *cs = factory(32633);
        benchmark::DoNotOptimize(cs);
        state.PauseTiming();
        del(cs);
        dlclose(library);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_FirstProjcsAfterLoad)->Repetitions(5)->ReportAggregatesOnly(true);

} // namespace
