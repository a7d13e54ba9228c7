/* Compiled as C11: the public header must be valid C, and the shared library usable from C. */
#include "gridex.h"
#include <stdio.h>
#include <string.h>

int main(void)
{
    char buf[GX_TEXT_LEN];
    gx_err_rec err;
    gx_unit *unit = gx_unit_from_string_errext("UNIT[\"Meter\",1.0]", &err);
    if (unit == NULL) {
        fprintf(stderr, "parse failed: %s\n", err.message);
        return 1;
    }
    gx_unit_to_string(unit, buf);
    gx_unit_del(unit);
    if (strcmp(buf, "UNIT[\"Meter\",1.0]") != 0) {
        fprintf(stderr, "unexpected text %s\n", buf);
        return 1;
    }
    if (strcmp(gx_version_string(), "Gridex Version 9.3.0 Build 1632 (Feb 26 2009)") != 0)
        return 1;
    return 0;
}
