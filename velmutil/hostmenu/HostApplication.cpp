#include "hostmenu/HostApplication.h"

#include <afxdisp.h>

#include <initializer_list>

namespace
{

using ApplicationGetter = CWinApp* (*)();

ApplicationGetter FindApplicationGetter()
{
    const HMODULE program = GetModuleHandleW(nullptr);
    // The second name is what Visual C++ makes of the function when it is exported as C++.
    for (const char* name : {"acedGetAcadWinApp", "?acedGetAcadWinApp@@YAPEAVCWinApp@@XZ"}) {
        if (const auto found = GetProcAddress(program, name))
            return reinterpret_cast<ApplicationGetter>(reinterpret_cast<void*>(found));
    }
    return nullptr;
}

} // namespace

IDispatchPtr FindHostApplication()
{
    const ApplicationGetter getApplication = FindApplicationGetter();
    CWinApp* const application = getApplication != nullptr ? getApplication() : nullptr;
    IDispatch* const dispatch = application != nullptr ? application->GetIDispatch(TRUE) : nullptr;
    return IDispatchPtr(dispatch, false);
}

IDispatch* RequireHostApplication(const IDispatchPtr& application)
{
    if (!application)
        AfxThrowOleDispatchException(0, L"The host application is not available.");
    return application;
}
