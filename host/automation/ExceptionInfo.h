// How a refusal becomes an automation failure.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include "automation/HostAutomation.h"
#include "model/HostError.h"

namespace velmhost
{

// The result code of a reason, as listed in HostAutomation.h.
HRESULT ResultOf(Refusal reason) noexcept;

// Both fill `exception` and return DISP_E_EXCEPTION; without an EXCEPINFO they return the result code.
// A fault that asks for another result is returned as that. A text for which there is no memory is left
// out.
HRESULT FillException(const HostError& error, EXCEPINFO* exception) noexcept;
HRESULT FillException(const InvokeFault& fault, EXCEPINFO* exception) noexcept;

} // namespace velmhost
