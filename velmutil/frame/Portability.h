// What differs between the toolchains that build the library, in one place.
#pragma once

// VELM_API marks what VelmUtil22.dll exports. VELM_API_INLINE marks inline members that the library
// exports as well, but that every other module compiles for itself instead of importing.
#ifdef VELMUTIL_BUILD
#define VELM_API __declspec(dllexport)
#define VELM_API_INLINE __declspec(dllexport)
#else
#define VELM_API __declspec(dllimport)
#define VELM_API_INLINE
#endif

// CORVAN_API marks what the companion library CorvanUtil22.dll exports.
#ifdef CORVANUTIL_BUILD
#define CORVAN_API __declspec(dllexport)
#else
#define CORVAN_API __declspec(dllimport)
#endif
