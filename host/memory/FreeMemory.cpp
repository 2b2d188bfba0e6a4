// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/FreeMemory.h"

#include "host/memory/RecordSlabs.h"
#include "platform/mesh/UTriangle.h"

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

void giveFreeRecordsBack()
{
    RecordSlabs::giveKeptBack<UVertex<float>>();
    RecordSlabs::giveKeptBack<UTriangle<float>>();
}
