// Failures of COM calls as exceptions.
#pragma once

#include <afxwin.h>
#include <comdef.h>

// Raises _com_error with `result`, a failure of the interface `iid` of `object`, and with the error
// information that the object left for the calling thread, if it supports any for that interface.
[[noreturn]] void RaiseComFailure(HRESULT result, IUnknown* object, REFIID iid);

// Does so if `result`, of a call through the smart pointer `object`, is a failure.
template <class SmartPointer>
void CheckCall(HRESULT result, const SmartPointer& object)
{
    if (FAILED(result))
        RaiseComFailure(result, object.GetInterfacePtr(), SmartPointer::GetIID());
}
