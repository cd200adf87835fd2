#include "Host.h"

namespace
{

velmhost::CHostApp theApp;

}

// What the library finds the host's application object by.
extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}

namespace lifecycle
{

velmhost::CHostApp& Host()
{
    return theApp;
}

void EmptyHost()
{
    theApp.Model().AddGroup(L"BASE", velmhost::MenuGroupType::Base, L"");
}

long long CountHostObjects()
{
    return theApp.Automation().LiveObjects();
}

long long CountHostReferences()
{
    return theApp.Automation().OutstandingReferences() + theApp.Automation().ApplicationReferences();
}

} // namespace lifecycle
