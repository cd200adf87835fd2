// What the tests of the description tool share: the program itself, run on files of the test's own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kit/ChildProgram.h"
#include "kit/Files.h"

namespace menutool
{

using Lines = std::vector<std::string>;

// A toolbar with nothing to say against.
inline constexpr char CleanToolBar[] = "<Toolbars Name='T'><Toolbar Cmd='L' ImageList='l'/></Toolbars>";
inline constexpr char CleanMenu[] = "<Menus Name='M'><Menu Name='L' Cmd='L'/></Menus>";

class MenuToolTest : public testing::Test
{
protected:
    static testkit::ProgramResult Run(const std::vector<std::wstring>& arguments);

    // Writes a file into the test's folder and returns its full name.
    std::wstring Write(std::wstring_view name, std::string_view bytes);
    std::wstring NameOf(std::wstring_view name) const { return (m_folder / name).wstring(); }
    // A bitmap file of one colour, with a second one in its right half if given.
    std::wstring WriteBitmap(std::wstring_view name, int side, COLORREF color, COLORREF rightHalf = CLR_NONE);

    // The findings of a description, without the file's name, as "LINE: text". Expects the exit status that
    // belongs to them.
    Lines Check(std::string_view text, const std::vector<std::wstring>& options = {});
    // The same for the entries of a menu, the first of which is in line 2.
    Lines CheckMenu(std::string_view entries);
    // The same for the entries of a toolbar.
    Lines CheckToolBar(std::string_view entries, const std::vector<std::wstring>& options = {});

    testkit::TempFolder m_folder;
};

// Splits at line ends; the last line ends with one as well.
Lines SplitLines(const std::string& text);

} // namespace menutool
