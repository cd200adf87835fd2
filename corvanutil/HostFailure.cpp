#include "HostFailure.h"

#include <memory>

namespace
{

struct LocalMemoryDeleter
{
    void operator()(wchar_t* text) const { ::LocalFree(text); }
};

CString SystemMessage(HRESULT result)
{
    wchar_t* raw = nullptr;
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&raw), 0, nullptr);
    const std::unique_ptr<wchar_t, LocalMemoryDeleter> text(raw);
    CString message;
    if (length != 0) {
        message = text.get();
        message.TrimRight();
    }
    if (message.IsEmpty())
        message.Format(L"Error 0x%08X", static_cast<unsigned>(result));
    return message;
}

// Stands where a host would name itself.
CString OwnSource(const wchar_t* member)
{
    return CString(L"CorvanUtil22.") + member;
}

struct Failure
{
    WORD code = 0;
    SCODE status = 0;
    CString source;
    CString description;
    CString helpFile;
    DWORD helpContext = 0;
};

[[noreturn]] void Throw(const Failure& failure)
{
    try {
        AfxThrowOleDispatchException(failure.code, failure.description);
    } catch (COleDispatchException* exception) {
        exception->m_scError = failure.status;
        exception->m_strSource = failure.source;
        exception->m_strHelpFile = failure.helpFile;
        exception->m_dwHelpContext = failure.helpContext;
        throw;
    }
}

} // namespace

CHostExceptionInfo::CHostExceptionInfo() : EXCEPINFO{} {}

CHostExceptionInfo::~CHostExceptionInfo()
{
    ::SysFreeString(bstrSource);
    ::SysFreeString(bstrDescription);
    ::SysFreeString(bstrHelpFile);
}

void ThrowHostFailure(HRESULT result, const wchar_t* member, CHostExceptionInfo& info)
{
    if (result != DISP_E_EXCEPTION)
        ThrowHostFailure(result, member);

    if (info.pfnDeferredFillIn != nullptr) {
        // If the host cannot fill the rest in, what it gave at first is all there is.
        (*info.pfnDeferredFillIn)(&info);
        info.pfnDeferredFillIn = nullptr;
    }
    Failure failure;
    failure.code = info.wCode;
    failure.status = info.scode;
    failure.source = info.bstrSource;
    failure.description = info.bstrDescription;
    failure.helpFile = info.bstrHelpFile;
    failure.helpContext = info.dwHelpContext;
    if (failure.description.IsEmpty())
        failure.description = SystemMessage(FAILED(info.scode) ? info.scode : result);
    Throw(failure);
}

void ThrowHostFailure(HRESULT result, const wchar_t* member)
{
    Failure failure;
    failure.status = result;
    failure.source = OwnSource(member);
    failure.description = SystemMessage(result);
    Throw(failure);
}

void ThrowNoHostObject(const wchar_t* member)
{
    Failure failure;
    failure.status = E_POINTER;
    failure.source = OwnSource(member);
    failure.description = CString(L"The host returned no object for ") + member + L".";
    Throw(failure);
}

void ThrowRefusal(const wchar_t* operation, const std::wstring& description)
{
    Failure failure;
    failure.status = E_INVALIDARG;
    failure.source = OwnSource(operation);
    failure.description = description.c_str();
    Throw(failure);
}
