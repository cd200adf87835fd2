#include "automation/ExceptionInfo.h"

#include <string_view>

namespace velmhost
{

namespace
{

// A view, since making a std::wstring may fail just when a failure must go out.
BSTR StringOrNull(std::wstring_view text) noexcept
{
    return text.empty() ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

} // namespace

HRESULT ResultOf(Refusal reason) noexcept
{
    switch (reason) {
    case Refusal::Gone:
        return RPC_E_DISCONNECTED;
    case Refusal::NotFound:
        return DISP_E_BADINDEX;
    case Refusal::Invalid:
        return E_INVALIDARG;
    case Refusal::Duplicate:
        return HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS);
    case Refusal::NotAllowed:
        return E_ACCESSDENIED;
    case Refusal::Busy:
        return RPC_E_SERVERCALL_RETRYLATER;
    case Refusal::FileMissing:
        return STG_E_FILENOTFOUND;
    case Refusal::FileInvalid:
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    case Refusal::NotSupported:
        return E_NOTIMPL;
    }
    return E_FAIL;
}

HRESULT FillException(const HostError& error, EXCEPINFO* exception) noexcept
{
    const HRESULT scode = ResultOf(error.Reason());
    if (!exception)
        return scode;
    *exception = EXCEPINFO{};
    exception->scode = scode;
    exception->bstrSource = StringOrNull(kHostSource);
    exception->bstrDescription = StringOrNull(error.Description());
    return DISP_E_EXCEPTION;
}

HRESULT FillException(const InvokeFault& fault, EXCEPINFO* exception) noexcept
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

} // namespace velmhost
