// COleDispatchDriver against an object of the tests' own.
#include "Thrown.h"

#include <afxdisp.h>

#include "kit/CountedObject.h"
#include "kit/Text.h"

#include <functional>
#include <thread>

namespace
{

// Answers every Invoke with a function of the test's, and keeps what the call looked like.
class Automation : public testkit::CountedObject<IDispatch>
{
public:
    std::function<HRESULT(DISPPARAMS* params, VARIANT* result, EXCEPINFO* info)> answer;
    DISPID member = 0;
    WORD flags = 0;
    UINT namedArguments = 0;
    bool wantedResult = false;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO* info, UINT*) override
    {
        member = id;
        flags = kind;
        namedArguments = params->cNamedArgs;
        if (params->cNamedArgs == 1 && params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)
            return DISP_E_PARAMNOTFOUND;
        wantedResult = result != nullptr;
        return answer ? answer(params, result, info) : S_OK;
    }
};

class DispatchDriver : public testing::Test
{
protected:
    DispatchDriver() : object(new Automation) {}
    ~DispatchDriver()
    {
        EXPECT_EQ(1u, object->References());
        object->Release();
    }

    // A driver with a reference of its own.
    COleDispatchDriver Driver()
    {
        object->AddRef();
        return COleDispatchDriver(object);
    }

    Automation* object;
};

const BYTE* Params(const char* types)
{
    return reinterpret_cast<const BYTE*>(types);
}

} // namespace

TEST_F(DispatchDriver, TakesAPointerOverAndReleasesIt)
{
    object->AddRef();
    {
        COleDispatchDriver driver(object);
        EXPECT_EQ(2u, object->References());
        EXPECT_EQ(object, driver.m_lpDispatch);
        EXPECT_TRUE(driver.m_bAutoRelease);
    }
    EXPECT_EQ(1u, object->References());
}

TEST_F(DispatchDriver, WithoutAutoReleaseItReleasesNothing)
{
    {
        COleDispatchDriver driver(object, FALSE);
        EXPECT_EQ(1u, object->References());
    }
    EXPECT_EQ(1u, object->References());
}

TEST_F(DispatchDriver, ACopyHasAReferenceOfItsOwn)
{
    COleDispatchDriver unowned(object, FALSE);
    {
        const COleDispatchDriver copy(unowned);
        EXPECT_EQ(2u, object->References());
        EXPECT_TRUE(copy.m_bAutoRelease);
    }
    EXPECT_EQ(1u, object->References());
    const COleDispatchDriver empty;
    EXPECT_EQ(nullptr, COleDispatchDriver(empty).m_lpDispatch);
}

TEST_F(DispatchDriver, AssignmentReleasesWhatWasHeld)
{
    Automation* other = new Automation;
    {
        COleDispatchDriver driver = Driver();
        COleDispatchDriver source(other, FALSE);
        driver = source;
        EXPECT_EQ(1u, object->References());
        EXPECT_EQ(2u, other->References());
        EXPECT_TRUE(driver.m_bAutoRelease);
        driver = COleDispatchDriver();
        EXPECT_EQ(1u, other->References());
        EXPECT_EQ(nullptr, driver.m_lpDispatch);
    }
    other->Release();
}

TEST_F(DispatchDriver, AssignmentOfTheSameObjectKeepsIt)
{
    COleDispatchDriver driver = Driver();
    COleDispatchDriver& alias = driver;
    driver = alias;
    EXPECT_EQ(2u, object->References());
    const COleDispatchDriver copy(driver);
    driver = copy;
    EXPECT_EQ(3u, object->References());
}

TEST_F(DispatchDriver, AttachesDetachesAndReleases)
{
    COleDispatchDriver driver = Driver();
    EXPECT_EQ(object, driver.DetachDispatch());
    EXPECT_EQ(nullptr, driver.m_lpDispatch);
    EXPECT_EQ(2u, object->References());
    driver.AttachDispatch(object);
    LPDISPATCH pointer = driver;
    EXPECT_EQ(object, pointer);
    driver.ReleaseDispatch();
    EXPECT_EQ(1u, object->References());
    driver.ReleaseDispatch();
    driver.AttachDispatch(object, FALSE);
    driver.ReleaseDispatch();
    EXPECT_EQ(1u, object->References());
    EXPECT_EQ(nullptr, driver.m_lpDispatch);
}

TEST_F(DispatchDriver, PassesArgumentsLastFirst)
{
    COleDispatchDriver driver = Driver();
    object->answer = [this](DISPPARAMS* params, VARIANT*, EXCEPINFO*) {
        EXPECT_EQ(9u, params->cArgs);
        EXPECT_EQ(VT_I2, params->rgvarg[8].vt);
        EXPECT_EQ(-2, params->rgvarg[8].iVal);
        EXPECT_EQ(VT_I4, params->rgvarg[7].vt);
        EXPECT_EQ(100000, params->rgvarg[7].lVal);
        EXPECT_EQ(VT_R4, params->rgvarg[6].vt);
        EXPECT_EQ(1.5f, params->rgvarg[6].fltVal);
        EXPECT_EQ(VT_R8, params->rgvarg[5].vt);
        EXPECT_EQ(2.25, params->rgvarg[5].dblVal);
        EXPECT_EQ(VT_BSTR, params->rgvarg[4].vt);
        EXPECT_STREQ(L"text", params->rgvarg[4].bstrVal);
        EXPECT_EQ(4u, SysStringLen(params->rgvarg[4].bstrVal));
        EXPECT_EQ(VT_BOOL, params->rgvarg[3].vt);
        EXPECT_EQ(VARIANT_TRUE, params->rgvarg[3].boolVal);
        EXPECT_EQ(VT_DISPATCH, params->rgvarg[2].vt);
        EXPECT_EQ(object, params->rgvarg[2].pdispVal);
        EXPECT_EQ(VT_I8, params->rgvarg[1].vt);
        EXPECT_EQ(1LL << 40, params->rgvarg[1].llVal);
        EXPECT_EQ(VT_UI4, params->rgvarg[0].vt);
        EXPECT_EQ(0xFFFFFFFFu, params->rgvarg[0].ulVal);
        return S_OK;
    };
    driver.InvokeHelper(7, DISPATCH_METHOD, VT_EMPTY, NULL,
                        Params(VTS_I2 VTS_I4 VTS_R4 VTS_R8 VTS_BSTR VTS_BOOL VTS_DISPATCH VTS_I8 VTS_UI4), -2,
                        100000L, 1.5, 2.25, L"text", 5, static_cast<LPDISPATCH>(object), 1LL << 40,
                        0xFFFFFFFFu);
    EXPECT_EQ(7, object->member);
    EXPECT_EQ(DISPATCH_METHOD, object->flags);
    EXPECT_EQ(0u, object->namedArguments);
    EXPECT_FALSE(object->wantedResult);
    EXPECT_EQ(2u, object->References());
}

TEST_F(DispatchDriver, PassesVariantsCurrencyAndNullTexts)
{
    COleDispatchDriver driver = Driver();
    VARIANT number;
    number.vt = VT_I4;
    number.lVal = 12;
    CY money;
    money.int64 = 12345;
    object->answer = [](DISPPARAMS* params, VARIANT*, EXCEPINFO*) {
        EXPECT_EQ(3u, params->cArgs);
        EXPECT_EQ(VT_I4, params->rgvarg[2].vt);
        EXPECT_EQ(12, params->rgvarg[2].lVal);
        EXPECT_EQ(VT_CY, params->rgvarg[1].vt);
        EXPECT_EQ(12345, params->rgvarg[1].cyVal.int64);
        EXPECT_EQ(VT_BSTR, params->rgvarg[0].vt);
        EXPECT_EQ(nullptr, params->rgvarg[0].bstrVal);
        return S_OK;
    };
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, NULL, Params(VTS_VARIANT VTS_CY VTS_BSTR), &number,
                        &money, static_cast<const wchar_t*>(NULL));
}

TEST_F(DispatchDriver, PassesVariablesByReference)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS* params, VARIANT*, EXCEPINFO*) {
        EXPECT_EQ(VT_BYREF | VT_I4, params->rgvarg[3].vt);
        *params->rgvarg[3].plVal = 5;
        EXPECT_EQ(VT_BYREF | VT_BOOL, params->rgvarg[2].vt);
        EXPECT_EQ(VARIANT_FALSE, *params->rgvarg[2].pboolVal);
        *params->rgvarg[2].pboolVal = VARIANT_TRUE;
        EXPECT_EQ(VT_BYREF | VT_BSTR, params->rgvarg[1].vt);
        *params->rgvarg[1].pbstrVal = SysAllocString(L"out");
        EXPECT_EQ(VT_BYREF | VT_VARIANT, params->rgvarg[0].vt);
        params->rgvarg[0].pvarVal->vt = VT_I2;
        params->rgvarg[0].pvarVal->iVal = 3;
        return S_OK;
    };
    long number = 0;
    BOOL flag = FALSE;
    BSTR text = NULL;
    VARIANT variant;
    VariantInit(&variant);
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, NULL, Params(VTS_PI4 VTS_PBOOL VTS_PBSTR VTS_PVARIANT),
                        &number, &flag, &text, &variant);
    EXPECT_EQ(5, number);
    EXPECT_EQ(TRUE, flag);
    EXPECT_STREQ(L"out", text);
    EXPECT_EQ(3, variant.iVal);
    SysFreeString(text);
}

TEST_F(DispatchDriver, ConvertsResultsToTheTypeAskedFor)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS*, VARIANT* result, EXCEPINFO*) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"42");
        return S_OK;
    };
    long number = 0;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_I4, &number, NULL);
    EXPECT_TRUE(object->wantedResult);
    EXPECT_EQ(42, number);
    short small = 0;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_I2, &small, NULL);
    EXPECT_EQ(42, small);
    double real = 0;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_R8, &real, NULL);
    EXPECT_EQ(42.0, real);
    CString text;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_BSTR, &text, NULL);
    EXPECT_EQ(L"42", text);
    BOOL flag = FALSE;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_BOOL, &flag, NULL);
    EXPECT_EQ(TRUE, flag);
    long long large = 0;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_I8, &large, NULL);
    EXPECT_EQ(42, large);
    VARIANT variant;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_VARIANT, &variant, NULL);
    EXPECT_EQ(VT_BSTR, variant.vt);
    VariantClear(&variant);
}

TEST_F(DispatchDriver, AReturnedObjectIsTheCallers)
{
    COleDispatchDriver driver = Driver();
    object->answer = [this](DISPPARAMS*, VARIANT* result, EXCEPINFO*) {
        object->AddRef();
        result->vt = VT_DISPATCH;
        result->pdispVal = object;
        return S_OK;
    };
    LPDISPATCH returned = NULL;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_DISPATCH, &returned, NULL);
    EXPECT_EQ(object, returned);
    EXPECT_EQ(3u, object->References());
    returned->Release();
    IUnknown* unknown = NULL;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_UNKNOWN, &unknown, NULL);
    ASSERT_TRUE(unknown != NULL);
    unknown->Release();
}

TEST_F(DispatchDriver, AResultThatCannotBeConvertedThrows)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS*, VARIANT* result, EXCEPINFO*) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"no number");
        return S_OK;
    };
    long number = 17;
    const auto error =
        Thrown<COleException>([&] { driver.InvokeHelper(1, DISPATCH_METHOD, VT_I4, &number, NULL); });
    EXPECT_EQ(DISP_E_TYPEMISMATCH, error->m_sc);
    EXPECT_EQ(17, number);
}

TEST_F(DispatchDriver, WhatTheObjectReportsBecomesADispatchException)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS*, VARIANT*, EXCEPINFO* info) {
        info->wCode = 1001;
        info->bstrSource = SysAllocString(L"source");
        info->bstrDescription = SysAllocString(L"description");
        info->bstrHelpFile = SysAllocString(L"help.chm");
        info->dwHelpContext = 77;
        return DISP_E_EXCEPTION;
    };
    const auto error = Thrown<COleDispatchException>(
        [&] { driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, NULL, Params(VTS_BSTR), L"argument"); });
    EXPECT_EQ(1001, error->m_wCode);
    EXPECT_EQ(L"source", error->m_strSource);
    EXPECT_EQ(L"description", error->m_strDescription);
    EXPECT_EQ(L"help.chm", error->m_strHelpFile);
    EXPECT_EQ(77u, error->m_dwHelpContext);
    wchar_t buffer[40];
    EXPECT_TRUE(error->GetErrorMessage(buffer, 40));
    EXPECT_STREQ(L"description", buffer);
}

TEST_F(DispatchDriver, ADeferredReportIsAskedFor)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS*, VARIANT*, EXCEPINFO* info) {
        info->pfnDeferredFillIn = [](EXCEPINFO* later) -> HRESULT {
            later->scode = E_ACCESSDENIED;
            later->bstrDescription = SysAllocString(L"late");
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    const auto error =
        Thrown<COleDispatchException>([&] { driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, NULL, NULL); });
    EXPECT_EQ(0, error->m_wCode);
    EXPECT_EQ(E_ACCESSDENIED, error->m_scError);
    EXPECT_EQ(L"late", error->m_strDescription);
}

TEST_F(DispatchDriver, OtherFailuresBecomeOleExceptions)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS*, VARIANT*, EXCEPINFO*) { return DISP_E_MEMBERNOTFOUND; };
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, Thrown<COleException>([&] {
                                         driver.InvokeHelper(1, DISPATCH_METHOD, VT_EMPTY, NULL, NULL);
                                     })->m_sc);
}

TEST_F(DispatchDriver, GetsAndSetsProperties)
{
    COleDispatchDriver driver = Driver();
    object->answer = [](DISPPARAMS* params, VARIANT* result, EXCEPINFO*) {
        EXPECT_EQ(0u, params->cArgs);
        result->vt = VT_I4;
        result->lVal = 6;
        return S_OK;
    };
    const COleDispatchDriver& constant = driver;
    long number = 0;
    constant.GetProperty(3, VT_I4, &number);
    EXPECT_EQ(6, number);
    EXPECT_EQ(DISPATCH_PROPERTYGET, object->flags);

    object->answer = [](DISPPARAMS* params, VARIANT*, EXCEPINFO*) {
        EXPECT_EQ(1u, params->cArgs);
        EXPECT_EQ(VT_BSTR, params->rgvarg[0].vt);
        EXPECT_STREQ(L"value", params->rgvarg[0].bstrVal);
        return S_OK;
    };
    driver.SetProperty(4, VT_BSTR, L"value");
    EXPECT_EQ(DISPATCH_PROPERTYPUT, object->flags);
    EXPECT_EQ(1u, object->namedArguments);
    EXPECT_FALSE(object->wantedResult);
}

TEST_F(DispatchDriver, ObjectPropertiesAreSetByReference)
{
    COleDispatchDriver driver = Driver();
    driver.SetProperty(4, VT_DISPATCH, static_cast<LPDISPATCH>(object));
    EXPECT_EQ(DISPATCH_PROPERTYPUTREF, object->flags);
    EXPECT_EQ(1u, object->namedArguments);
}

TEST_F(DispatchDriver, WithoutAnInterfaceNothingHappens)
{
    COleDispatchDriver driver;
    long number = 17;
    driver.InvokeHelper(1, DISPATCH_METHOD, VT_I4, &number, NULL);
    driver.SetProperty(1, VT_I4, 1L);
    EXPECT_EQ(17, number);
}

TEST(DispatchDriverCreation, TellsWhyItFailed)
{
    CoInitialize(NULL);
    COleDispatchDriver driver;
    COleException error;
    EXPECT_FALSE(driver.CreateDispatch(L"No.Such.Program.Id", &error));
    EXPECT_EQ(CO_E_CLASSSTRING, error.m_sc);
    EXPECT_FALSE(driver.CreateDispatch(CLSID_NULL, &error));
    EXPECT_EQ(REGDB_E_CLASSNOTREG, error.m_sc);
    EXPECT_FALSE(driver.CreateDispatch(L"{00000000-0000-0000-0000-000000000000}", &error));
    EXPECT_EQ(REGDB_E_CLASSNOTREG, error.m_sc);
    EXPECT_FALSE(driver.CreateDispatch(static_cast<const wchar_t*>(NULL), &error));
    EXPECT_EQ(nullptr, driver.m_lpDispatch);
    CoUninitialize();
}

TEST(DispatchDriverCreation, MakesAnObjectOfThePlatform)
{
    CoInitialize(NULL);
    {
        COleDispatchDriver driver;
        COleException error;
        ASSERT_TRUE(driver.CreateDispatch(L"Scripting.FileSystemObject", &error)) << std::hex << error.m_sc;
        ASSERT_TRUE(driver.m_lpDispatch != NULL);
        LPOLESTR name = const_cast<LPOLESTR>(L"FolderExists");
        DISPID member = DISPID_UNKNOWN;
        ASSERT_EQ(S_OK, driver.m_lpDispatch->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &member));
        BOOL exists = FALSE;
        driver.InvokeHelper(member, DISPATCH_METHOD, VT_BOOL, &exists, Params(VTS_BSTR), L"C:\\windows");
        EXPECT_EQ(TRUE, exists);
        driver.InvokeHelper(member, DISPATCH_METHOD, VT_BOOL, &exists, Params(VTS_BSTR),
                            L"C:\\no such folder");
        EXPECT_EQ(FALSE, exists);
    }
    CoUninitialize();
}

TEST(OleInit, StartsAnApartmentThatOleTermEnds)
{
    std::thread([] {
        EXPECT_TRUE(AfxOleInit());
        EXPECT_TRUE(AfxOleInit());
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(NULL, COINIT_MULTITHREADED));
        AfxOleTerm();
        EXPECT_EQ(S_OK, CoInitializeEx(NULL, COINIT_MULTITHREADED));
        CoUninitialize();
        AfxOleTerm();
    }).join();
}

TEST(OleInit, StartsAnApartmentForEachThreadThatAsks)
{
    std::thread([] {
        ASSERT_TRUE(AfxOleInit());
        std::thread([] {
            EXPECT_TRUE(AfxOleInit());
            EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(NULL, COINIT_MULTITHREADED));
            AfxOleTerm();
        }).join();
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(NULL, COINIT_MULTITHREADED));
        AfxOleTerm();
    }).join();
}
