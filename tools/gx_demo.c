/* A small demonstration of the library: parses well-known text and prints it back. */
#include "gridex.h"
#include <stdio.h>

int main(void)
{
    printf("%s\n", gx_version_string());
    return 0;
}
