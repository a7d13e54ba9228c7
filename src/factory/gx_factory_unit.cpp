// gx_factory_unit.cpp -- units from codes, and the factories that insist on a linear or an
// angular one.
//
// Linear and angular units share one table of definitions; which kind a code is follows from
// its range (linear 9000-9099 and the 109000/209000 blocks, angular 9100-9199 and 209100).
#include "factory/gx_factory.h"

namespace {

using gx::factory::report_code;
using gx::factory::report_text;

// value[0]: metres or radians per unit.
void *assemble_unit(const gx_defrec &rec, gx_err_rec *err)
{
    return gx_unit_new_errext(rec.name, rec.value[0], err);
}

constexpr gx::factory::type_factory unit_factory = {
    .type = GX_TYPE_UNIT,
    .function = "gx_factory_unit",
    .unknown_number = 210,
    .unknown_format = "Invalid unit factory code (%d)",
    .discontinued = gx_factory_unit_discontinued_codes,
    .changes = gx_factory_unit_codechange_codes,
    .authority = gx_factory_authority_unit,
    .retired = {},
    .assemble = assemble_unit,
};

// Both kinds report a unit of the other kind under the angular factory's name.
void report_wrong_unit_type(gx_err_rec *err)
{
    report_text(err, 224, "gx_factory_angunit", "Wrong unit type");
}

} // namespace

GX_DEFINE_TYPE_FACTORY(unit, unit_factory)

gx_unit *gx_factory_angunit(int code) { return gx_factory_angunit_errext(code, nullptr); }

gx_unit *gx_factory_angunit_errext(int code, gx_err_rec *err)
{
    switch (gx_factory_coderanges_type(code)) {
    case GX_TYPE_ANGUNIT:
        return gx_factory_unit_errext(code, err);
    case GX_TYPE_LINUNIT:
        report_wrong_unit_type(err);
        return nullptr;
    default:
        report_code(err, 211, "gx_factory_angunit", "Invalid angular unit factory code (%d)", code);
        return nullptr;
    }
}

gx_unit *gx_factory_linunit(int code) { return gx_factory_linunit_errext(code, nullptr); }

gx_unit *gx_factory_linunit_errext(int code, gx_err_rec *err)
{
    switch (gx_factory_coderanges_type(code)) {
    case GX_TYPE_LINUNIT:
        return gx_factory_unit_errext(code, err);
    case GX_TYPE_ANGUNIT:
        report_wrong_unit_type(err);
        return nullptr;
    default:
        report_code(err, 212, "gx_factory_linunit", "Invalid linear unit factory code %d", code);
        return nullptr;
    }
}
