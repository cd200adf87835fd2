// What `velmmenu picture` draws.
#include "MenuToolTest.h"

#include <comdef.h>
#include <wincodec.h>

#include "kit/Picture.h"

namespace menutool
{

namespace
{

constexpr COLORREF Pink = RGB(255, 0, 128);
constexpr COLORREF Green = RGB(0, 160, 80);
constexpr COLORREF Violet = RGB(128, 0, 255);
constexpr COLORREF Orange = RGB(255, 128, 0);
constexpr COLORREF Face = RGB(192, 192, 192); // shows the button's face
constexpr COLORREF Paper = RGB(255, 255, 255);

_COM_SMARTPTR_TYPEDEF(IWICImagingFactory, __uuidof(IWICImagingFactory));
_COM_SMARTPTR_TYPEDEF(IWICBitmapDecoder, __uuidof(IWICBitmapDecoder));
_COM_SMARTPTR_TYPEDEF(IWICBitmapFrameDecode, __uuidof(IWICBitmapFrameDecode));
_COM_SMARTPTR_TYPEDEF(IWICBitmapSource, __uuidof(IWICBitmapSource));

testkit::Picture LoadPng(const std::wstring& fileName)
{
    using _com_util::CheckError;
    IWICImagingFactoryPtr factory;
    IWICBitmapDecoderPtr decoder;
    IWICBitmapFrameDecodePtr frame;
    IWICBitmapSourcePtr pixels;
    CheckError(factory.CreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER));
    CheckError(factory->CreateDecoderFromFilename(fileName.c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, &decoder));
    GUID format{};
    CheckError(decoder->GetContainerFormat(&format));
    EXPECT_TRUE(format == GUID_ContainerFormatPng);
    CheckError(decoder->GetFrame(0, &frame));
    CheckError(WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame, &pixels));
    UINT width = 0, height = 0;
    CheckError(pixels->GetSize(&width, &height));
    std::vector<BYTE> bytes(std::size_t{4} * width * height);
    CheckError(pixels->CopyPixels(nullptr, width * 4, static_cast<UINT>(bytes.size()), bytes.data()));

    testkit::Picture picture(static_cast<int>(width), static_cast<int>(height));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = static_cast<LONG>(width);
    info.bmiHeader.biHeight = -static_cast<LONG>(height);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    SetDIBitsToDevice(picture.Dc(), 0, 0, width, height, 0, 0, 0, height, bytes.data(), &info,
                      DIB_RGB_COLORS);
    return picture;
}

// The left upper corner of the one square of that colour; fails unless there is just it.
POINT CornerOfSquare(const testkit::Picture& picture, COLORREF color, int side)
{
    const RECT box = picture.BoxOf(color);
    EXPECT_EQ(side, box.right - box.left);
    EXPECT_EQ(side, box.bottom - box.top);
    EXPECT_EQ(side * side, picture.Count(color));
    return {box.left, box.top};
}

class PictureOfDescription : public MenuToolTest
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr))); }
    static void TearDownTestSuite() { CoUninitialize(); }

    testkit::Picture Draw(const std::string& text, const std::vector<std::wstring>& options = {})
    {
        const std::wstring file = Write(L"a.xml", text), picture = NameOf(L"a.png");
        std::vector<std::wstring> arguments{L"picture", file, picture};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto result = Run(arguments);
        EXPECT_EQ(0u, result.exitCode) << result.output;
        EXPECT_EQ("", result.output);
        return LoadPng(picture);
    }

    static std::string ToolBar(const std::string& entries)
    {
        return "<D>" + std::string(CleanMenu) + "<Toolbars Name='T'>" + entries + "</Toolbars></D>";
    }
    static std::string Menu(const std::string& entries)
    {
        return "<D><Menus Name='M'>" + entries + "</Menus></D>";
    }

    void WriteBitmaps(const std::wstring& name, COLORREF small, COLORREF large)
    {
        WriteBitmap(L"Bmps\\" + name + L"16.bmp", 16, small);
        WriteBitmap(L"Bmps\\" + name + L"24.bmp", 24, large);
    }
};

TEST_F(PictureOfDescription, HoldsBothBitmapsOfAButtonPixelByPixel)
{
    WriteBitmaps(L"a", Pink, Green);
    const testkit::Picture picture = Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"));
    const POINT small = CornerOfSquare(picture, Pink, 16);
    const POINT large = CornerOfSquare(picture, Green, 24);
    // Both begin their rows, the large one below.
    EXPECT_EQ(small.x, large.x);
    EXPECT_GE(large.y, small.y + 16);
}

TEST_F(PictureOfDescription, ShowsTheButtonsInTheirOrder)
{
    WriteBitmaps(L"a", Pink, Green);
    WriteBitmaps(L"b", Violet, Orange);
    const testkit::Picture picture =
        Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/><Toolbar Cmd='b' ImageList='b'/>"));
    const POINT first = CornerOfSquare(picture, Pink, 16), second = CornerOfSquare(picture, Violet, 16);
    EXPECT_EQ(first.y, second.y);
    EXPECT_GE(second.x, first.x + 16);
}

TEST_F(PictureOfDescription, ShowsAFlyoutsOwnButtonTwiceAndTheOthersInIt)
{
    WriteBitmaps(L"a", Pink, Green);
    WriteBitmaps(L"b", Violet, Orange);
    const testkit::Picture picture =
        Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'><x Cmd='b' ImageList='b'/></Toolbar>"));
    EXPECT_EQ(2 * 16 * 16, picture.Count(Pink));
    EXPECT_EQ(2 * 24 * 24, picture.Count(Green));
    const POINT small = CornerOfSquare(picture, Violet, 16);
    const POINT large = CornerOfSquare(picture, Orange, 24);
    // The two sizes stand beside each other, below the own button, which is the first one.
    EXPECT_GE(large.x, small.x + 16);
    EXPECT_EQ(small.y + 8, large.y + 12);
    EXPECT_GE(small.y, picture.BoxOf(Pink).bottom);
}

TEST_F(PictureOfDescription, ShowsAFlyoutInAFlyoutBesideIt)
{
    WriteBitmaps(L"a", Face, Face);
    WriteBitmaps(L"b", Pink, Face);
    WriteBitmaps(L"c", Violet, Face);
    const testkit::Picture picture =
        Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'>"
                     "<x Cmd='b' ImageList='b'><x Cmd='c' ImageList='c'/></x></Toolbar>"));
    // The inner one opens to the right, and begins with its own button.
    EXPECT_EQ(2 * 16 * 16, picture.Count(Pink));
    EXPECT_GT(CornerOfSquare(picture, Violet, 16).x, picture.BoxOf(Pink).left + 16);
}

TEST_F(PictureOfDescription, LetsTheFaceShowThrough)
{
    WriteBitmap(L"Bmps\\a16.bmp", 16, Pink, Face);
    WriteBitmap(L"Bmps\\a24.bmp", 24, Face);
    const testkit::Picture picture = Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"));
    const RECT box = picture.BoxOf(Pink);
    EXPECT_EQ(8, box.right - box.left);
    EXPECT_EQ(0, picture.Count(Face));
    EXPECT_EQ(8 * 16, picture.Count(Paper, {box.right, box.top, box.right + 8, box.bottom}));
}

TEST_F(PictureOfDescription, BringsABitmapOfAnotherSizeToItsOwn)
{
    WriteBitmap(L"Bmps\\a16.bmp", 32, Pink);
    WriteBitmap(L"Bmps\\a24.bmp", 8, Green);
    const testkit::Picture picture = Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"));
    CornerOfSquare(picture, Pink, 16);
    CornerOfSquare(picture, Green, 24);
}

TEST_F(PictureOfDescription, TakesTheFolderOfTheOption)
{
    WriteBitmaps(L"a", Pink, Pink);
    WriteBitmap(L"other\\a16.bmp", 16, Violet);
    WriteBitmap(L"other\\a24.bmp", 24, Green);
    const testkit::Picture picture =
        Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"), {L"--bitmaps", NameOf(L"other")});
    EXPECT_EQ(0, picture.Count(Pink));
    CornerOfSquare(picture, Violet, 16);
}

TEST_F(PictureOfDescription, CrossesOutABitmapThatIsNotThere)
{
    WriteBitmap(L"Bmps\\a16.bmp", 16, Pink);
    const testkit::Picture with = Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"));
    const RECT small = with.BoxOf(Pink);
    WriteBitmap(L"Bmps\\a24.bmp", 24, Face);
    const testkit::Picture blank = Draw(ToolBar("<Toolbar Cmd='a' ImageList='a'/>"));
    // The large one stands below the small one and begins at the same column.
    const RECT below{small.left, small.bottom + 4, small.left + 24, small.bottom + 44};
    const int area = 24 * 40;
    EXPECT_EQ(area, blank.Count(Paper, below));
    EXPECT_LT(with.Count(Paper, below), area - 24);
}

TEST_F(PictureOfDescription, OpensEveryCascadeInAColumnOfItsOwn)
{
    const std::string item = "<x Name='A label of some length' Cmd='a'/>";
    const int flat = Draw(Menu("<Menu Name='A' Cmd='a'/>" + item)).Width();
    const std::string deep = "<Menu Name='B' Help='h'>" + item + "<x Name='C' Help='h'>" + item +
                             "<x Name='D' Help='h'>" + item + "<x Name='E' Help='h'>" + item +
                             "<x Name='F' Help='h'>" + item + "<x Name='G' Help='h'>" + item +
                             "</x></x></x></x></x></Menu>";
    EXPECT_GT(Draw(Menu(deep)).Width(), flat + 5 * 100);
}

TEST_F(PictureOfDescription, GrowsDownWithTheEntries)
{
    std::string entries;
    for (int i = 0; i < 20; ++i)
        entries += "<Menu Name='" + std::to_string(i) + "' Cmd='a'/>";
    const int twenty = Draw(Menu(entries)).Height();
    entries += entries;
    const int forty = Draw(Menu(entries)).Height();
    EXPECT_GE(forty - twenty, 20 * 16);
    EXPECT_LE(forty - twenty, 20 * 32);
}

TEST_F(PictureOfDescription, ReplacesAnOlderFile)
{
    Write(L"a.png", std::string(100000, 'x'));
    EXPECT_GT(Draw(Menu("<Menu Name='A' Cmd='a'/>")).Width(), 0);
}

TEST_F(PictureOfDescription, TellsWhenItCannotBeWritten)
{
    const auto result =
        Run({L"picture", Write(L"a.xml", Menu("<Menu Name='A' Cmd='a'/>")), NameOf(L"nowhere\\a.png")});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, testing::HasSubstr("a.png: cannot be written"));
}

TEST_F(PictureOfDescription, RefusesWhatIsTooLarge)
{
    std::string entries;
    for (int i = 0; i < 900; ++i)
        entries += "<Menu Name='x' Cmd='a'/>";
    const auto result = Run({L"picture", Write(L"a.xml", Menu(entries)), NameOf(L"a.png")});
    EXPECT_EQ(2u, result.exitCode);
    EXPECT_THAT(result.output, testing::HasSubstr("which is too much"));
    EXPECT_FALSE(std::filesystem::exists(NameOf(L"a.png")));
}

} // namespace

} // namespace menutool
