// How failures of the host's automation become exceptions.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <string>

// What IDispatch::Invoke reports beside DISP_E_EXCEPTION; frees the texts that the host put into it.
class CHostExceptionInfo : public EXCEPINFO
{
    // Construction
public:
    CHostExceptionInfo();
    CHostExceptionInfo(const CHostExceptionInfo&) = delete;
    CHostExceptionInfo& operator=(const CHostExceptionInfo&) = delete;

    // Implementation
public:
    ~CHostExceptionInfo();
};

// Throws a COleDispatchException* for the failed call of `member`, to be deleted by the catcher.
//
// result  what GetIDsOfNames, Invoke or a conversion of its outcome gave; a failure code.
// member  the name of the host's property or method, not null.
// info    looked at only when `result` is DISP_E_EXCEPTION. A deferred fill-in that the host left
//         there is asked first.
//
// With DISP_E_EXCEPTION the exception carries the host's source, description, help file, help context
// and code as they are: m_wCode and m_scError are what the host wrote, one of which is 0. In place of a
// missing description stands the system's message for m_scError, or for DISP_E_EXCEPTION when m_scError
// is no failure; where the system has none, "Error 0x" and the number.
//
// With any other result m_wCode is 0, m_scError is the result, m_strDescription is the system's
// message for it without a line end, and m_strSource is "CorvanUtil22." followed by the member, since
// no such text came from the host.
//
// Rests on AfxThrowOleDispatchException and FormatMessage.
[[noreturn]] void ThrowHostFailure(HRESULT result, const wchar_t* member, CHostExceptionInfo& info);

// The same for a call that succeeded but gave no object where there must be one: the description says
// so, m_scError is E_POINTER.
[[noreturn]] void ThrowNoHostObject(const wchar_t* member);

// The same for a failure that did not come from Invoke, so that there is nothing but the result.
[[noreturn]] void ThrowHostFailure(HRESULT result, const wchar_t* member);

// The same for what an operation refuses itself, before it changes anything: the description is given,
// m_scError is E_INVALIDARG, and m_strSource is "CorvanUtil22." followed by the operation.
[[noreturn]] void ThrowRefusal(const wchar_t* operation, const std::wstring& description);
