// Documents that grow without limit while they are read, and texts that cannot be written.
#include "HostileTest.h"
#include "ResourceModules.h"

#include <algorithm>

namespace
{

// Entities of which each stands ten times in the next; the last is called as the number of levels says.
std::string NestedEntities(int levels)
{
    std::string entities = "<!ENTITY e0 \"lol\">";
    for (int i = 1; i <= levels; ++i)
        entities +=
            "<!ENTITY e" + std::to_string(i) + " \"" + Times("&e" + std::to_string(i - 1) + ";", 10) + "\">";
    return entities;
}

std::string NestedParameterEntities(int levels)
{
    std::string entities = "<!ENTITY % p0 \"<!ENTITY e 'abc'>\">";
    for (int i = 1; i <= levels; ++i)
        entities += "<!ENTITY % p" + std::to_string(i) + " \"" +
                    Times("&#37;p" + std::to_string(i - 1) + ";", 10) + "\">";
    return entities + "%p" + std::to_string(levels) + ";";
}

std::string WithDtd(std::string_view declarations, std::string_view root)
{
    return "<!DOCTYPE r [" + std::string(declarations) + "]>" + std::string(root);
}

} // namespace

class HostileDtd : public HostileTest
{
};

TEST_F(HostileDtd, InternalOneIsForbiddenOrRead)
{
    ExpectForbiddenOrHolding("<!DOCTYPE r><r/>", L"");
    ExpectForbiddenOrHolding(WithDtd("<!ENTITY e 'abc'>", "<r v='&e;'>&e;</r>"), L"abc", L"abc");
    ExpectForbiddenOrHolding(WithDtd("<!ATTLIST r v CDATA 'abc'>", "<r/>"), L"", L"abc");
}

TEST_F(HostileDtd, EntitiesNestedTenLevelsDeepAreRefused)
{
    const std::string entities = NestedEntities(10);
    ExpectRefused(WithDtd(entities, "<r>&e10;</r>"));
    ExpectRefused(WithDtd(entities, "<r v='&e10;'/>"));
    ExpectRefused(WithDtd(entities + "<!ATTLIST r v CDATA '&e10;'>", "<r/>"));
}

TEST_F(HostileDtd, NestedEntitiesThatAreNotUsedGiveNothing)
{
    ExpectForbiddenOrHolding(WithDtd(NestedEntities(10), "<r/>"), L"");
}

TEST_F(HostileDtd, LongEntityUsedManyThousandTimesIsForbiddenOrStaysUnexpanded)
{
    const std::string entity = "<!ENTITY e \"" + std::string(10000, 'x') + "\">";
    const std::string uses = Times("&e;", 10000);
    const auto expectUnexpanded = [&](const std::string& root) {
        LoadBothWays(WithDtd(entity, root), [&](CXMLFile& file, bool isLoaded) {
            if (MustRefuse(file, entity)) {
                ExpectNothingLoaded(file, isLoaded);
                return;
            }
            EXPECT_TRUE(isLoaded);
            const std::string xml = "<!DOCTYPE r [\r\n" + entity + "\r\n]>\r\n" + root + "\r\n";
            EXPECT_TRUE(WideOf(file.GetXMLFileInString()) == testkit::Wide(xml));
        });
    };
    expectUnexpanded("<r>" + uses + "</r>");
    expectUnexpanded("<r v=\"" + uses + "\"/>");
}

TEST_F(HostileDtd, LongEntityUsedAThousandTimesIsForbiddenOrReadInFull)
{
    const std::string entity = "<!ENTITY e \"" + std::string(1000, 'x') + "\">";
    const std::string uses = Times("&e;", 1000);
    const std::wstring expanded(1000 * 1000, L'x');
    ExpectForbiddenOrHolding(WithDtd(entity, "<r>" + uses + "</r>"), expanded);
    ExpectForbiddenOrHolding(WithDtd(entity, "<r v='" + uses + "'/>"), L"", expanded);
}

TEST_F(HostileDtd, EntitiesThatContainThemselvesAreRefused)
{
    for (const char* entities : {"<!ENTITY e 'x&e;'>", "<!ENTITY e '&f;'><!ENTITY f '&e;'>"}) {
        ExpectRefused(WithDtd(entities, "<r>&e;</r>"));
        ExpectRefused(WithDtd(entities, "<r v='&e;'/>"));
    }
}

TEST_F(HostileDtd, UndeclaredEntitiesAreRefused)
{
    ExpectRefused("<r>&e;</r>");
    ExpectRefused("<r v='&e;'/>");
    ExpectRefused(WithDtd("", "<r>&e;</r>"));
}

TEST_F(HostileDtd, EntityWithMarkupUsedManyThousandTimesIsForbiddenOrGivesNoText)
{
    const std::string entity = "<!ENTITY e \"" + Times("<b/>", 1000) + "\">";
    ExpectForbiddenOrHolding(WithDtd(entity, "<r>" + Times("&e;", 10000) + "</r>"), L"");
}

// Documents that declare entities. None is given to the parser.
class HostileEntities : public HostileTest
{
protected:
    // Loads the text from a resource of a module that is made for it.
    bool LoadResource(CXMLFile& file, const std::string& ascii)
    {
        const std::filesystem::path module = m_folder / L"hostile.dll";
        std::filesystem::copy_file(ModulesFolder() / L"xml_bare.dll", module,
                                   std::filesystem::copy_options::overwrite_existing);
        const HANDLE update = BeginUpdateResourceW(module.c_str(), FALSE);
        std::string text = ascii;
        EXPECT_TRUE(UpdateResourceW(update, L"XML", MAKEINTRESOURCEW(1), 0, text.data(),
                                    static_cast<DWORD>(text.size() + 1)));
        EXPECT_TRUE(EndUpdateResourceW(update, FALSE));
        const CLoadedModule loaded(module);
        return file.setXMLStringFromResource(1, L"XML", L"hostile.dll");
    }

    void ExpectRefusedFromFileAndResource(const std::string& ascii)
    {
        ExpectFileRefused(ascii);
        SCOPED_TRACE(ascii.substr(0, 300));
        CXMLFile file;
        const bool isLoaded = LoadResource(file, ascii);
        ExpectNothingLoaded(file, isLoaded);
    }

    void ExpectLoadedFromFileAndResource(const std::string& ascii)
    {
        SCOPED_TRACE(ascii.substr(0, 300));
        CXMLFile file;
        EXPECT_TRUE(LoadBytes(file, ascii));
        EXPECT_TRUE(Find(file.m_pXMLDoc, L"/r"));
        CXMLFile fromResource;
        EXPECT_TRUE(LoadResource(fromResource, ascii));
        EXPECT_TRUE(Find(fromResource.m_pXMLDoc, L"/r"));
    }

    const std::string m_bomb = WithDtd(NestedParameterEntities(10), "<r>&e;</r>");
};

TEST_F(HostileEntities, OneThatIsHarmlessIsRefused)
{
    ExpectRefusedFromFileAndResource(WithDtd("<!ENTITY e 'abc'>", "<r>&e;</r>"));
    ExpectRefusedFromFileAndResource(WithDtd("<!ENTITY e SYSTEM 'abc'>", "<r/>"));
    ExpectRefusedFromFileAndResource(WithDtd("<!ENTITY % p \"<!ENTITY e 'abc'>\">%p;", "<r>&e;</r>"));
    ExpectRefusedFromFileAndResource(WithDtd("<!ENTITY % p 'abc'>", "<r/>"));
}

TEST_F(HostileEntities, OnesThatContainThemselvesAreRefused)
{
    ExpectRefusedFromFileAndResource(WithDtd("<!ENTITY % p '&#37;q;'><!ENTITY % q '&#37;p;'>%p;", "<r/>"));
}

// Few bytes that would take a parser a minute to put together for one attribute.
TEST_F(HostileEntities, LongOneUsedManyTimesIsRefused)
{
    ExpectRefusedFromFileAndResource(
        WithDtd("<!ENTITY e \"" + std::string(10000, 'x') + "\">", "<r v='" + Times("&e;", 10000) + "'/>"));
}

TEST_F(HostileEntities, OnesNestedTenLevelsDeepAreRefused)
{
    ExpectRefusedFromFileAndResource(m_bomb);
}

TEST_F(HostileEntities, NothingBeforeThemHidesThem)
{
    const std::string entities = NestedParameterEntities(10);
    for (const std::string before :
         {"<!-- ' \" [ > -->", "<?p ' \" ] > ?>", "<!ENTITY e '\"]>'>", "<!ENTITY e \"']><!--\">",
          "<!ELEMENT r ANY>", "<!ATTLIST r v CDATA '<!--'>", "<!NOTATION n SYSTEM '<?'>", " \r\n\t", "<?p?>",
          "<!-- <!ENTITY -->"})
        ExpectRefusedFromFileAndResource(WithDtd(before + entities, "<r/>"));
    for (const char* before : {"<!-- <r/> -->", "<?p <r/> ?>", " \r\n\t", "<!-- <!DOCTYPE r> -->"})
        ExpectRefusedFromFileAndResource("<?xml version='1.0'?>" + (before + m_bomb));
    for (const char* before : {" SYSTEM 'a>b['", " PUBLIC '-//a>b[' \"]><r/>\"", "\n"})
        ExpectRefusedFromFileAndResource("<!DOCTYPE r" + (before + m_bomb.substr(m_bomb.find(" ["))));
}

TEST_F(HostileEntities, NoDistanceHidesThem)
{
    for (const size_t size : {4080u, 4090u, 4095u, 4096u, 8190u, 100000u, 3000000u}) {
        ExpectFileRefused("<!--" + std::string(size, ' ') + "-->" + m_bomb);
        ExpectFileRefused(
            WithDtd("<!--" + std::string(size, ' ') + "-->" + NestedParameterEntities(10), "<r/>"));
    }
    for (size_t size = 4030; size < 4100; ++size)
        ExpectFileRefused("<!--" + std::string(size, ' ') + "-->" + m_bomb);
}

TEST_F(HostileEntities, NoEncodingHidesThem)
{
    const std::wstring wide = testkit::Wide(m_bomb);
    const std::string little = Utf16File(wide);
    std::string big = little;
    for (size_t i = 0; i < big.size(); i += 2)
        std::swap(big[i], big[i + 1]);
    std::string utf32;
    for (const wchar_t unit : L"\xFEFF" + wide)
        utf32 += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8), '\0', '\0'};
    for (const std::string& bytes :
         {little, big, little.substr(2), big.substr(2), utf32, utf32.substr(4), "\xEF\xBB\xBF" + m_bomb})
        ExpectFileRefused(bytes);
    for (const std::string encoding : {"UTF-8", "ISO-8859-1", "windows-1252", "US-ASCII", "UTF-7", "UTF-16"})
        ExpectFileRefused("<?xml version='1.0' encoding='" + encoding + "'?>" + m_bomb);
}

// The parser takes names as addresses: it decodes what is escaped, and leaves out queries and fragments.
TEST_F(HostileEntities, NoSpellingOfTheNameHidesThem)
{
    testkit::WriteBytes(m_folder / L"a b.xml",
                        WithDtd("<!ENTITY % p \"<!ENTITY e 'abc'>\">%p;", "<r>&e;</r>"));
    std::wstring folder = m_folder.Path().wstring();
    std::replace(folder.begin(), folder.end(), L'\\', L'/');
    for (const std::wstring& before : {m_folder.Path().wstring() + L"\\", folder + L"/",
                                       L"file:" + folder + L"/", L"file:///" + folder + L"/"})
        for (const wchar_t* name :
             {L"a b.xml", L"a%20b.xml", L"%61 b.xml", L"a b.xml#x", L"a b.xml?x", L"a%20b.xml?x#y"})
        {
            SCOPED_TRACE(testkit::Quoted(before + name));
            CXMLFile file((before + name).c_str());
            const bool isLoaded = file.LoadFile();
            ExpectNothingLoaded(file, isLoaded);
        }
}

TEST_F(HostileEntities, WordsThatOnlyLookLikeThemAreLoaded)
{
    const std::string words = "<!DOCTYPE r [<!ENTITY % p 'abc'>%p;]>";
    ExpectLoadedFromFileAndResource("<!--" + words + "--><r/>");
    ExpectLoadedFromFileAndResource("<?p " + words + "?><r/>");
    ExpectLoadedFromFileAndResource("<r><![CDATA[" + words + "]]></r>");
    ExpectLoadedFromFileAndResource("<r><!--" + words + "--></r>");
    ExpectLoadedFromFileAndResource("<r v='&lt;!DOCTYPE r [&lt;!ENTITY % p &#39;abc&#39;>'>% p; %p;</r>");
}

class HostileSize : public HostileTest
{
};

TEST_F(HostileSize, HundredThousandLevelsAreRefused)
{
    ExpectRefused(Times("<a>", 100000) + Times("</a>", 100000));
    ExpectRefused(Times("<a>", 100000));
}

TEST_F(HostileSize, AttributeWithAMillionCharactersIsRead)
{
    const std::string value(1000000, 'x');
    LoadBothWays("<r v='" + value + "'/>", [&](CXMLFile& file, bool isLoaded) {
        EXPECT_TRUE(isLoaded);
        EXPECT_TRUE(AttributeV(file) == testkit::Wide(value));
    });
}

TEST_F(HostileSize, NameWithAMillionCharactersIsRefusedOrRead)
{
    const std::string name(1000000, 'n');
    LoadBothWays("<" + name + "/>", [&](CXMLFile& file, bool isLoaded) {
        if (isLoaded)
            EXPECT_TRUE(NameOf(Find(file.m_pXMLDoc, L"/*")) == testkit::Wide(name));
        else
            ExpectNothingLoaded(file, isLoaded);
    });
}

// Parsers compare each attribute of an element with all the others, so this is not done with more.
TEST_F(HostileSize, TwentyThousandAttributesOfOneElementAreRead)
{
    std::string element = "<r";
    for (int i = 0; i < 20000; ++i)
        element += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    LoadBothWays(element + "/>", [](CXMLFile& file, bool isLoaded) {
        EXPECT_TRUE(isLoaded);
        IXMLDOMNamedNodeMapPtr attributes;
        Find(file.m_pXMLDoc, L"/r")->get_attributes(&attributes);
        long count = 0;
        attributes->get_length(&count);
        EXPECT_EQ(count, 20000);
        EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"a0")), L"0");
        EXPECT_EQ(file.GetAttrib(L"/r", Writable(L"a19999")), L"19999");
    });
    ExpectRefused(element + " a0='twice'/>");
}

TEST_F(HostileSize, MillionAttributesOnManyElementsAreRead)
{
    const std::string element = "<e a='1' b='2' c='3' d='4' e='5'/>";
    CXMLFile file;
    EXPECT_TRUE(LoadBytes(file, "<r>" + Times(element, 200000) + "</r>"));
    CStringArray values;
    file.FillStringArray(values, Writable(L"/r/e"), Writable(L"e"));
    EXPECT_EQ(values.GetSize(), 200000);
    EXPECT_EQ(values[199999], L"5");
}

class HostileWriting : public HostileTest
{
protected:
    // Writes the text to an attribute and saves. Either of them raises, or the file can be loaded and has
    // the attribute.
    void ExpectRaisesOrReadable(const std::wstring& text)
    {
        SCOPED_TRACE(testkit::Quoted(text));
        CXMLFile file = Loaded("<r/>");
        file.m_pCurNode = Find(file.m_pXMLDoc, L"/r");
        CString value(text.data(), static_cast<int>(text.size()));
        const HRESULT failure = ComFailureOf([&] {
            file.CreateAttrib(Writable(L"v"), value);
            file.SaveDocument();
        });
        if (FAILED(failure))
            return;
        CXMLFile again(PathOf(L"document.xml"));
        ASSERT_TRUE(again.LoadFile());
        EXPECT_TRUE(AttributeValue(Find(again.m_pXMLDoc, L"/r"), L"v"));
        EXPECT_TRUE(AttributeV(again).starts_with(L"a"));
    }
};

TEST_F(HostileWriting, ControlCharactersRaiseOrGiveAReadableFile)
{
    for (wchar_t c = 0; c < L' '; ++c)
        ExpectRaisesOrReadable(std::wstring(L"a") + c + L"b");
}

TEST_F(HostileWriting, HalfSurrogatePairsRaiseOrGiveAReadableFile)
{
    for (const wchar_t* text : {L"a\xD83D"
                                L"b",
                                L"a\xDE00"
                                L"b",
                                L"a\xDE00\xD83D"
                                L"b",
                                L"a\xD83D"})
        ExpectRaisesOrReadable(text);
}

TEST_F(HostileWriting, MarkupAsAttributeStaysAnAttribute)
{
    const std::wstring text = L"a'/><x y=\"&e;]]>--><?p?>&#0;\r\n\t";
    CXMLFile file = Loaded("<r/>");
    file.m_pCurNode = Find(file.m_pXMLDoc, L"/r");
    CString value(text.c_str());
    file.CreateAttrib(Writable(L"v"), value);
    file.SaveDocument();
    CXMLFile again(PathOf(L"document.xml"));
    ASSERT_TRUE(again.LoadFile());
    EXPECT_EQ(TreeOf(Find(again.m_pXMLDoc, L"/r")), L"r v=\"" + text + L"\"()");
}
