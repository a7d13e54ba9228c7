// gx_factory_codechange.cpp -- codes that were once issued and have since been replaced.
//
// The per-type pair lists are generated from data/definitions/changes.txt; the factory looks
// a code up here only when the built-in definitions do not know it.
#include "gridex.h"

int gx_factory_codechange_lookup(const int *pairs, int code)
{
    if (pairs == nullptr)
        return 0;
    for (; pairs[0] != 0; pairs += 2)
        if (pairs[0] == code)
            return pairs[1];
    return 0;
}
