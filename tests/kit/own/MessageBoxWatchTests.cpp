#include "kit/MessageBoxWatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

using testing::ElementsAre;

namespace
{

TEST(MessageBoxWatch, NotesCaptionTextButtonsAndIcon)
{
    testkit::MessageBoxWatch watch;
    MessageBoxW(nullptr, L"Something is & wrong\nhere", L"Title", MB_YESNOCANCEL | MB_ICONWARNING);
    ASSERT_EQ(watch.Boxes().size(), 1u);
    const testkit::MessageBoxRecord& box = watch.Boxes()[0];
    EXPECT_EQ(box.caption, L"Title");
    EXPECT_EQ(box.text, L"Something is & wrong\nhere");
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONWARNING));
    EXPECT_THAT(box.buttons, ElementsAre(IDYES, IDNO, IDCANCEL));
}

TEST(MessageBoxWatch, KnowsEveryIcon)
{
    testkit::MessageBoxWatch watch;
    const UINT icons[] = {0, MB_ICONERROR, MB_ICONQUESTION, MB_ICONWARNING, MB_ICONINFORMATION};
    for (const UINT icon : icons) {
        MessageBoxW(nullptr, L"text", L"caption", MB_OK | icon);
    }
    ASSERT_EQ(watch.Boxes().size(), std::size(icons));
    for (size_t i = 0; i < std::size(icons); ++i) {
        EXPECT_EQ(watch.Boxes()[i].icon, icons[i]) << i;
    }
}

TEST(MessageBoxWatch, PressesTheFirstButton)
{
    testkit::MessageBoxWatch watch;
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"", MB_OK), IDOK);
    EXPECT_EQ(MessageBoxW(nullptr, L"b", L"", MB_YESNO), IDYES);
    EXPECT_EQ(MessageBoxW(nullptr, L"c", L"", MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(MessageBoxW(nullptr, L"d", L"", MB_ABORTRETRYIGNORE), IDABORT);
    EXPECT_THAT(watch.Texts(), ElementsAre(L"a", L"b", L"c", L"d"));
}

TEST(MessageBoxWatch, PressesTheGivenButtonsInTurn)
{
    testkit::MessageBoxWatch watch;
    watch.Answer(IDNO);
    watch.Answer(IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, L"a", L"", MB_YESNOCANCEL), IDNO);
    EXPECT_EQ(MessageBoxW(nullptr, L"b", L"", MB_YESNOCANCEL), IDCANCEL);
    EXPECT_EQ(MessageBoxW(nullptr, L"c", L"", MB_YESNOCANCEL), IDYES);
    EXPECT_EQ(watch.Boxes()[0].pressed, IDNO);
}

TEST(MessageBoxWatch, FailsTheTestWhenAButtonIsNotThere)
{
    testkit::MessageBoxWatch watch;
    watch.Answer(IDNO);
    int pressed = 0;
    EXPECT_NONFATAL_FAILURE(pressed = MessageBoxW(nullptr, L"a", L"", MB_OKCANCEL), "no button 7");
    EXPECT_EQ(pressed, IDOK);
}

TEST(MessageBoxWatch, TheInnermostTakesTheBox)
{
    testkit::MessageBoxWatch outer;
    {
        testkit::MessageBoxWatch inner;
        MessageBoxW(nullptr, L"inside", L"", MB_OK);
        EXPECT_THAT(inner.Texts(), ElementsAre(L"inside"));
    }
    MessageBoxW(nullptr, L"outside", L"", MB_OK);
    EXPECT_THAT(outer.Texts(), ElementsAre(L"outside"));
}

INT_PTR CALLBACK EndAtOnce(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_INITDIALOG) {
        PostMessageW(dialog, WM_APP, 0, 0);
        return TRUE;
    }
    if (message == WM_APP) {
        EndDialog(dialog, 77);
        return TRUE;
    }
    return FALSE;
}

TEST(MessageBoxWatch, LeavesOtherDialogsAlone)
{
    testkit::MessageBoxWatch watch;
    struct // a dialog with no controls
    {
        DLGTEMPLATE head;
        WORD menu, type, title;
    } dialog{};
    dialog.head.style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    dialog.head.cx = dialog.head.cy = 50;
    EXPECT_EQ(DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &dialog.head, nullptr, EndAtOnce, 0), 77);
    EXPECT_TRUE(watch.Boxes().empty());
}

#ifdef TESTKIT_WITH_MFC

TEST(MessageBoxWatch, TakesTheFrameworksMessageBoxes)
{
    testkit::MessageBoxWatch watch;
    watch.Answer(IDNO);
    EXPECT_EQ(AfxMessageBox(_T("Question"), MB_YESNO | MB_ICONQUESTION), IDNO);
    AfxMessageBox(_T("Statement"));
    EXPECT_THAT(watch.Texts(), ElementsAre(L"Question", L"Statement"));
    EXPECT_EQ(watch.Boxes()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
}

#endif

} // namespace
