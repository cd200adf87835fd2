// Misuse of memory, each kind in a function of its own for tests to look for in call stacks.
#pragma once

#include <cstddef>

char* MakeBlock(size_t size);
void FreeBlock(void* block);
char ReadFrom(const char* address);
void WriteTo(char* address);
void ReallocateBlock(void* block, size_t size);
void FreeAlignedBlock(void* block);
