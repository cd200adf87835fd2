// For the source that holds an extension DLL's DllMain: AFX_EXTENSION_MODULE, CDynLinkLibrary and the
// functions that go with them.
#pragma once

#include "afx.h"
