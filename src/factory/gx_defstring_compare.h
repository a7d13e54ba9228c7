// gx_defstring_compare.h -- the ordering of macro names (GX_GCS_WGS_1984 ...).
//
// Macro names compare character by character, case-insensitively, with '-' counted as '_'.
// The macro tables are sorted by this ordering (name lookup is a binary search), the host tool
// that generates them sorts with it, and user definition files compare type names with it.
// Pure C library code, compiled into that host tool as well.
#ifndef GX_DEFSTRING_COMPARE_H
#define GX_DEFSTRING_COMPARE_H

// Negative, zero or positive as a orders before, with or after b.
int gx_defstring_compare(const char *a, const char *b);

#endif // GX_DEFSTRING_COMPARE_H
