// The encodings of files, read and written.
#include "FilesTest.h"

namespace
{

using testing::IsEmpty;

enum class ByteOrder
{
    Little,
    Big
};

// With a byte-order mark.
std::string Utf16(std::wstring_view text, ByteOrder order)
{
    std::string bytes;
    for (const wchar_t unit : L"\uFEFF" + std::wstring(text)) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += order == ByteOrder::Little ? low : high;
        bytes += order == ByteOrder::Little ? high : low;
    }
    return bytes;
}

// Encodings with the bytes of U+4E2D in each.
constexpr std::pair<const char*, const char*> ManyByteEncodings[] = {
    {"GB2312", "\xD6\xD0"}, {"Big5", "\xA4\xA4"}, {"Shift_JIS", "\x92\x86"}};

using FileEncoding = XmlFiles;

} // namespace

TEST_F(FileEncoding, Utf8NeedsNoDeclaration)
{
    CXMLFile file = Loaded(Root(BeyondUtf8));
    EXPECT_EQ(AttributeOf(file), Beyond);
}

TEST_F(FileEncoding, Utf8MayBeDeclared)
{
    CXMLFile file = Loaded("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + Root(BeyondUtf8));
    EXPECT_EQ(AttributeOf(file), Beyond);
    CXMLFile withoutEncoding = Loaded("<?xml version=\"1.0\"?>" + Root(BeyondUtf8));
    EXPECT_EQ(AttributeOf(withoutEncoding), Beyond);
}

TEST_F(FileEncoding, Utf8MayHaveAByteOrderMark)
{
    CXMLFile file = Loaded("\xEF\xBB\xBF" + Root(BeyondUtf8));
    EXPECT_EQ(AttributeOf(file), Beyond);
    CXMLFile declared = Loaded("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>" + Root(BeyondUtf8));
    EXPECT_EQ(AttributeOf(declared), Beyond);
}

TEST_F(FileEncoding, Utf16MayHaveEitherByteOrder)
{
    const std::wstring root = L"<r a=\"" + Beyond + L"\"/>";
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        CXMLFile file = Loaded(Utf16(root, order));
        EXPECT_EQ(AttributeOf(file), Beyond);
        CXMLFile declared = Loaded(Utf16(L"<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + root, order));
        EXPECT_EQ(AttributeOf(declared), Beyond);
    }
}

TEST_F(FileEncoding, Latin1IsReadByItsDeclaration)
{
    CXMLFile file = Loaded("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + Root("\xE9\xFC\xDF\xA3"));
    EXPECT_EQ(AttributeOf(file), L"\u00E9\u00FC\u00DF\u00A3");
}

TEST_F(FileEncoding, NamesAndTextMayLieBeyondAscii)
{
    wchar_t name[] = L"\u00E9";
    CXMLFile file = Loaded("<\xC3\xBC><n \xC3\xA9='1'>\xE2\x82\xAC</n></\xC3\xBC>");
    EXPECT_EQ(file.GetAttrib(L"/\u00FC/n", name), L"1");
    IXMLDOMNodePtr node;
    file.GetDOMNodePtr(L"/\u00FC/n", node);
    ASSERT_NE(node, nullptr);
    BSTR text = nullptr;
    node->get_text(&text);
    EXPECT_STREQ(text, L"\u20AC");
    SysFreeString(text);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileEncoding, Utf8IsSavedAsUtf8)
{
    for (const std::string declaration :
         {"", "<?xml version=\"1.0\"?>", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"})
    {
        CXMLFile file = Loaded(declaration + Root("old"));
        SetAttribute(file, Beyond.c_str());
        file.SaveDocument();
        EXPECT_EQ(WithoutLineEnds(testkit::ReadBytes(m_folder / L"document.xml")),
                  declaration + Root(BeyondUtf8));
        EXPECT_TRUE(file.LoadFile());
        EXPECT_EQ(AttributeOf(file), Beyond);
    }
}

TEST_F(FileEncoding, Latin1IsSavedAsDeclaredOrInUtf8UnderTheOldDeclaration)
{
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
    CXMLFile file = Loaded(declaration + Root("old"));
    SetAttribute(file, L"\u00E9");
    file.SaveDocument();
    const std::string bytes = WithoutLineEnds(testkit::ReadBytes(m_folder / L"document.xml"));
    const bool isAsDeclared = bytes.find('\xC3') == std::string::npos;
    EXPECT_EQ(bytes, declaration + Root(isAsDeclared ? "\xE9" : "\xC3\xA9"));
    EXPECT_TRUE(file.LoadFile());
    EXPECT_EQ(AttributeOf(file), isAsDeclared ? L"\u00E9" : L"\u00C3\u00A9");
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileEncoding, Utf16IsSavedAsDeclaredOrInUtf8ThatDoesNotLoadAgain)
{
    const std::wstring declaration = L"<?xml version=\"1.0\" encoding=\"UTF-16\"?>";
    const std::wstring end = L"\r\n";
    CXMLFile file = Loaded(Utf16(declaration + L"<r a=\"old\"/>", ByteOrder::Little));
    SetAttribute(file, Beyond.c_str());
    file.SaveDocument();
    const std::string bytes = testkit::ReadBytes(m_folder / L"document.xml");
    if (bytes.starts_with("\xFF\xFE")) {
        std::wstring text;
        for (size_t i = 2; i + 1 < bytes.size(); i += 2)
            text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                         static_cast<unsigned char>(bytes[i + 1]) << 8);
        std::erase_if(text, [](wchar_t c) { return c == L'\r' || c == L'\n'; });
        EXPECT_EQ(text, declaration + L"<r a=\"" + Beyond + L"\"/>");
        EXPECT_TRUE(file.LoadFile());
        EXPECT_EQ(AttributeOf(file), Beyond);
    } else {
        EXPECT_EQ(WithoutLineEnds(bytes), "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + Root(BeyondUtf8));
        EXPECT_FALSE(file.LoadFile());
        ExpectEmptyDocument(file);
        // The file is as it was, so that a person can still mend its declaration.
        EXPECT_EQ(testkit::ReadBytes(m_folder / L"document.xml"), bytes);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileEncoding, OneOfManyBytesIsReadByItsDeclarationOrNotLoaded)
{
    for (const auto& [encoding, bytes] : ManyByteEncodings) {
        SCOPED_TRACE(encoding);
        testkit::WriteBytes(m_folder / L"document.xml", "<?xml version=\"1.0\" encoding=\"" +
                                                            std::string(encoding) + "\"?>" + Root(bytes));
        CXMLFile file(PathOf(L"document.xml"));
        if (file.LoadFile())
            EXPECT_EQ(AttributeOf(file), L"\u4E2D");
        else
            ExpectEmptyDocument(file);
    }
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FileEncoding, OneOfManyBytesIsSavedAsDeclaredOrRaisesAndLeavesAnEmptyFile)
{
    for (const auto& [encoding, expected] : ManyByteEncodings) {
        SCOPED_TRACE(encoding);
        const std::string data = "version=\"1.0\" encoding=\"" + std::string(encoding) + "\"";
        CXMLFile file = Loaded(Root("old"));
        IXMLDOMProcessingInstructionPtr declaration;
        ASSERT_EQ(file.m_pXMLDoc->createProcessingInstruction(
                      _bstr_t(L"xml"), _bstr_t(testkit::Wide(data).c_str()), &declaration),
                  S_OK);
        IXMLDOMNodePtr root;
        file.GetDOMNodePtr(L"/r", root);
        ASSERT_EQ(file.m_pXMLDoc->insertBefore(declaration, _variant_t(root.GetInterfacePtr()), nullptr),
                  S_OK);
        SetAttribute(file, L"\u4E2D");
        const HRESULT failure = ComFailureOf([&] { file.SaveDocument(); });
        EXPECT_EQ(AttributeOf(file), L"\u4E2D");
        const std::string bytes = testkit::ReadBytes(m_folder / L"document.xml");
        if (SUCCEEDED(failure)) {
            EXPECT_EQ(WithoutLineEnds(bytes), "<?xml " + data + "?>" + Root(expected));
            EXPECT_TRUE(file.LoadFile());
            EXPECT_EQ(AttributeOf(file), L"\u4E2D");
        } else {
            EXPECT_EQ(bytes, "");
            EXPECT_FALSE(file.LoadFile());
            ExpectEmptyDocument(file);
        }
    }
    EXPECT_THAT(Messages(), IsEmpty());
}
