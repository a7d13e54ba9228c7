// gx_defstring_compare.cpp -- the ordering of macro names.
#include "factory/gx_defstring_compare.h"

#include <ctype.h>

namespace {

// The character as the comparison sees it: upper case, '-' folded onto '_'.
int macro_char(char c)
{
    if (c == '-')
        return '_';
    return toupper(static_cast<unsigned char>(c));
}

} // namespace

int gx_defstring_compare(const char *a, const char *b)
{
    for (;; a++, b++) {
        int ca = macro_char(*a);
        int cb = macro_char(*b);
        if (ca != cb || ca == '\0')
            return ca - cb;
    }
}
