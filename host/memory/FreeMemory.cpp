// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/FreeMemory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

void giveFreeMemoryBack()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
