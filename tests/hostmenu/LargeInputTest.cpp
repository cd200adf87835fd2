// The builder with long texts, many entries and modules in deep folders.
#include "HostMenuTest.h"
#include "HostProgram.h"

#include <filesystem>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int ManyEntries = 10'000;
const wchar_t NoModule[] = L"NoSuchModule.arx";

class LargeInput : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        recording::NameApplication(ApplicationDispatch());
    }
};

// A copy of the add-in in a folder that is deep and has a name beyond ASCII, loaded as long as the object
// lives.
class CDeepAddin
{
public:
    static constexpr wchar_t Name[] = L"Werkzeug \u00F6\u6F22.arx";

    // With `description` as its resource 101, if it has any text.
    explicit CDeepAddin(const std::string& description = std::string())
    {
        std::wstring folder = LR"(\\?\)" + m_folder.Path().wstring();
        while (folder.size() < 300) {
            folder += L"\\Gr\u00F6\u00DFe \u0416 \u6F22 " + std::wstring(60, L'd');
            CreateDirectoryW(folder.c_str(), nullptr);
        }
        const std::wstring path = folder + L"\\" + Name;
        EXPECT_TRUE(CopyFileW((ProgramFolder() + L"addin\\hostmenu_addin.arx").c_str(), path.c_str(), FALSE));
        if (!description.empty())
            Replace(path, description);
        m_module = LoadLibraryW(path.c_str());
    }
    ~CDeepAddin()
    {
        if (m_module != nullptr)
            FreeLibrary(m_module);
    }
    CDeepAddin(const CDeepAddin&) = delete;
    CDeepAddin& operator=(const CDeepAddin&) = delete;

    bool IsLoaded() const { return m_module != nullptr; }

    // Its folder as the loader tells it, with the trailing backslash.
    std::wstring Folder() const
    {
        std::wstring name(4096, L'\0');
        name.resize(GetModuleFileNameW(m_module, name.data(), static_cast<DWORD>(name.size())));
        return name.substr(0, name.rfind(L'\\') + 1);
    }

private:
    static void Replace(const std::wstring& path, std::string description)
    {
        const HANDLE update = BeginUpdateResourceW(path.c_str(), FALSE);
        ASSERT_NE(update, nullptr);
        EXPECT_TRUE(UpdateResourceW(update, L"DESCRIPTION", MAKEINTRESOURCEW(101), 0, description.data(),
                                    static_cast<DWORD>(description.size())));
        EXPECT_TRUE(EndUpdateResourceW(update, FALSE));
    }

    testkit::TempFolder m_folder;
    HMODULE m_module = nullptr;
};

} // namespace

TEST_F(LargeInput, TakesHoldersNamesOfFiveThousandCharacters)
{
    const std::wstring menu(5000, L'm');
    const std::wstring toolbar(5000, L't');
    Build(L"<r><Menus Name=\"" + menu + L"\"/><Toolbars Name=\"" + toolbar + L"\"/></r>");
    EXPECT_THAT(recording::Log(),
                ElementsAre(L"menu1 = Create_ACADMenu(app, " + InQuotes(menu) + L")",
                            L"toolbar2 = Create_ACADToolBar(app, " + InQuotes(toolbar) + L")",
                            L"SetVisible(toolbar2, 1)"));
}

TEST_F(LargeInput, TakesAModuleInADeepFolderBeyondAscii)
{
    const CDeepAddin addin;
    if (!addin.IsLoaded())
        GTEST_SKIP() << "the platform does not load modules from such folders";
    EXPECT_GT(addin.Folder().size(), static_cast<size_t>(MAX_PATH));
    Build(LR"(<r><Toolbars><Toolbar ImageList="i"><t ImageList="j"/></Toolbar></Toolbars></r>)", addin.Name);
    const std::vector<std::wstring> log = recording::Log();
    ASSERT_EQ(log.size(), 8u);
    EXPECT_EQ(log[3], ButtonLine(L"toolbar2", L"null", L"null", L"i", L"toolbar3", addin.Folder()));
    EXPECT_EQ(log[5], ButtonLine(L"toolbar3", L"null", L"null", L"j", L"null", addin.Folder()));
}

TEST_F(LargeInput, TakesTheResourceOfAModuleInADeepFolderBeyondAscii)
{
    const CDeepAddin addin;
    if (!addin.IsLoaded())
        GTEST_SKIP() << "the platform does not load modules from such folders";
    std::wstring moduleName = addin.Name;
    Append_MenuToolBar(101, CString(L"DESCRIPTION"), moduleName.data());
    EXPECT_THAT(recording::Log(),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "add-in"))",
                            LR"(toolbar2 = Create_ACADToolBar(app, "add-in"))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"line", L"null", addin.Folder()),
                            L"SetVisible(toolbar2, 1)"));
}

TEST_F(LargeInput, BuildsTenThousandEntriesWithLongTextsFromAResource)
{
    // Every hundredth with texts of 5,000 characters.
    const auto isLong = [](int i) { return i % 100 == 99; };
    std::string text = "<r><Menus Name='m'>";
    for (int i = 0; i < ManyEntries; ++i) {
        text += "<Menu Name='" + std::to_string(i) + "' Cmd='" + (isLong(i) ? std::string(5000, 'c') : "C") +
                "' Help='" + (isLong(i) ? std::string(5000, 'h') : "H") + "'/>";
    }
    text += "</Menus></r>";
    const CDeepAddin addin(text);
    if (!addin.IsLoaded())
        GTEST_SKIP() << "the platform does not load modules from such folders";
    std::wstring moduleName = addin.Name;
    Append_MenuToolBar(101, CString(L"DESCRIPTION"), moduleName.data());
    EXPECT_THAT(Messages(), IsEmpty());
    const std::vector<std::wstring> log = recording::Log();
    ASSERT_EQ(log.size(), 1u + ManyEntries + 2);
    for (int i = 0; i < ManyEntries; ++i) {
        ASSERT_EQ(log[1 + i], ItemLine(L"menu1", InQuotes(std::to_wstring(i)),
                                       InQuotes((isLong(i) ? std::wstring(5000, L'c') : L"C") + L" "),
                                       InQuotes(isLong(i) ? std::wstring(5000, L'h') : L"H")));
    }
}

TEST_F(LargeInput, BuildsTenThousandEntriesOfOneCascade)
{
    std::wstring text = LR"(<r><Menus Name="m"><Menu Name="c" Help="h">)";
    for (int i = 0; i < ManyEntries; ++i)
        text += L"<e Name=\"" + std::to_wstring(i) + L"\"/>";
    Build(text + L"</Menu></Menus></r>", NoModule);
    const std::vector<std::wstring> log = recording::Log();
    ASSERT_EQ(log.size(), 2u + ManyEntries);
    EXPECT_EQ(log[1], LR"(submenu2 = Append_SubMenu(menu1, "c"))");
    for (int i = 0; i < ManyEntries; ++i)
        ASSERT_EQ(log[2 + i], ItemLine(L"submenu2", InQuotes(std::to_wstring(i)), L"null", L"null"));
}

TEST_F(LargeInput, EndsAtAHostFailureInTheMiddleOfTenThousandEntries)
{
    std::wstring text = L"<r><Menus>";
    for (int i = 0; i < ManyEntries; ++i)
        text += L"<Menu/>";
    recording::InCall(5000, [] { AfxThrowOleDispatchException(0, L"full"); });
    Build(text + L"</Menus></r>");
    EXPECT_THAT(Messages(), ElementsAre(L"Unable to Load Menu", L"full"));
    // What was asked for until then, and the toolbar.
    EXPECT_EQ(recording::CallCount(), 5000 + 2);
    EXPECT_EQ(recording::Log().back(), L"SetVisible(toolbar2, 1)");
}
