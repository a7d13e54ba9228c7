// The sequence: a double-ended queue of fixed-size elements kept in a vector used as a ring
// buffer.  Element i lives at vector index (first + i) modulo the vector length; appending to a
// full sequence moves it into a vector twice as long, unwrapped to start at index 0.
#include "util/gx_vector.h"

#include <climits>
#include <cstring>

struct gx_seq {
    int length; // elements held
    int first;  // vector index of element 0
    gx_vector *ring;
};

namespace {

int capacity(const gx_seq *s) { return gx_vector_length(s->ring); }

size_t run_bytes(const gx_seq *s, int elements)
{
    return static_cast<size_t>(elements) * static_cast<size_t>(gx_vector_elemsize(s->ring));
}

unsigned char *element(const gx_seq *s, int i)
{
    return gx_vector_slot(s->ring, (s->first + i) % capacity(s));
}

bool in_range(const gx_seq *s, int i) { return i >= 0 && i < s->length; }

// Doubles the vector, copying the elements in sequence order: first the run from the first
// element to the end of the old vector, then the wrapped run from its index 0.  On failure the
// sequence is left as it was.
bool grow(gx_seq *s)
{
    int old_cap = capacity(s);
    if (old_cap > INT_MAX / 2)
        return false;
    gx_vector *ring = gx_create_vector(2 * old_cap, gx_vector_elemsize(s->ring));
    if (!ring)
        return false;
    int head_run = old_cap - s->first;
    std::memcpy(gx_vector_slot(ring, 0), gx_vector_slot(s->ring, s->first), run_bytes(s, head_run));
    std::memcpy(gx_vector_slot(ring, head_run), gx_vector_slot(s->ring, 0), run_bytes(s, s->first));
    gx_destroy_vector(s->ring);
    s->ring = ring;
    s->first = 0;
    return true;
}

bool make_room(gx_seq *s) { return s->length < capacity(s) || grow(s); }

void copy_in(const gx_seq *s, int i, const void *src)
{
    std::memcpy(element(s, i), src, run_bytes(s, 1));
}

void copy_out(const gx_seq *s, int i, void *dst)
{
    std::memcpy(dst, element(s, i), run_bytes(s, 1));
}

} // namespace

gx_seq *gx_create_seq(int capacity, int size)
{
    gx_vector *ring = gx_create_vector(capacity, size);
    if (!ring)
        return nullptr;
    gx_seq *s = static_cast<gx_seq *>(gx_allocate_rtn(sizeof(gx_seq)));
    if (!s) {
        gx_destroy_vector(ring);
        return nullptr;
    }
    s->length = 0;
    s->first = 0;
    s->ring = ring;
    return s;
}

void gx_destroy_seq(gx_seq *s)
{
    if (!s)
        return;
    gx_destroy_vector(s->ring);
    gx_deallocate_rtn(s);
}

int gx_seq_length(const gx_seq *s) { return s ? s->length : 0; }

int gx_seq_elemsize(const gx_seq *s) { return s ? gx_vector_elemsize(s->ring) : 0; }

int gx_seq_set(gx_seq *s, int i, const void *src)
{
    if (!s || !src || !in_range(s, i))
        return 0;
    copy_in(s, i, src);
    return 1;
}

int gx_seq_get(const gx_seq *s, int i, void *dst)
{
    if (!s || !dst || !in_range(s, i))
        return 0;
    copy_out(s, i, dst);
    return 1;
}

int gx_seq_apptail(gx_seq *s, const void *src)
{
    if (!s || !src || !make_room(s))
        return 0;
    s->length++;
    copy_in(s, s->length - 1, src);
    return 1;
}

int gx_seq_apphead(gx_seq *s, const void *src)
{
    if (!s || !src || !make_room(s))
        return 0;
    s->first = (s->first == 0 ? capacity(s) : s->first) - 1;
    s->length++;
    copy_in(s, 0, src);
    return 1;
}

// Removing from an empty sequence is refused rather than reading outside the ring.
int gx_seq_remtail(gx_seq *s, void *dst)
{
    if (!s || !dst || s->length == 0)
        return 0;
    copy_out(s, s->length - 1, dst);
    s->length--;
    return 1;
}

int gx_seq_remhead(gx_seq *s, void *dst)
{
    if (!s || !dst || s->length == 0)
        return 0;
    copy_out(s, 0, dst);
    s->length--;
    s->first = (s->first + 1) % capacity(s);
    return 1;
}
