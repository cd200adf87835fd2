#include "HeapCulprits.h"

#include <cstdlib>
#include <malloc.h>

namespace
{

volatile int g_number = 0; // changed at the end of functions, so that their last calls are not jumps

} // namespace

char* MakeBlock(size_t size)
{
    char* const block = static_cast<char*>(std::malloc(size));
    g_number = g_number + 1;
    return block;
}

void FreeBlock(void* block)
{
    std::free(block);
    g_number = g_number + 1;
}

char ReadFrom(const char* address)
{
    return *static_cast<const volatile char*>(address);
}

void WriteTo(char* address)
{
    *static_cast<volatile char*>(address) = 1;
}

void ReallocateBlock(void* block, size_t size)
{
    FreeBlock(std::realloc(block, size));
    g_number = g_number + 1;
}

void FreeAlignedBlock(void* block)
{
    _aligned_free(block);
    g_number = g_number + 1;
}
