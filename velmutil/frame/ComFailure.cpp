#include "frame/ComFailure.h"

namespace
{

// The caller owns the result, which is null where there is none.
IErrorInfo* ErrorInfoOf(IUnknown* object, REFIID iid)
{
    if (object == nullptr)
        return nullptr;
    ISupportErrorInfo* support = nullptr;
    if (FAILED(object->QueryInterface(__uuidof(ISupportErrorInfo), reinterpret_cast<void**>(&support))))
        return nullptr;
    const bool isSupported = support->InterfaceSupportsErrorInfo(iid) == S_OK;
    support->Release();
    if (!isSupported)
        return nullptr;
    IErrorInfo* info = nullptr;
    return GetErrorInfo(0, &info) == S_OK ? info : nullptr;
}

} // namespace

void RaiseComFailure(HRESULT result, IUnknown* object, REFIID iid)
{
    throw _com_error(result, ErrorInfoOf(object, iid));
}
