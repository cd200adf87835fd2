// What the benchmarks' companion library offers beside the companion's operations.
#pragma once

#include <cstddef>

#ifdef CORVANUTIL_BUILD
#define SILENT_API extern "C" __declspec(dllexport)
#else
#define SILENT_API extern "C" __declspec(dllimport)
#endif

// How many entries (menu items, sub-menus and buttons) were handed over since the last call; none was made.
SILENT_API size_t TakeEntryCount();
