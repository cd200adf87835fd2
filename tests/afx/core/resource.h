// Resources of the test program and of its extension DLLs.
#pragma once

// The first four belong to one block of sixteen, of which each module has other strings.
#define IDS_PROGRAM 4001
#define IDS_FORMAT 4002
#define IDS_EXTENSION 4003
#define IDS_BOTH 4004
#define IDS_NOWHERE 4015
#define IDR_TEXT 300
