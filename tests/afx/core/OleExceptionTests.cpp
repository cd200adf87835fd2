// COleException and COleDispatchException.
#include "Thrown.h"
#include "resource.h"

#include <afxdisp.h>

#include "kit/Text.h"

namespace
{

struct OwnedExcepInfo : EXCEPINFO
{
    OwnedExcepInfo() : EXCEPINFO() {}
    ~OwnedExcepInfo()
    {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

} // namespace

TEST(OleException, CarriesItsCode)
{
    const auto exception = Thrown<COleException>([] { AfxThrowOleException(DISP_E_MEMBERNOTFOUND); });
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, exception->m_sc);
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, COleException::Process(exception.get()));
}

TEST(OleException, HasAMessageForEveryCode)
{
    COleException exception;
    wchar_t buffer[300];
    exception.m_sc = E_ACCESSDENIED;
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 300));
    EXPECT_NE(0, buffer[0]);
    exception.m_sc = SCODE(0x80041234);
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 300));
    EXPECT_STREQ(L"0x80041234", buffer);
}

TEST(OleException, GivesTheNearestCodeForOtherExceptions)
{
    const CMemoryException memory(FALSE);
    const CNotSupportedException unsupported(FALSE);
    const CUserException user(FALSE);
    EXPECT_EQ(E_OUTOFMEMORY, COleException::Process(&memory));
    EXPECT_EQ(E_NOTIMPL, COleException::Process(&unsupported));
    EXPECT_EQ(E_UNEXPECTED, COleException::Process(&user));
}

TEST(OleException, CheckErrorThrowsForFailuresOnly)
{
    AfxCheckError(S_OK);
    AfxCheckError(S_FALSE);
    Thrown<CMemoryException>([] { AfxCheckError(E_OUTOFMEMORY); });
    EXPECT_EQ(E_FAIL, Thrown<COleException>([] { AfxCheckError(E_FAIL); })->m_sc);
}

TEST(DispatchException, IsThrownWithATextOrAResource)
{
    auto exception = Thrown<COleDispatchException>([] { AfxThrowOleDispatchException(5, L"described", 3); });
    EXPECT_EQ(5, exception->m_wCode);
    EXPECT_EQ(L"described", exception->m_strDescription);
    EXPECT_EQ(NOERROR, exception->m_scError);
    EXPECT_EQ(0x30003u, exception->m_dwHelpContext);

    exception = Thrown<COleDispatchException>([] { AfxThrowOleDispatchException(0, IDS_FORMAT); });
    EXPECT_EQ(L"%d is %s", exception->m_strDescription);
    EXPECT_EQ(E_UNEXPECTED, exception->m_scError);
    EXPECT_EQ(DWORD(0x30000 + IDS_FORMAT), exception->m_dwHelpContext);
}

TEST(DispatchException, ItsMessageIsTheDescription)
{
    const COleDispatchException exception(L"described", 3, 5);
    wchar_t buffer[20];
    UINT help = 0;
    EXPECT_TRUE(exception.GetErrorMessage(buffer, 20, &help));
    EXPECT_STREQ(L"described", buffer);
    EXPECT_EQ(0x30003u, help);
    EXPECT_FALSE(COleDispatchException(NULL, 0, 1).GetErrorMessage(buffer, 20));
}

TEST(DispatchException, IsPackedForAnInvokeOfOnesOwn)
{
    COleDispatchException exception(L"described", 3, 5);
    exception.m_strSource = L"source";
    exception.m_strHelpFile = L"help";
    OwnedExcepInfo info;
    COleDispatchException::Process(&info, &exception);
    EXPECT_EQ(5, info.wCode);
    EXPECT_EQ(0, info.scode);
    EXPECT_STREQ(L"source", info.bstrSource);
    EXPECT_STREQ(L"described", info.bstrDescription);
    EXPECT_STREQ(L"help", info.bstrHelpFile);
    EXPECT_EQ(0x30003u, info.dwHelpContext);

    OwnedExcepInfo other;
    const CMemoryException memory(FALSE);
    COleDispatchException::Process(&other, &memory);
    EXPECT_EQ(E_OUTOFMEMORY, other.scode);
    EXPECT_LT(0u, SysStringLen(other.bstrDescription));
}
