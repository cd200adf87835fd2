// What the sample add-in's description makes of the host, and what is left of it.
#include "WholeTest.h"

#include <set>

#include "kit/Files.h"

namespace wholetest
{

using testing::ElementsAre;
using velmhost::MenuItemType;
using velmhost::ToolbarItemType;

namespace
{

unsigned CountItems(const velmhost::Menu& menu, MenuItemType type)
{
    unsigned count = 0;
    for (const auto& item : menu.items)
        count += (item->type == type) + (item->subMenu ? CountItems(*item->subMenu, type) : 0);
    return count;
}

// Width and height of a bitmap file; 0 by 0 when it is none.
CSize SizeOfBitmap(const std::wstring& file)
{
    const std::string bytes = testkit::ReadBytes(file);
    BITMAPFILEHEADER head{};
    BITMAPINFOHEADER info{};
    if (bytes.size() < sizeof head + sizeof info)
        return CSize(0, 0);
    memcpy(&head, bytes.data(), sizeof head);
    memcpy(&info, bytes.data() + sizeof head, sizeof info);
    return head.bfType == 0x4D42 ? CSize(info.biWidth, info.biHeight) : CSize(0, 0);
}

} // namespace

class HostTree : public WholeTest
{
};

TEST_F(HostTree, HasTheMenuAtTheEndOfTheBar)
{
    ASSERT_TRUE(Load());
    EXPECT_THAT(LabelsOf({}), ElementsAre(L"File", L"Drafting"));
    EXPECT_THAT(LabelsOf({L"Drafting"}), ElementsAre(L"Drafting tools", L"", L"Draw", L"Modify", L"Annotate",
                                                     L"", L"View", L"Layers...", L"Grid", L"Ortho",
                                                     L"\u00DCbersicht / \u041E\u0431\u0437\u043E\u0440 / "
                                                     L"P\u0159ehled",
                                                     L"", L"Repeat"));
    EXPECT_THAT(LabelsOf({L"Drafting", L"Draw", L"Circle"}),
                ElementsAre(L"Centre, radius", L"Centre, \u00D8 diameter", L"", L"2 points", L"3 points",
                            L"Tangent"));
}

// Counted by hand in the description.
TEST_F(HostTree, HasEveryEntryOfTheMenu)
{
    ASSERT_TRUE(Load());
    const auto& menu = MenuNamed(L"D&rafting");
    EXPECT_EQ(7u, CountItems(menu, MenuItemType::Separator));
    EXPECT_EQ(8u, CountItems(menu, MenuItemType::SubMenu));
    EXPECT_EQ(41u, CountItems(menu, MenuItemType::Item));
}

TEST_F(HostTree, HasTheToolbarsButtonsInOrder)
{
    ASSERT_TRUE(Load());
    std::vector<std::wstring> names;
    for (const auto& item : ToolbarNamed(L"Drafting").items)
        names.push_back(item->name);
    EXPECT_THAT(names, ElementsAre(L"Line", L"Polyline", L"Circle", L"Erase", L"Copy", L"Move", L"Rotate",
                                   L"Mirror", L"Trim", L"Text", L"Linear dimension (\u00B1)", L"Zoom all",
                                   L"Pan", L"Layers", L"Grid"));
    EXPECT_TRUE(ToolbarNamed(L"Drafting").visible);
    for (const wchar_t* name : {L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3", L"SubToolbar_4"})
        EXPECT_FALSE(ToolbarNamed(name).visible);
}

TEST_F(HostTree, HasAPictureOfEachSizeForEveryButton)
{
    ASSERT_TRUE(Load());
    std::set<std::string> pictures;
    std::set<std::wstring> files;
    for (const auto& toolbar : Model().Groups().front()->toolbars) {
        for (const auto& item : toolbar->items) {
            SCOPED_TRACE(testing::PrintToString(item->name));
            EXPECT_EQ(CSize(16, 16), SizeOfBitmap(item->smallBitmap));
            EXPECT_EQ(CSize(24, 24), SizeOfBitmap(item->largeBitmap));
            files.insert(item->smallBitmap);
            pictures.insert(testkit::ReadBytes(item->smallBitmap));
        }
    }
    EXPECT_EQ(25u, files.size());
    EXPECT_EQ(files.size(), pictures.size()) << "two pictures are the same";
}

TEST_F(HostTree, IsTheSameAfterASecondLoading)
{
    ASSERT_TRUE(Load());
    const std::wstring tree = Tree();
    for (int run = 0; run < 2; ++run) {
        ASSERT_TRUE(Unload());
        ASSERT_TRUE(Load());
        EXPECT_EQ(tree, Tree());
    }
}

TEST_F(HostTree, IsTheSameWhenTheAddInBuildsAgain)
{
    ASSERT_TRUE(Load());
    const std::wstring tree = Tree();
    EXPECT_EQ(0, Build());
    EXPECT_EQ(tree, Tree());
}

TEST_F(HostTree, StaysWhenTheAddInIsUnloaded)
{
    ASSERT_TRUE(Load());
    const std::wstring tree = Tree();
    ASSERT_TRUE(Unload());
    EXPECT_EQ(tree, Tree());
}

} // namespace wholetest
