// The per-projected-CS constants record: an integer array (by convention a count record: 2, then
// the number of doubles) and the double array of a projection's precomputed constants.  The
// record owns both arrays.
#include "object/gx_core.h"

struct gx_pcsconstants {
    unsigned int signature; // pcsconstants_signature while alive
    int *ivals;
    double *dvals;
};

namespace {

constexpr unsigned int pcsconstants_signature = 0x2000000;

bool is_pcsconstants(const gx_pcsconstants *rec)
{
    return rec != nullptr && rec->signature == pcsconstants_signature;
}

} // namespace

gx_pcsconstants *gx_pcsconstants_new(void)
{
    auto *rec = static_cast<gx_pcsconstants *>(gx_allocate_rtn(sizeof(gx_pcsconstants)));
    if (rec != nullptr)
        *rec = {pcsconstants_signature, nullptr, nullptr};
    return rec;
}

void gx_pcsconstants_del(gx_pcsconstants *rec)
{
    if (!is_pcsconstants(rec))
        return;
    rec->signature = 0;
    gx_deallocate_rtn(rec->ivals);
    gx_deallocate_rtn(rec->dvals);
    gx_deallocate_rtn(rec);
}

int gx_pcsconstants_p(const gx_pcsconstants *rec) { return is_pcsconstants(rec) ? 1 : 0; }

int *gx_pcsconstants_ivals(const gx_pcsconstants *rec)
{
    return is_pcsconstants(rec) ? rec->ivals : nullptr;
}

double *gx_pcsconstants_dvals(const gx_pcsconstants *rec)
{
    return is_pcsconstants(rec) ? rec->dvals : nullptr;
}

int *gx_pcsconstants_ivals_set(gx_pcsconstants *rec, int *ivals)
{
    return is_pcsconstants(rec) ? gx::replace_array(rec, &gx_pcsconstants::ivals, ivals) : nullptr;
}

double *gx_pcsconstants_dvals_set(gx_pcsconstants *rec, double *dvals)
{
    return is_pcsconstants(rec) ? gx::replace_array(rec, &gx_pcsconstants::dvals, dvals) : nullptr;
}
