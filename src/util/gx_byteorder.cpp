// Byte order.  The library is built for little-endian processors only; big-endian grid files
// are read by swapping their words after loading them.
#include "gridex.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

static_assert(std::endian::native == std::endian::little,
              "Gridex is built for little-endian processors");

namespace {

// Reverses the bytes of each of n consecutive words of the given width.
void swap_words(void *words, int n, int width)
{
    if (!words)
        return;
    unsigned char *word = static_cast<unsigned char *>(words);
    for (int i = 0; i < n; i++, word += width)
        std::reverse(word, word + width);
}

} // namespace

int gx_is_big_endian(void) { return 0; }

int gx_is_little_endian(void) { return 1; }

void gx_swap4_int(void *words, int n) { swap_words(words, n, 4); }

void gx_swap4_flt(void *values, int n) { swap_words(values, n, 4); }

void gx_swap8_dbl(void *values, int n) { swap_words(values, n, 8); }

// A quiet NaN with a payload of 1, the library's mark for a value that could not be computed.
void gx_double_nan(double *d)
{
    if (d)
        *d = std::bit_cast<double>(std::uint64_t{0x7FF8000000000001});
}
