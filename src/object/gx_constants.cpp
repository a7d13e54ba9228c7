// The constants container: the integer, float and double arrays that a projected CS or a
// transformation computes once (series coefficients, grid nodes, file headers) and hands to its
// forward and inverse routines on every call.  The container knows neither the lengths nor the
// meaning of its arrays; the routine that fills them defines both.  It owns them: they come from
// gx_allocate_rtn and go back through gx_deallocate_rtn.
//
// Projections use the gx_constants_* names, transformations the gx_gtconstants_* names; both
// are the one implementation below, on the one record.
#include "object/gx_core.h"

struct gx_constants {
    unsigned int signature; // constants_signature while alive
    int *ivals;
    float *fvals;
    double *dvals;
};

namespace {

constexpr unsigned int constants_signature = 0x1000000;

bool is_constants(const gx_constants *c)
{
    return c != nullptr && c->signature == constants_signature;
}

gx_constants *constants_new()
{
    auto *c = static_cast<gx_constants *>(gx_allocate_rtn(sizeof(gx_constants)));
    if (c != nullptr)
        *c = {constants_signature, nullptr, nullptr, nullptr};
    return c;
}

void constants_del(gx_constants *c)
{
    if (!is_constants(c))
        return;
    c->signature = 0;
    gx_deallocate_rtn(c->ivals);
    gx_deallocate_rtn(c->fvals);
    gx_deallocate_rtn(c->dvals);
    gx_deallocate_rtn(c);
}

template <class T> T *array_of(const gx_constants *c, T *gx_constants::*slot)
{
    return is_constants(c) ? c->*slot : nullptr;
}

template <class T> T *array_set(gx_constants *c, T *gx_constants::*slot, T *array)
{
    return is_constants(c) ? gx::replace_array(c, slot, array) : nullptr;
}

} // namespace

#define GX_DEFINE_CONSTANTS_FAMILY(F)                                                              \
    gx_constants *F##_new(void) { return constants_new(); }                                        \
    void F##_del(gx_constants *c) { constants_del(c); }                                            \
    int F##_p(const gx_constants *c) { return is_constants(c) ? 1 : 0; }                           \
    int *F##_ivals(const gx_constants *c) { return array_of(c, &gx_constants::ivals); }            \
    float *F##_fvals(const gx_constants *c) { return array_of(c, &gx_constants::fvals); }          \
    double *F##_dvals(const gx_constants *c) { return array_of(c, &gx_constants::dvals); }         \
    int *F##_ivals_set(gx_constants *c, int *a) { return array_set(c, &gx_constants::ivals, a); }  \
    float *F##_fvals_set(gx_constants *c, float *a)                                                \
    {                                                                                              \
        return array_set(c, &gx_constants::fvals, a);                                              \
    }                                                                                              \
    double *F##_dvals_set(gx_constants *c, double *a)                                              \
    {                                                                                              \
        return array_set(c, &gx_constants::dvals, a);                                              \
    }

GX_DEFINE_CONSTANTS_FAMILY(gx_constants)
GX_DEFINE_CONSTANTS_FAMILY(gx_gtconstants)
