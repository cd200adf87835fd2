#include "HostProgram.h"

namespace
{

class CHostApp : public CWinApp
{
public:
    CHostApp() { EnableAutomation(); }
};

CHostApp theApp;
bool isOffered = true;

} // namespace

extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return isOffered ? &theApp : nullptr;
}

void OfferApplication(bool offer)
{
    isOffered = offer;
}

IDispatch* ApplicationDispatch()
{
    return theApp.GetIDispatch(FALSE);
}

long ApplicationReferences()
{
    ApplicationDispatch()->AddRef();
    return static_cast<long>(ApplicationDispatch()->Release());
}
