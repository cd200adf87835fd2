// The COM side of command targets.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <thread>

namespace
{
class CAutomated : public CCmdTarget
{
public:
    explicit CAutomated(bool* pDeleted = nullptr) : m_pDeleted(pDeleted) { EnableAutomation(); }
    virtual ~CAutomated()
    {
        if (m_pDeleted != nullptr)
            *m_pDeleted = true;
    }
    bool* m_pDeleted;
};

// An interface of its own, with its own count.
class CForeignDispatch : public IDispatch
{
public:
    long m_count = 0;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (iid != IID_IUnknown && iid != IID_IDispatch) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = this;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++m_count); }
    STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--m_count); }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }
};

class CHooked : public CAutomated
{
public:
    CForeignDispatch m_dispatch;
    virtual LPUNKNOWN GetInterfaceHook(const void* iid)
    {
        return *static_cast<const IID*>(iid) == IID_IDispatch ? &m_dispatch : nullptr;
    }
};
} // namespace

TEST(Automation, WithoutItThereIsNoDispatch)
{
    class CPlain : public CCmdTarget
    {
    } plain;
    EXPECT_EQ(nullptr, plain.GetIDispatch(FALSE));
    void* object = &plain;
    EXPECT_EQ(DWORD(E_NOINTERFACE), plain.ExternalQueryInterface(&IID_IDispatch, &object));
    EXPECT_EQ(nullptr, object);
}

TEST(Automation, GetIDispatchAddsAReferenceWhenAsked)
{
    CAutomated target;
    EXPECT_EQ(1, target.m_dwRef) << "the creator's";
    LPDISPATCH const borrowed = target.GetIDispatch(FALSE);
    ASSERT_NE(nullptr, borrowed);
    EXPECT_EQ(1, target.m_dwRef);
    LPDISPATCH const owned = target.GetIDispatch(TRUE);
    EXPECT_EQ(borrowed, owned);
    EXPECT_EQ(2, target.m_dwRef);
    EXPECT_EQ(1u, owned->Release());
}

TEST(Automation, LastReleaseDeletesTheObject)
{
    bool deleted = false;
    auto* const target = new CAutomated(&deleted);
    LPDISPATCH const dispatch = target->GetIDispatch(TRUE);
    target->InternalRelease();
    EXPECT_FALSE(deleted);
    dispatch->Release();
    EXPECT_TRUE(deleted);
}

TEST(Automation, DispatchLeadsBackToItsObject)
{
    CAutomated target;
    CAutomated other;
    EXPECT_EQ(&target, CCmdTarget::FromIDispatch(target.GetIDispatch(FALSE)));
    EXPECT_EQ(&other, CCmdTarget::FromIDispatch(other.GetIDispatch(FALSE)));
    EXPECT_EQ(1, target.m_dwRef) << "no reference is left behind";
    CForeignDispatch foreign;
    EXPECT_EQ(nullptr, CCmdTarget::FromIDispatch(&foreign));
    EXPECT_EQ(0, foreign.m_count);
    EXPECT_EQ(nullptr, CCmdTarget::FromIDispatch(nullptr));
}

TEST(Automation, UnknownAndDispatchAreOneIdentity)
{
    CAutomated target;
    LPDISPATCH const dispatch = target.GetIDispatch(FALSE);
    IUnknown* unknown = nullptr;
    ASSERT_EQ(S_OK, dispatch->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown)));
    IDispatch* again = nullptr;
    ASSERT_EQ(S_OK, unknown->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&again)));
    EXPECT_EQ(dispatch, again);
    EXPECT_EQ(3, target.m_dwRef);
    again->Release();
    unknown->Release();
    void* none = &target;
    EXPECT_EQ(E_NOINTERFACE, dispatch->QueryInterface(IID_IPersist, &none));
    EXPECT_EQ(nullptr, none);
}

TEST(Automation, DispatchKnowsNoNames)
{
    CAutomated target;
    LPDISPATCH const dispatch = target.GetIDispatch(FALSE);
    OLECHAR first[] = L"Visible";
    OLECHAR second[] = L"Value";
    LPOLESTR names[] = {first, second};
    DISPID ids[] = {5, 5};
    EXPECT_EQ(DISP_E_UNKNOWNNAME, dispatch->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids));
    EXPECT_EQ(DISPID_UNKNOWN, ids[0]);
    EXPECT_EQ(DISPID_UNKNOWN, ids[1]);
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, dispatch->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                      &none, nullptr, nullptr, nullptr));
    EXPECT_EQ(DISP_E_UNKNOWNINTERFACE, dispatch->Invoke(1, IID_IDispatch, LOCALE_USER_DEFAULT,
                                                        DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
    UINT count = 9;
    EXPECT_EQ(S_OK, dispatch->GetTypeInfoCount(&count));
    EXPECT_EQ(0u, count);
}

TEST(Automation, InterfaceHookIsAskedFirst)
{
    CHooked target;
    EXPECT_EQ(&target.m_dispatch, target.GetIDispatch(FALSE));
    EXPECT_EQ(0, target.m_dispatch.m_count);
    LPDISPATCH const owned = target.GetIDispatch(TRUE);
    EXPECT_EQ(&target.m_dispatch, owned);
    EXPECT_EQ(1, target.m_dispatch.m_count) << "the reference is that of the interface that is handed out";
    owned->Release();
    void* object = nullptr;
    EXPECT_EQ(DWORD(S_OK), target.ExternalQueryInterface(&IID_IDispatch, &object));
    EXPECT_EQ(static_cast<IDispatch*>(&target.m_dispatch), object);
    target.m_dispatch.Release();
    // What the hook does not know is looked for as usual.
    EXPECT_EQ(DWORD(S_OK), target.ExternalQueryInterface(&IID_IUnknown, &object));
    EXPECT_NE(static_cast<void*>(static_cast<IDispatch*>(&target.m_dispatch)), object);
    static_cast<IUnknown*>(object)->Release();
}

TEST(Automation, AggregatedObjectCountsOnTheOuterOne)
{
    CAutomated target;
    CForeignDispatch outer;
    target.m_pOuterUnknown = &outer;
    LPDISPATCH const dispatch = target.GetIDispatch(FALSE);
    dispatch->AddRef();
    EXPECT_EQ(1, outer.m_count);
    EXPECT_EQ(1, target.m_dwRef);
    dispatch->Release();
    EXPECT_EQ(0, outer.m_count);
    target.m_pOuterUnknown = nullptr;
}

TEST(Automation, AnObjectThatGoesIsDisconnectedFromOtherApartments)
{
    std::thread([] {
        ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        IStream* stream = nullptr;
        bool deleted = false;
        {
            CAutomated object(&deleted);
            ASSERT_EQ(S_OK, ::CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.GetIDispatch(FALSE),
                                                                    &stream));
            EXPECT_GT(object.m_dwRef, 1);
        }
        EXPECT_TRUE(deleted);
        std::thread([stream] {
            EXPECT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_MULTITHREADED));
            IDispatch* dispatch = nullptr;
            EXPECT_TRUE(FAILED(::CoGetInterfaceAndReleaseStream(stream, IID_IDispatch,
                                                                reinterpret_cast<void**>(&dispatch))));
            EXPECT_EQ(nullptr, dispatch);
            ::CoUninitialize();
        }).join();
        ::CoUninitialize();
    }).join();
}
