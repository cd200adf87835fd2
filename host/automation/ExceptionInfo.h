// How a refusal becomes an automation failure.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include "automation/HostAutomation.h"
#include "model/HostError.h"

namespace velmhost
{

// The result code of a reason, as listed in HostAutomation.h.
HRESULT ResultOf(Refusal reason);

// Both fill `exception` and return DISP_E_EXCEPTION; without an EXCEPINFO they return the result code.
// A fault that asks for another result is returned as that.
HRESULT FillException(const HostError& error, EXCEPINFO* exception);
HRESULT FillException(const InvokeFault& fault, EXCEPINFO* exception);

}
