// The data directory: where grid and geoid files are found.  It is process-wide state, set by
// a call or taken from the environment variable GXDATAHOME on first use, and guarded by no
// lock: applications set it before they use the library from several threads.
#include "gridex.h"

#include <cctype>
#include <cstdio>
#include <cstring>

namespace {

char g_datahome[GX_DATAHOME_LEN]; // empty = no data directory
bool g_datahome_set = false;

// Room for the data directory, two subfolders and a file name with its extension.
constexpr size_t kPathCap = 4 * GX_DATAHOME_LEN;

// A directory that is empty or too long for the buffer counts as none.
void store_datahome(const char *dir)
{
    g_datahome_set = true;
    if (dir && *dir && std::strlen(dir) < GX_DATAHOME_LEN)
        std::strcpy(g_datahome, dir);
    else
        g_datahome[0] = '\0';
}

bool fits(const char *path, const char *part)
{
    return std::strlen(path) + 1 + std::strlen(part) < kPathCap;
}

// Joins a subfolder onto the path; an empty or null one adds nothing.
bool append_dir(char *path, const char *dir)
{
    if (!dir || !*dir)
        return true;
    if (!fits(path, dir))
        return false;
    gx_dircat(path, dir);
    return true;
}

bool append_file(char *path, const char *name, const char *ext)
{
    if (!fits(path, name))
        return false;
    gx_filecat(path, name);
    if (!ext)
        return true;
    if (!fits(path, ext))
        return false;
    gx_path_ext_set(path, ext);
    return true;
}

// Data set names may carry a "DATASET_" prefix (in any case) that is not part of the file name.
const char *strip_dataset_prefix(const char *name)
{
    static const char prefix[] = "DATASET_";
    for (size_t i = 0; prefix[i]; i++) {
        if (std::toupper(static_cast<unsigned char>(name[i])) != prefix[i])
            return name;
    }
    return name + sizeof prefix - 1;
}

FILE *open_binary(const char *path) { return std::fopen(path, "rb"); }

// Grid files are distributed with names in any mix of case, and file systems that tell case
// apart will only find the exact one.  The spellings tried, in order, each applied to the
// previous one: as given, extension upper-cased, base name lower-cased, extension upper-cased
// again, base name upper-cased.  The path is left holding the last spelling tried.
FILE *open_any_case(char *path)
{
    char *base = path + (gx_path_basename(path) - path);
    const char *dot_ext = gx_path_ext_get(base);
    char *ext = dot_ext ? base + (dot_ext - base) : base + std::strlen(base);

    struct spelling {
        char *part;
        int (*recase)(char *dst, const char *src);
    };
    const spelling spellings[] = {
        {nullptr, nullptr}, {ext, gx_strupper},  {base, gx_strlower},
        {ext, gx_strupper}, {base, gx_strupper},
    };
    for (const spelling &s : spellings) {
        if (s.recase)
            s.recase(s.part, s.part);
        if (FILE *fp = open_binary(path))
            return fp;
    }
    return nullptr;
}

// Builds the path and opens the file; the path is left in `path` whatever the outcome.
FILE *open_in_datahome(char *path, const char *subdir1, const char *subdir2, const char *filename,
                       const char *ext, int mode)
{
    std::strcpy(path, g_datahome);
    if (!append_dir(path, subdir1) || !append_dir(path, subdir2))
        return nullptr;
    if (!gx_dir_exists(path))
        return nullptr;
    if (!append_file(path, strip_dataset_prefix(filename), ext))
        return nullptr;
    return mode == 1 ? open_any_case(path) : open_binary(path);
}

} // namespace

void gx_datahome_setdir(const char *dir) { store_datahome(dir); }

void gx_datahome_setfunc(const char *(*routine)(void))
{
    store_datahome(routine ? routine() : nullptr);
}

const char *gx_get_datahome(void)
{
    if (!g_datahome_set)
        store_datahome(gx_getenv("GXDATAHOME"));
    return g_datahome[0] ? g_datahome : nullptr;
}

// Mode 0 opens the file exactly as named; mode 1 also tries other spellings of its case.
// pathbuf, when given, receives the last path built.
FILE *gx_datahome_open(char *pathbuf, const char *subdir1, const char *subdir2,
                       const char *filename, const char *ext, int mode)
{
    if (!gx_get_datahome() || !filename || !*filename)
        return nullptr;
    char path[kPathCap];
    FILE *fp = open_in_datahome(path, subdir1, subdir2, filename, ext, mode);
    if (pathbuf)
        std::strcpy(pathbuf, path);
    return fp;
}
