// What the tests of the menu and toolbar builder share.
#pragma once

#include "VelmUtil22.h"
#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"
#include "kit/Text.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "recording/Recording.h"

// The folder of the test program, with its trailing backslash.
inline std::wstring ProgramFolder()
{
    return (testkit::ProgramFolder() / L"").wstring();
}

// The test program's own file name, as a module name.
inline std::wstring ProgramName()
{
    std::array<wchar_t, 4096> name{};
    GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    const std::wstring path = name.data();
    return path.substr(path.rfind(L'\\') + 1);
}

inline std::wstring InQuotes(const std::wstring& text)
{
    return L'"' + text + L'"';
}

// The line of the companion's log for a button. `macro` and `toolTip` as they stand there, in quotation
// marks or null.
inline std::wstring ButtonLine(const std::wstring& toolbar, const std::wstring& macro,
                               const std::wstring& toolTip, const std::wstring& image,
                               const std::wstring& flyout = L"null",
                               const std::wstring& folder = ProgramFolder())
{
    return L"Append_ToolBarItem(" + toolbar + L", " + macro + L", " + toolTip + L", " +
           InQuotes(folder + L"Bmps\\" + image + L"16.bmp") + L", " +
           InQuotes(folder + L"Bmps\\" + image + L"24.bmp") + L", " +
           (flyout == L"null" ? L"false" : L"true") + L", " + flyout + L")";
}

inline std::wstring ItemLine(const std::wstring& menu, const std::wstring& label, const std::wstring& macro,
                             const std::wstring& help)
{
    return L"Append_MenuItem(" + menu + L", " + label + L", " + macro + L", " + help + L", true, false)";
}

// A fresh companion for each test, the message boxes answered, and in the end the check that every
// reference that the companion handed out was released once, no more and no less.
class HostMenuTest : public testing::Test
{
protected:
    void SetUp() override
    {
        recording::Reset();
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    }

    void TearDown() override
    {
        for (const auto& [name, references] : recording::References())
            EXPECT_EQ(references, 0) << testkit::Utf8(name);
        recording::Reset();
        CoUninitialize();
    }

    // Builds from a text; without a module name for the test program itself.
    static void Build(const std::wstring& text, std::wstring moduleName = ProgramName())
    {
        Append_MenuToolBar(CString(text.c_str()), moduleName.data());
    }

    // A document of that text.
    static IXMLDOMDocumentPtr Load(const std::wstring& text)
    {
        IXMLDOMDocumentPtr document;
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        if (FAILED(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER)) ||
            FAILED(document->loadXML(_bstr_t(text.c_str()), &isLoaded)) || isLoaded == VARIANT_FALSE)
            ADD_FAILURE() << "not loaded: " << testkit::Quoted(text);
        return document;
    }

    // The root element of a document of that text.
    static IXMLDOMNodePtr Root(const std::wstring& text)
    {
        IXMLDOMElementPtr element;
        Load(text)->get_documentElement(&element);
        return element;
    }

    std::vector<std::wstring> Messages() const { return m_boxes.Texts(); }

    testkit::MessageBoxWatch m_boxes;
};
