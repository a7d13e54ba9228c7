// The library's version text.
#include "gridex.h"

const char *gx_version_string(void) { return "Gridex Version 9.3.0 Build 1632 (Feb 26 2009)"; }
