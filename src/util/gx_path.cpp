// Path helpers.  Both '/' and '\' separate directories when a file name is looked for, so
// paths written on either kind of system can be taken apart; '/' is used when joining.
// Joining assumes the destination is large enough for the result.
#include "gridex.h"

#include <cstring>
#include <unistd.h>

namespace {

// Appends '/' unless dst already ends in one, then the name.
char *join(char *dst, const char *name)
{
    if (!dst || !name)
        return dst;
    size_t len = std::strlen(dst);
    if (len == 0 || dst[len - 1] != '/')
        dst[len++] = '/';
    std::strcpy(dst + len, name);
    return dst;
}

// True when path (of length len) ends in '.' followed by exactly ext.
bool ends_in_ext(const char *path, size_t len, const char *ext)
{
    size_t ext_len = std::strlen(ext);
    if (len <= ext_len)
        return false;
    const char *tail = path + len - ext_len;
    return tail[-1] == '.' && std::strcmp(tail, ext) == 0;
}

int path_exists(const char *path) { return path && *path && access(path, F_OK) == 0; }

} // namespace

const char *gx_path_basename(const char *path)
{
    if (!path)
        return nullptr;
    const char *sep = std::strrchr(path, '/');
    if (!sep)
        sep = std::strrchr(path, '\\');
    return sep ? sep + 1 : path;
}

// The directory part without its trailing separator: "a/b.txt" gives "a", "b.txt" gives "."
// and "/b.txt" gives "" (which joins back to "/b.txt").  dst may be path itself.
char *gx_path_dirname(char *dst, const char *path)
{
    if (!dst)
        return nullptr;
    if (!path || !*path) {
        dst[0] = '\0';
        return dst;
    }
    const char *base = gx_path_basename(path);
    if (base == path) {
        std::strcpy(dst, ".");
        return dst;
    }
    size_t len = static_cast<size_t>(base - path) - 1;
    std::memmove(dst, path, len);
    dst[len] = '\0';
    return dst;
}

const char *gx_path_ext_get(const char *path)
{
    if (!path)
        return nullptr;
    const char *dot = std::strrchr(gx_path_basename(path), '.');
    return dot ? dot + 1 : nullptr;
}

char *gx_path_ext_set(char *path, const char *ext)
{
    if (!path || !ext)
        return path;
    if (*ext == '.')
        ext++;
    if (!*ext)
        return path;
    size_t len = std::strlen(path);
    if (ends_in_ext(path, len, ext))
        return path;
    path[len] = '.';
    std::strcpy(path + len + 1, ext);
    return path;
}

char *gx_dircat(char *dst, const char *name) { return join(dst, name); }

char *gx_filecat(char *dst, const char *name) { return join(dst, name); }

int gx_dir_exists(const char *path) { return path_exists(path); }

int gx_file_exists(const char *path) { return path_exists(path); }
