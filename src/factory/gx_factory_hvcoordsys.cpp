// gx_factory_hvcoordsys.cpp -- compound systems from codes.
//
// The database defines no compound system and no user file is read for them, so every code is
// unknown; the factory reports it with the geographic transformation's number and text, as
// applications of this library have always seen it.
#include "factory/gx_factory.h"

namespace {

constexpr gx::factory::type_factory hvcoordsys_factory = {
    .type = GX_TYPE_HVCOORDSYS,
    .function = "gx_factory_hvcoordsys",
    .unknown_number = 209,
    .unknown_format = "Invalid geographic transformation factory code (%d)",
    .discontinued = gx_factory_hvcoordsys_discontinued_codes,
    .changes = gx_factory_hvcoordsys_codechange_codes,
    .authority = gx_factory_authority_hvcoordsys,
    .retired = {},
    .assemble = nullptr,
};

} // namespace

GX_DEFINE_TYPE_FACTORY(hvcoordsys, hvcoordsys_factory)
