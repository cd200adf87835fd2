#include "HeaderGround.h"
#include "UnlikeColors.h"

#include <cstddef>
#include <memory>

using testing::ElementsAre;

namespace
{

class HeaderProperty : public HeaderTest
{
protected:
    // What is to be painted anew; the header is clean afterwards.
    CRect Invalid()
    {
        CRect rect;
        m_header.GetUpdateRect(&rect);
        m_header.UpdateWindow();
        return rect;
    }

    void SetUp() override
    {
        HeaderTest::SetUp();
        m_header.UpdateWindow();
        m_header.erasings = 0;
    }

    void ExpectWholeInvalidWithErase()
    {
        EXPECT_EQ(Invalid(), CRect(CPoint(0, 0), ClientSize()));
        EXPECT_EQ(m_header.erasings, 1);
    }
};

// The header's layout for a rectangle 200 wide.
struct Layout
{
    RECT rect{0, 0, 200, 100};
    WINDOWPOS position{};

    explicit Layout(CWnd& header)
    {
        HDLAYOUT layout{&rect, &position};
        result = header.SendMessage(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
    }
    LRESULT result;
};

class MapOfHeader : public CXHeaderCtrl
{
public:
    static std::vector<UINT> Messages()
    {
        std::vector<UINT> messages;
        for (const AFX_MSGMAP_ENTRY* entry = GetThisMessageMap()->lpEntries; entry->nMessage != 0; ++entry)
            messages.push_back(entry->nMessage);
        return messages;
    }
};

} // namespace

TEST(HeaderObject, MembersHaveTheirDefaults)
{
    const UnlikeSystemColors colors;
    ASSERT_TRUE(colors.AreGiven());
    const OpenHeader header;
    EXPECT_EQ(header.m_bDoubleBuffer, 1);
    EXPECT_EQ(header.m_nSpacing, 6);
    EXPECT_EQ(header.m_sizeImage, CSize(0, 0));
    EXPECT_EQ(header.m_sizeProperty2, CSize(8, 8));
    EXPECT_EQ(header.m_bWideLayout, 0);
    EXPECT_EQ(header.m_nProperty4, 0u);
    EXPECT_EQ(header.m_nReserved1, 0);
    EXPECT_EQ(header.m_nReserved2, 0);
    EXPECT_EQ(header.m_nReserved3, 0);
    EXPECT_EQ(header.m_cr3DHighLight, UnlikeColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(header.m_cr3DShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(header.m_cr3DFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(header.m_crText, UnlikeColor(COLOR_BTNTEXT));
}

// Offsets themselves are the compiler's: some put the first member into the padding of the base class.
TEST(HeaderObject, MembersStandInTheirOrder)
{
    const OpenHeader header;
    struct Member
    {
        ptrdiff_t offset;
        size_t size;
    };
    const auto member = [&](const auto& value) {
        return Member{reinterpret_cast<const char*>(&value) - reinterpret_cast<const char*>(&header),
                      sizeof value};
    };
    const std::vector<Member> members{
        member(header.m_bDoubleBuffer), member(header.m_nSpacing),    member(header.m_sizeImage),
        member(header.m_sizeProperty2), member(header.m_bWideLayout), member(header.m_nProperty4),
        member(header.m_nReserved1),    member(header.m_nReserved2),  member(header.m_nReserved3),
        member(header.m_cr3DHighLight), member(header.m_cr3DShadow),  member(header.m_cr3DFace),
        member(header.m_crText)};
    const std::vector<size_t> sizes{4, 4, 8, 8, 4, 8, 4, 8, 8, 4, 4, 4, 4};
    ASSERT_EQ(members.size(), sizes.size());
    for (size_t index = 0; index < sizes.size(); ++index) {
        EXPECT_EQ(members[index].size, sizes[index]) << index;
        if (index == 0)
            continue;
        const auto alignment = static_cast<ptrdiff_t>(sizes[index] == 8 && index > 3 ? 8 : 4);
        const ptrdiff_t end = members[index - 1].offset + static_cast<ptrdiff_t>(sizes[index - 1]);
        EXPECT_EQ(members[index].offset, (end + alignment - 1) / alignment * alignment) << index;
    }
}

TEST(HeaderObject, MessageMapIsInOrder)
{
    EXPECT_THAT(MapOfHeader::Messages(),
                ElementsAre(HDM_INSERTITEMA, HDM_INSERTITEMW, HDM_DELETEITEM, HDM_SETIMAGELIST, HDM_LAYOUT,
                            WM_PAINT, WM_SYSCOLORCHANGE, WM_ERASEBKGND));
}

TEST(HeaderClass, DescribesItself)
{
    const CRuntimeClass* const description = RUNTIME_CLASS(CXHeaderCtrl);
    EXPECT_STREQ(description->m_lpszClassName, "CXHeaderCtrl");
    EXPECT_EQ(description->m_nObjectSize, static_cast<int>(sizeof(CXHeaderCtrl)));
    EXPECT_EQ(description->m_wSchema, 0xFFFFu);
    EXPECT_EQ(description->m_pfnGetBaseClass(), RUNTIME_CLASS(CHeaderCtrl));
    EXPECT_EQ(CXHeaderCtrl::GetThisClass(), description);
    EXPECT_EQ(&CXHeaderCtrl::classCXHeaderCtrl, description);
}

TEST(HeaderClass, ObjectsKnowTheirClass)
{
    const CXHeaderCtrl header;
    EXPECT_EQ(header.GetRuntimeClass(), RUNTIME_CLASS(CXHeaderCtrl));
    EXPECT_TRUE(header.IsKindOf(RUNTIME_CLASS(CHeaderCtrl)));
}

TEST(HeaderClass, CreatesDefaultObjects)
{
    const std::unique_ptr<CObject> object(RUNTIME_CLASS(CXHeaderCtrl)->CreateObject());
    ASSERT_NE(object, nullptr);
    ASSERT_TRUE(object->IsKindOf(RUNTIME_CLASS(CXHeaderCtrl)));
    EXPECT_EQ(static_cast<CXHeaderCtrl*>(object.get())->GetSpacing(), 6);
    EXPECT_EQ(static_cast<CXHeaderCtrl*>(object.get())->GetSafeHwnd(), nullptr);
}

TEST(HeaderClass, IsFoundByName)
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(L"CXHeaderCtrl"));
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CXHeaderCtrl));
}

TEST_F(HeaderProperty, SetSpacingStoresWithoutRepainting)
{
    m_header.SetSpacing(15);
    EXPECT_EQ(m_header.GetSpacing(), 15);
    EXPECT_EQ(m_header.m_nSpacing, 15);
    EXPECT_EQ(Invalid(), CRect());
}

TEST_F(HeaderProperty, OneIsTheSpacing)
{
    EXPECT_EQ(m_header.ModifyProperty(1, 10), TRUE);
    EXPECT_EQ(m_header.GetSpacing(), 10);
    ExpectWholeInvalidWithErase();
}

TEST_F(HeaderProperty, TwoIsASizeInTwoWords)
{
    EXPECT_EQ(m_header.ModifyProperty(2, 0x7'0012'0034), TRUE);
    EXPECT_EQ(m_header.m_sizeProperty2, CSize(0x34, 0x12));
    ExpectWholeInvalidWithErase();
}

TEST_F(HeaderProperty, ThreeIsTheWideLayout)
{
    EXPECT_EQ(m_header.ModifyProperty(3, TRUE), TRUE);
    EXPECT_EQ(m_header.m_bWideLayout, TRUE);
    ExpectWholeInvalidWithErase();
    EXPECT_EQ(m_header.ModifyProperty(3, FALSE), TRUE);
    EXPECT_EQ(m_header.m_bWideLayout, FALSE);
}

TEST_F(HeaderProperty, FourIsAWholeValue)
{
    EXPECT_EQ(m_header.ModifyProperty(4, static_cast<LPARAM>(0xFEDC'BA98'7654'3210)), TRUE);
    EXPECT_EQ(m_header.m_nProperty4, 0xFEDC'BA98'7654'3210);
    ExpectWholeInvalidWithErase();
}

TEST_F(HeaderProperty, EachChangesOnlyItsMember)
{
    m_header.ModifyProperty(1, 11);
    m_header.ModifyProperty(2, MAKELPARAM(12, 13));
    m_header.ModifyProperty(3, 1);
    m_header.ModifyProperty(4, 14);
    EXPECT_EQ(m_header.m_nSpacing, 11);
    EXPECT_EQ(m_header.m_sizeProperty2, CSize(12, 13));
    EXPECT_EQ(m_header.m_bWideLayout, 1);
    EXPECT_EQ(m_header.m_nProperty4, 14u);
    EXPECT_EQ(m_header.m_bDoubleBuffer, 1);
    EXPECT_EQ(m_header.m_sizeImage, CSize(0, 0));
}

TEST_F(HeaderProperty, OthersGiveFalseAndChangeNothing)
{
    for (const WPARAM property : {WPARAM{0}, WPARAM{5}, WPARAM{7}, WPARAM{0x1'0000'0001}, ~WPARAM{0}}) {
        EXPECT_EQ(m_header.ModifyProperty(property, 1), FALSE) << property;
        EXPECT_EQ(Invalid(), CRect()) << property;
    }
    EXPECT_EQ(m_header.m_nSpacing, 6);
    EXPECT_EQ(m_header.m_sizeProperty2, CSize(8, 8));
    EXPECT_EQ(m_header.m_bWideLayout, 0);
    EXPECT_EQ(m_header.m_nProperty4, 0u);
}

TEST_F(HeaderProperty, IsKeptWithoutAWindow)
{
    OpenHeader header;
    EXPECT_EQ(header.ModifyProperty(1, 9), TRUE);
    EXPECT_EQ(header.GetSpacing(), 9);
    EXPECT_EQ(header.ModifyProperty(9, 9), FALSE);
}

TEST_F(HeaderTest, InsertingPassesOnInBothTexts)
{
    char narrow[] = "narrow";
    HDITEMA ansi{};
    ansi.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    ansi.fmt = HDF_STRING;
    ansi.pszText = narrow;
    ansi.cxy = 30;
    EXPECT_EQ(m_header.SendMessage(HDM_INSERTITEMA, 1, reinterpret_cast<LPARAM>(&ansi)), 1);
    wchar_t wide[] = L"wide";
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT;
    item.fmt = HDF_STRING;
    item.pszText = wide;
    item.cxy = 20;
    EXPECT_EQ(m_header.SendMessage(HDM_INSERTITEMW, 99, reinterpret_cast<LPARAM>(&item)), 4);
    EXPECT_EQ(m_header.GetItemCount(), 5);
    ExpectItems({{0, 100, L"First"},
                 {100, 130, L"narrow"},
                 {130, 210, L"Second"},
                 {210, 270, L"Third"},
                 {270, 290, L"wide"}});
}

TEST_F(HeaderTest, DeletingPassesOn)
{
    EXPECT_EQ(m_header.SendMessage(HDM_DELETEITEM, 1), TRUE);
    EXPECT_EQ(m_header.SendMessage(HDM_DELETEITEM, 9), FALSE);
    EXPECT_EQ(m_header.GetItemCount(), 2);
    ExpectItems({{0, 100, L"First"}, {100, 160, L"Third"}});
}

TEST_F(HeaderTest, ImageListGivesTheSizeOfItsImages)
{
    UseImages({{13, 9}, {13, 9, 1}});
    EXPECT_EQ(m_header.m_sizeImage, CSize(13, 9));
}

TEST_F(HeaderTest, ImageListIsPassedOn)
{
    UseImages({{13, 9}});
    EXPECT_EQ(reinterpret_cast<HIMAGELIST>(m_header.SendMessage(HDM_GETIMAGELIST)), m_images);
    EXPECT_EQ(reinterpret_cast<HIMAGELIST>(m_header.SendMessage(HDM_SETIMAGELIST, 0, 0)), m_images);
    EXPECT_EQ(m_header.SendMessage(HDM_GETIMAGELIST), 0);
}

TEST_F(HeaderTest, ImageListWithoutImageLeavesTheSize)
{
    UseImages({{13, 9}});
    m_header.SendMessage(HDM_SETIMAGELIST, 0, 0);
    EXPECT_EQ(m_header.m_sizeImage, CSize(13, 9));

    const HIMAGELIST empty = ImageList_Create(20, 20, ILC_COLOR24, 1, 1);
    m_header.SendMessage(HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(empty));
    EXPECT_EQ(m_header.m_sizeImage, CSize(13, 9));
    m_header.SendMessage(HDM_SETIMAGELIST, 0, 0);
    ImageList_Destroy(empty);
}

TEST_F(HeaderTest, ImageListOfTheListViewCounts)
{
    const HIMAGELIST images = MakeImageList({{11, 10}});
    m_view.SendMessage(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images));
    EXPECT_EQ(m_header.m_sizeImage, CSize(11, 10));
}

TEST_F(HeaderTest, LayoutIsThePlatformsAtFirst)
{
    const Layout layout(m_header);
    EXPECT_NE(layout.result, 0);
    EXPECT_EQ(layout.rect.right, 200);
    EXPECT_EQ(layout.position.cx, 200);
    EXPECT_GT(layout.position.cy, 0);
    EXPECT_EQ(layout.rect.top, layout.position.cy);
}

TEST_F(HeaderTest, WideLayoutGrowsByTwoBorders)
{
    m_header.ModifyProperty(3, 5);
    const Layout layout(m_header);
    const int width = 200 + 2 * GetSystemMetrics(SM_CXBORDER);
    EXPECT_NE(layout.result, 0);
    EXPECT_EQ(layout.rect.right, width);
    EXPECT_EQ(layout.rect.left, 0);
    EXPECT_EQ(layout.position.cx, width);
}

TEST_F(HeaderTest, ErasingIsClaimedButNotDone)
{
    constexpr COLORREF Before = RGB(250, 3, 250);
    const testkit::Picture picture(40, 20, Before);
    EXPECT_EQ(m_header.SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(picture.Dc())), TRUE);
    EXPECT_EQ(picture.Count(Before), 40 * 20);
}

TEST_F(HeaderTest, SystemColorsAreReadAnew)
{
    const UnlikeSystemColors colors;
    ASSERT_TRUE(colors.AreGiven());
    m_header.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(m_header.m_cr3DHighLight, UnlikeColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(m_header.m_cr3DShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(m_header.m_cr3DFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(m_header.m_crText, UnlikeColor(COLOR_BTNTEXT));
    EXPECT_EQ(m_header.m_nSpacing, 6);
}
