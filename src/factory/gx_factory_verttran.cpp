// gx_factory_verttran.cpp -- vertical transformations from codes.
//
// An unknown code is reported with the geographic transformation's number and text, as
// applications of this library have always seen it.
#include "factory/gx_factory.h"

namespace {

using gx::factory::adopt;
using gx::factory::owned;
using gx::factory::parameter_slots;

// comp[0]: the horizontal system the points are given in (0: none); comp[1], comp[2]: the
// first and second vertical systems; comp[3]: the height method; its parameters.
void *assemble_verttran(const gx_defrec &rec, gx_err_rec *err)
{
    parameter_slots parameters;
    if (!parameters.fill(rec, err))
        return nullptr;
    owned<void> coordsys;
    if (rec.comp[0] != 0) {
        coordsys.reset(gx_factory_coordsys_errext(rec.comp[0], err));
        if (!coordsys)
            return nullptr;
    }
    owned<gx_vertcs> first(gx_factory_vertcs_errext(rec.comp[1], err));
    if (!first)
        return nullptr;
    owned<gx_vertcs> second(gx_factory_vertcs_errext(rec.comp[2], err));
    if (!second)
        return nullptr;
    owned<gx_vtmethod> vtmethod(gx_factory_vtmethod_errext(rec.comp[3], err));
    if (!vtmethod)
        return nullptr;
    return adopt(gx_verttran_new_errext(rec.name, coordsys.get(), first.get(), second.get(),
                                        vtmethod.get(), parameters.get(), err),
                 coordsys, first, second, vtmethod, parameters);
}

constexpr gx::factory::type_factory verttran_factory = {
    .type = GX_TYPE_VERTTRAN,
    .function = "gx_factory_verttran",
    .unknown_number = 209,
    .unknown_format = "Invalid geographic transformation factory code (%d)",
    .discontinued = gx_factory_verttran_discontinued_codes,
    .changes = gx_factory_verttran_codechange_codes,
    .authority = gx_factory_authority_verttran,
    .retired = {},
    .assemble = assemble_verttran,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(verttran, verttran_factory)
