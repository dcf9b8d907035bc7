#include "desktop/Memory.h"

#include <malloc.h>

void GiveBackFreeMemory()
{
    malloc_trim(0);
}
