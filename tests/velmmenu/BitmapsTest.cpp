// What `velmmenu check` says of bitmap files.
#include "MenuToolTest.h"

namespace menutool
{

using testing::ElementsAre;
using testing::IsEmpty;

class Bitmaps : public MenuToolTest
{
protected:
    static constexpr char OneButton[] = "<Toolbar Cmd='a' ImageList=' line '/>\n";
};

TEST_F(Bitmaps, AreNotLookedForWithoutAFolder)
{
    EXPECT_THAT(CheckToolBar(OneButton), IsEmpty());
}

TEST_F(Bitmaps, OfTheRightSizesAreClean)
{
    WriteBitmap(L"Bmps\\line16.bmp", 16, 0);
    WriteBitmap(L"Bmps\\line24.bmp", 24, 0);
    EXPECT_THAT(CheckToolBar(OneButton), IsEmpty());
}

TEST_F(Bitmaps, AreSoughtInTheFolderBesideTheFile)
{
    WriteBitmap(L"Bmps\\line24.bmp", 24, 0);
    EXPECT_THAT(CheckToolBar(OneButton), ElementsAre("2: the bitmap line16.bmp is missing"));
}

TEST_F(Bitmaps, AreSoughtInTheFolderOfTheOptionInstead)
{
    WriteBitmap(L"Bmps\\line16.bmp", 16, 0);
    WriteBitmap(L"other\\line24.bmp", 24, 0);
    EXPECT_THAT(CheckToolBar(OneButton, {L"--bitmaps", NameOf(L"other")}),
                ElementsAre("2: the bitmap line16.bmp is missing"));
    EXPECT_THAT(CheckToolBar(OneButton, {L"--bitmaps=" + NameOf(L"Bmps")}),
                ElementsAre("2: the bitmap line24.bmp is missing"));
}

TEST_F(Bitmaps, OfAnotherSizeAreToldOf)
{
    WriteBitmap(L"Bmps\\line16.bmp", 24, 0);
    WriteBitmap(L"Bmps\\line24.bmp", 32, 0);
    EXPECT_THAT(CheckToolBar(OneButton), ElementsAre("2: the bitmap line16.bmp has 24x24 pixels, not 16x16",
                                                     "2: the bitmap line24.bmp has 32x32 pixels, not 24x24"));
}

TEST_F(Bitmaps, ThatAreNoneAreToldOf)
{
    WriteBitmap(L"Bmps\\line16.bmp", 16, 0);
    Write(L"Bmps\\line24.bmp", "not a bitmap");
    EXPECT_THAT(CheckToolBar(OneButton), ElementsAre("2: the bitmap line24.bmp cannot be read as one"));
}

TEST_F(Bitmaps, AFolderThatIsNotThereIsAWrongCommandLine)
{
    const std::wstring file = Write(L"a.xml", "<D/>");
    const auto result = Run({L"check", file, L"--bitmaps", NameOf(L"nowhere")});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, testing::HasSubstr("nowhere: there is no such folder"));
}

} // namespace menutool
