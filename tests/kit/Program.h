// What the kit's main needs of MFC, in one place; without MFC these do what the bare platform needs.
#pragma once

#include "kit/Platform.h"

namespace testkit
{

// Starts MFC for a console program (AfxWinInit). A test program may have an application object of its
// own, as a global; otherwise a plain CWinApp is made here. False if MFC does not start.
bool StartProgram();

// Handles one message as the program's message loop would: the MFC thread's PreTranslateMessage, then
// TranslateMessage and DispatchMessage.
void HandleMessage(MSG& message);

// Lets MFC delete its temporary objects, as it does when a program is idle.
void DropTemporaries();

// Uses once what MFC makes at its first use, so that the leak gate does not take it for a leak.
void WarmUpProgram();

} // namespace testkit
