// An automation object whose members a test writes as functions: for hosts that behave in other ways than
// the reference host.
#pragma once

#include <afxwin.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace companiontest
{

// One call as it came.
struct ScriptedCall
{
    std::wstring member;
    WORD flags = 0;
    const DISPPARAMS* parameters = nullptr;
};

// Lives on the stack of a test; counts the references that clients hold.
class ScriptedObject : public IDispatch
{
public:
    using Member = std::function<HRESULT(const ScriptedCall& call, VARIANT* result, EXCEPINFO* info)>;

    // Names are compared without regard to case, as the platform's dispatch interfaces do. The numbers
    // given out have nothing to do with those of any host.
    std::map<std::wstring, Member> members;
    long references = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* info, UINT*) override;
};

// Members that give a value.
ScriptedObject::Member Gives(long value);
ScriptedObject::Member Gives(const wchar_t* text);
ScriptedObject::Member Gives(ScriptedObject& object);
ScriptedObject::Member Fails(HRESULT result);

} // namespace companiontest
