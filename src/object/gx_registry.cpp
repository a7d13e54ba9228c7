// Default parameter sets: the parameters a projection or method takes, made with the parameter
// registry's default values, each in its slot.  Used to start a new projected CS or
// transformation that the caller then fills in.
#include "object/gx_registry.h"

namespace gx {

namespace {

void clear_slots(gx_parameter **parms)
{
    for (int slot = 0; slot < parameter_slots; ++slot) {
        gx_object_del(parms[slot]);
        parms[slot] = nullptr;
    }
}

} // namespace

int make_default_set(parameter_set set, gx_parameter **parms)
{
    if (parms == nullptr)
        return 0;
    for (int slot = 0; slot < parameter_slots; ++slot)
        parms[slot] = nullptr;
    if (set == nullptr)
        return 0;
    int made = 0;
    for (const int *code = set; *code != 0; ++code) {
        gx_parameter *parameter = gx_parmlist_parameter_from_code(*code, nullptr);
        if (parameter == nullptr) {
            clear_slots(parms);
            return 0;
        }
        parms[gx_parmlist_index_from_code(*code)] = parameter;
        ++made;
    }
    return made;
}

unsigned int slots_of(parameter_set set)
{
    unsigned int bits = 0;
    for (const int *code = set; set != nullptr && *code != 0; ++code)
        bits |= slot_bit(gx_parmlist_index_from_code(*code));
    return bits;
}

} // namespace gx
