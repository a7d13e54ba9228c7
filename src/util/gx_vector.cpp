// The fixed vector: count elements of size bytes each, in one block that also holds the
// record.  Its size never changes; the sequence grows by replacing its vector.
#include "util/gx_vector.h"

#include <cstring>

struct gx_vector {
    int count;
    int size;
    unsigned char *data; // count * size bytes, just past this record
};

namespace {

bool in_range(const gx_vector *v, int i) { return i >= 0 && i < v->count; }

} // namespace

unsigned char *gx_vector_slot(const gx_vector *v, int i)
{
    return v->data + static_cast<size_t>(i) * static_cast<size_t>(v->size);
}

gx_vector *gx_create_vector(int count, int size)
{
    if (count < 1 || size < 1)
        return nullptr;
    size_t bytes = static_cast<size_t>(count) * static_cast<size_t>(size);
    void *block = gx_allocate_rtn(sizeof(gx_vector) + bytes);
    if (!block)
        return nullptr;
    gx_vector *v = static_cast<gx_vector *>(block);
    v->count = count;
    v->size = size;
    v->data = reinterpret_cast<unsigned char *>(v + 1);
    std::memset(v->data, 0, bytes);
    return v;
}

void gx_destroy_vector(gx_vector *v)
{
    if (v)
        gx_deallocate_rtn(v);
}

int gx_vector_length(const gx_vector *v) { return v ? v->count : 0; }

int gx_vector_elemsize(const gx_vector *v) { return v ? v->size : 0; }

int gx_vector_set(gx_vector *v, int i, const void *src)
{
    if (!v || !src || !in_range(v, i))
        return 0;
    std::memcpy(gx_vector_slot(v, i), src, static_cast<size_t>(v->size));
    return 1;
}

int gx_vector_get(const gx_vector *v, int i, void *dst)
{
    if (!v || !dst || !in_range(v, i))
        return 0;
    std::memcpy(dst, gx_vector_slot(v, i), static_cast<size_t>(v->size));
    return 1;
}
