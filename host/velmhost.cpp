// The reference host's program: its application object, and the export through which add-ins find it.
#include <afxwin.h>

#include "shell/HostApp.h"

namespace
{
velmhost::CHostApp theApp;
}

// The host's application object; GetIDispatch on it leads to menus and toolbars. Never null.
extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}
