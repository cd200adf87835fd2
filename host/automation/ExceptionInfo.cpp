#include "automation/ExceptionInfo.h"

namespace velmhost
{

namespace
{

BSTR StringOrNull(const std::wstring& text)
{
    // Without memory for the text the failure goes out without it.
    return text.empty() ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}

HRESULT ResultOf(Refusal reason)
{
    switch (reason)
    {
    case Refusal::Gone: return RPC_E_DISCONNECTED;
    case Refusal::NotFound: return DISP_E_BADINDEX;
    case Refusal::Invalid: return E_INVALIDARG;
    case Refusal::Duplicate: return HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS);
    case Refusal::NotAllowed: return E_ACCESSDENIED;
    case Refusal::Busy: return RPC_E_SERVERCALL_RETRYLATER;
    case Refusal::FileMissing: return STG_E_FILENOTFOUND;
    case Refusal::FileInvalid: return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    case Refusal::NotSupported: return E_NOTIMPL;
    }
    return E_FAIL;
}

HRESULT FillException(const HostError& error, EXCEPINFO* exception)
{
    InvokeFault fault;
    fault.scode = ResultOf(error.Reason());
    fault.description = error.Description();
    return FillException(fault, exception);
}

HRESULT FillException(const InvokeFault& fault, EXCEPINFO* exception)
{
    if (fault.result != DISP_E_EXCEPTION)
        return fault.result;
    if (!exception)
        return fault.code ? E_FAIL : fault.scode;
    *exception = EXCEPINFO{};
    exception->wCode = fault.code;
    exception->scode = fault.code ? 0 : fault.scode;
    exception->bstrSource = StringOrNull(fault.source);
    exception->bstrDescription = StringOrNull(fault.description);
    return DISP_E_EXCEPTION;
}

}
