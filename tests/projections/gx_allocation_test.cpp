// Conversions allocate nothing per call once a projected CS has its constants: the test program
// counts every malloc (the library allocates through gx_allocate_rtn, which is malloc) around
// repeated conversions.  Under AddressSanitizer the allocator is the sanitizer's and the count
// is not taken.
#include "gridex.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define GX_COUNT_MALLOC 0
#else
#define GX_COUNT_MALLOC 1
namespace {
std::atomic<long> malloc_calls{0};
}
extern "C" void *__libc_malloc(std::size_t size);
extern "C" void *malloc(std::size_t size)
{
    malloc_calls.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
#endif

TEST(Allocation, ConversionsAllocateNothingOnceConstantsAreLoaded)
{
#if !GX_COUNT_MALLOC
    GTEST_SKIP() << "malloc is the sanitizer's in this build; counted in the plain build";
#else
    const char *text =
        "PROJCS[\"WGS_1984_UTM_Zone_33N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
        "SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],PRIMEM[\"Greenwich\",0.0],"
        "UNIT[\"Degree\",0.0174532925199433]],PROJECTION[\"Transverse_Mercator\"],"
        "PARAMETER[\"False_Easting\",500000.0],PARAMETER[\"Central_Meridian\",15.0],"
        "PARAMETER[\"Scale_Factor\",0.9996],UNIT[\"Meter\",1.0]]";
    const char *lambert =
        "PROJCS[\"l\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137.0,298.257222101]],"
        "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]],"
        "PROJECTION[\"Lambert_Conformal_Conic\"],PARAMETER[\"Standard_Parallel_1\",33.0],"
        "PARAMETER[\"Standard_Parallel_2\",45.0],UNIT[\"Meter\",1.0]]";
    for (const char *wkt : {text, lambert}) {
        gx_projcs *cs = gx_projcs_from_string(wkt);
        ASSERT_NE(cs, nullptr);
        std::vector<double> points = {14.0, 50.0, 16.0, -30.0, 15.5, 10.0};
        gx_geog_to_proj(cs, 3, points.data()); // loads the constants
        gx_proj_to_geog(cs, 3, points.data());
        const long before = malloc_calls.load();
        for (int i = 0; i < 100; ++i) {
            gx_geog_to_proj(cs, 3, points.data());
            gx_proj_to_geog(cs, 3, points.data());
        }
        EXPECT_EQ(malloc_calls.load() - before, 0) << wkt;
        gx_projcs_del(cs);
    }
#endif
}
