// What extension DLLs and their windows include beside afxwin.h.
#pragma once

#include "afxwin.h"
#include "afxcmn.h"
