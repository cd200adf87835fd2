// The version of VelmUtil22, told in this file alone: the build, the package and the version resources read
// it here.
#pragma once

#define VELMUTIL_VERSION_MAJOR 22
#define VELMUTIL_VERSION_MINOR 0
#define VELMUTIL_VERSION_PATCH 0

// One number for comparisons:  #if VELMUTIL_VERSION >= 220100
#define VELMUTIL_VERSION \
    (VELMUTIL_VERSION_MAJOR * 10000 + VELMUTIL_VERSION_MINOR * 100 + VELMUTIL_VERSION_PATCH)
