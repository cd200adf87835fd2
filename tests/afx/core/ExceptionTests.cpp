// The exceptions that are no matter of files or automation.
#include "Thrown.h"
#include "resource.h"

#include <afxdisp.h>
#include <afxtempl.h>

#include "kit/MessageBoxWatch.h"
#include "kit/Text.h"

static CString MessageOf(const CException& exception)
{
    CString text;
    exception.GetErrorMessage(text.GetBuffer(300), 300);
    text.ReleaseBuffer();
    return text;
}

TEST(Exception, MadeWithNewIsFreedByDelete)
{
    static int alive;
    struct CNoted : CException
    {
        CNoted(BOOL bAutoDelete) : CException(bAutoDelete) { ++alive; }
        ~CNoted() { --alive; }
    };
    CException* heap = new CNoted(TRUE);
    heap->Delete();
    EXPECT_EQ(0, alive);
    {
        CNoted local(FALSE);
        local.Delete();
        EXPECT_EQ(1, alive);
    }
    EXPECT_EQ(0, alive);
}

TEST(Exception, IsCaughtAsItsBase)
{
    try {
        AfxThrowMemoryException();
    } catch (CSimpleException* e) {
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CMemoryException)));
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CException)));
        EXPECT_FALSE(e->IsKindOf(RUNTIME_CLASS(CInvalidArgException)));
        e->Delete();
    }
}

TEST(Exception, TheSimpleOnesAreThrownWithoutMemory)
{
    // Always the same object: nothing is allocated for it.
    CMemoryException* first = Thrown<CMemoryException>(AfxThrowMemoryException).release();
    CMemoryException* second = Thrown<CMemoryException>(AfxThrowMemoryException).release();
    EXPECT_EQ(first, second);
    Thrown<CNotSupportedException>(AfxThrowNotSupportedException);
    Thrown<CInvalidArgException>(AfxThrowInvalidArgException);
    Thrown<CResourceException>(AfxThrowResourceException);
    Thrown<CUserException>(AfxThrowUserException);
}

TEST(Exception, EachSimpleOneHasATextOfItsOwn)
{
    const CString texts[] = {MessageOf(CMemoryException(FALSE)), MessageOf(CNotSupportedException(FALSE)),
                             MessageOf(CInvalidArgException(FALSE)), MessageOf(CResourceException(FALSE)),
                             MessageOf(CUserException(FALSE))};
    for (const CString& text : texts) {
        EXPECT_FALSE(text.IsEmpty());
        int same = 0;
        for (const CString& other : texts)
            same += text == other;
        EXPECT_EQ(1, same);
    }
    EXPECT_EQ(L"%d is %s", MessageOf(CUserException(FALSE, IDS_FORMAT)));
}

TEST(Exception, AMessageIsCutToTheRoomGiven)
{
    wchar_t buffer[4] = L"???";
    UINT help = 7;
    EXPECT_TRUE(CUserException(FALSE, IDS_FORMAT).GetErrorMessage(buffer, 4, &help));
    EXPECT_STREQ(L"%d ", buffer);
    EXPECT_EQ(0u, help);
    EXPECT_FALSE(CException(FALSE).GetErrorMessage(buffer, 4));
    EXPECT_STREQ(L"", buffer);
}

TEST(Exception, ReportShowsItsOwnText)
{
    testkit::MessageBoxWatch watch;
    watch.Answer(IDCANCEL);
    CUserException exception(FALSE, IDS_FORMAT);
    EXPECT_EQ(IDCANCEL, exception.ReportError(MB_OKCANCEL));
    ASSERT_EQ(1u, watch.Boxes().size());
    EXPECT_EQ(L"%d is %s", watch.Boxes()[0].text);
}

TEST(Exception, ReportWithoutATextShowsTheResourceOrAGeneralText)
{
    testkit::MessageBoxWatch watch;
    CException exception(FALSE);
    exception.ReportError(MB_OK, IDS_PROGRAM);
    exception.ReportError();
    ASSERT_EQ(2u, watch.Boxes().size());
    EXPECT_EQ(L"from the program: \u20AC", watch.Boxes()[0].text);
    EXPECT_FALSE(watch.Boxes()[1].text.empty());
    EXPECT_NE(watch.Boxes()[0].text, watch.Boxes()[1].text);
}

TEST(Exception, ReportCutsNoLongText)
{
    testkit::MessageBoxWatch watch;
    const CString text(L'x', 1300);
    COleDispatchException exception(text, 0, 1);
    exception.ReportError();
    ASSERT_EQ(1u, watch.Boxes().size());
    EXPECT_EQ(text, watch.Boxes()[0].text.c_str());
}

TEST(ExceptionMacros, DeleteWhatTheyCaught)
{
    static int alive;
    struct CNoted : CUserException
    {
        CNoted() { ++alive; }
        ~CNoted() { --alive; }
    };
    bool caught = false;
    TRY
    {
        THROW(new CNoted);
    }
    CATCH(CMemoryException, e)
    {
        ADD_FAILURE() << "a handler of another class";
    }
    AND_CATCH(CUserException, e)
    {
        caught = true;
        EXPECT_EQ(1, alive);
    }
    END_CATCH
    EXPECT_TRUE(caught);
    EXPECT_EQ(0, alive);
}

TEST(ExceptionMacros, ThrowLastPassesTheExceptionOn)
{
    int passed = 0;
    TRY{TRY{AfxThrowFileException(CFileException::badSeek);
}
CATCH_ALL(e)
{
    ++passed;
    THROW_LAST();
}
END_CATCH_ALL
}
CATCH(CFileException, e)
{
    ++passed;
    EXPECT_EQ(CFileException::badSeek, e->m_cause);
}
END_CATCH
EXPECT_EQ(2, passed);
}

TEST(ExceptionMacros, EndTrySwallows){TRY{AfxThrowFileException(CFileException::badSeek);
}
END_TRY
}

TEST(AtlThrowing, ChoosesTheClassByTheCode)
{
    Thrown<CMemoryException>([] { AtlThrow(E_OUTOFMEMORY); });
    Thrown<CInvalidArgException>([] { AtlThrow(E_INVALIDARG); });
    EXPECT_EQ(E_ACCESSDENIED, Thrown<COleException>([] { AtlThrow(E_ACCESSDENIED); })->m_sc);
}

TEST(ObjectMemory, RunningOutThrowsMemoryException)
{
    Thrown<CMemoryException>([] { CObject::operator new(size_t(1) << 62); });
    Thrown<CMemoryException>([] { CString().Preallocate(0x7FFFFFFF); });
    Thrown<CMemoryException>([] { CArray<double, double>().SetSize(INT_PTR(1) << 59); });
}
