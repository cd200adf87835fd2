// Putting own functions in the place of imported ones, in the modules of the program under test.
#pragma once

#include "kit/Platform.h"

#include <span>

namespace testkit
{

struct ImportReplacement
{
    const char* library; // as the import table names it, letter case aside
    const char* name;
    void* function; // what is called instead
};

// Puts the replacements into the import table of `module`. True if that changed anything. Allocates
// nothing, so it may be called inside the loader.
bool ReplaceImports(HMODULE module, std::span<const ImportReplacement> replacements);

// Whether a module belongs to the program under test: it is the program or lies in its folder, in one
// below or in one above it, and is none of the compiler's support libraries.
bool IsModuleUnderTest(HMODULE module);

// Calls `found` for every module under test: now for those that are loaded, and from now on for each that
// is being loaded, before its code runs. The later calls come from inside the loader.
void ForEachModuleUnderTest(void (*found)(HMODULE));

// Calls `found` for every module under test that is loaded now.
void ForEachLoadedModuleUnderTest(void (*found)(HMODULE));

} // namespace testkit
