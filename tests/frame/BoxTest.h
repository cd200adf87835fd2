// What the tests of list boxes and combo boxes share.
#pragma once

#include "VelmUtil22.h"
#include "kit/Text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

// A box that notes the messages it is sent.
template <class Box>
class CWatchedBox : public Box
{
public:
    std::vector<UINT> m_messages;

    int CountOf(UINT message) const
    {
        int count = 0;
        for (const UINT noted : m_messages)
            count += noted == message;
        return count;
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_messages.push_back(message);
        return Box::WindowProc(message, wParam, lParam);
    }
};

// Real boxes in a real window that is never shown.
class BoxTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_parent.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 300, 300), nullptr, 0));
    }

    void TearDown() override
    {
        if (m_parent.GetSafeHwnd() != nullptr)
            m_parent.DestroyWindow();
    }

    // A list box of the given further styles.
    template <class Box>
    void CreateListBox(Box& box, DWORD style = 0)
    {
        ASSERT_TRUE(box.Create(WS_CHILD | LBS_HASSTRINGS | style, CRect(0, 0, 200, 200), &m_parent, 1));
    }

    template <class Box>
    void CreateComboBox(Box& box, DWORD style = CBS_DROPDOWNLIST)
    {
        ASSERT_TRUE(box.Create(WS_CHILD | CBS_HASSTRINGS | style, CRect(0, 0, 200, 200), &m_parent, 2));
    }

    CWnd m_parent;
};

inline std::vector<std::wstring> LinesOf(const CListBox& box)
{
    std::vector<std::wstring> lines;
    for (int i = 0; i < box.GetCount(); ++i) {
        CString line;
        box.GetText(i, line);
        lines.emplace_back(line);
    }
    return lines;
}

inline std::vector<std::wstring> LinesOf(const CComboBox& box)
{
    std::vector<std::wstring> lines;
    for (int i = 0; i < box.GetCount(); ++i) {
        CString line;
        box.GetLBText(i, line);
        lines.emplace_back(line);
    }
    return lines;
}

inline std::vector<std::wstring> TextsOf(const CStringArray& array)
{
    std::vector<std::wstring> texts;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        texts.emplace_back(array[i]);
    return texts;
}
