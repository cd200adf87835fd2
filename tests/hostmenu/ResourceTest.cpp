// The builder from a resource.
#include "HostMenuTest.h"
#include "HostProgram.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class ResourceBuild : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        recording::NameApplication(ApplicationDispatch());
        m_addin = LoadLibraryW((AddinFolder() + L"hostmenu_addin.arx").c_str());
        ASSERT_NE(m_addin, nullptr);
    }

    void TearDown() override
    {
        if (m_addin != nullptr)
            FreeLibrary(m_addin);
        HostMenuTest::TearDown();
    }

    static std::wstring AddinFolder() { return ProgramFolder() + L"addin\\"; }

    // Builds from a resource of the module; from one of the test program, with no folder to find, without.
    static std::vector<std::wstring> Built(unsigned __int64 id, std::wstring moduleName = L"NoSuchModule.arx",
                                           const wchar_t* type = L"DESCRIPTION")
    {
        Append_MenuToolBar(id, CString(type), moduleName.data());
        return recording::Log();
    }

    HMODULE m_addin = nullptr;
};

} // namespace

TEST_F(ResourceBuild, TakesTheResourceAndTheFolderOfTheModule)
{
    EXPECT_THAT(Built(101, L"hostmenu_addin.arx"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "add-in"))",
                            LR"(toolbar2 = Create_ACADToolBar(app, "add-in"))",
                            ButtonLine(L"toolbar2", L"null", L"null", L"line", L"null", AddinFolder()),
                            L"SetVisible(toolbar2, 1)"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceBuild, TakesTheModuleWithItsPath)
{
    EXPECT_THAT(
        Built(101, AddinFolder() + L"hostmenu_addin.arx"),
        testing::Contains(ButtonLine(L"toolbar2", L"null", L"null", L"line", L"null", AddinFolder())));
}

TEST_F(ResourceBuild, TakesTheProgramsResourcesForANullModuleName)
{
    Append_MenuToolBar(101, CString(L"DESCRIPTION"), nullptr);
    EXPECT_THAT(recording::Log(),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "program"))",
                            ItemLine(L"menu1", LR"("i")", LR"("I ")", L"null"),
                            LR"(toolbar2 = Create_ACADToolBar(app, ""))", L"SetVisible(toolbar2, 1)"));
}

TEST_F(ResourceBuild, TakesTheProgramsResourcesForAModuleThatIsNotLoaded)
{
    EXPECT_THAT(Built(101), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "program"))",
                                        ItemLine(L"menu1", LR"("i")", LR"("I ")", L"null")));
}

TEST_F(ResourceBuild, UsesTheLowSixteenBitsOfTheId)
{
    for (const unsigned __int64 high : {0x10000ull, 0xFFFF0000ull, 0xFFFFFFFFFFFF0000ull, 0x100000000ull}) {
        recording::Reset();
        recording::NameApplication(ApplicationDispatch());
        EXPECT_THAT(Built(high + 101), testing::Contains(LR"(menu1 = Create_ACADMenu(app, "program"))"))
            << high;
    }
}

TEST_F(ResourceBuild, TakesTheTypeInAnyCase)
{
    EXPECT_THAT(Built(101, L"NoSuchModule.arx", L"description"), testing::SizeIs(2));
}

TEST_F(ResourceBuild, ShowsThatTheTextIsEmptyWithoutTheResource)
{
    EXPECT_THAT(Built(999), IsEmpty());
    EXPECT_THAT(Built(101, L"NoSuchModule.arx", L"OTHER"), IsEmpty());
    EXPECT_THAT(Built(101, L"NoSuchModule.arx", L""), IsEmpty());
    EXPECT_THAT(Built(102, L"hostmenu_addin.arx"), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre(L"XML File String is empty", L"XML File String is empty",
                                        L"XML File String is empty", L"XML File String is empty"));
}

TEST_F(ResourceBuild, ShowsThatTheTextIsEmptyWhenOnlyBlanksAreThere)
{
    EXPECT_THAT(Built(102), IsEmpty());
    EXPECT_THAT(Built(103), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre(L"XML File String is empty", L"XML File String is empty"));
    for (const testkit::MessageBoxRecord& box : m_boxes.Boxes())
        EXPECT_THAT(box.buttons, testing::SizeIs(1));
}

TEST_F(ResourceBuild, ShowsThatTheTextIsEmptyForAnIdWithoutLowBits)
{
    for (const unsigned __int64 id : {0ull, 0x10000ull, 0x6500000000ull})
        EXPECT_THAT(Built(id), IsEmpty()) << id;
    EXPECT_THAT(Messages(), ElementsAre(L"XML File String is empty", L"XML File String is empty",
                                        L"XML File String is empty"));
}

TEST_F(ResourceBuild, ShowsItsMessageAsAPlainBoxOfTheProgram)
{
    Built(999);
    AfxMessageBox(L"plain");
    ASSERT_EQ(m_boxes.Boxes().size(), 2u);
    EXPECT_EQ(m_boxes.Boxes()[0].caption, m_boxes.Boxes()[1].caption);
    EXPECT_EQ(m_boxes.Boxes()[0].icon, m_boxes.Boxes()[1].icon);
    EXPECT_EQ(m_boxes.Boxes()[0].buttons, m_boxes.Boxes()[1].buttons);
}

TEST_F(ResourceBuild, TakesLongTypesAndModuleNames)
{
    const std::wstring type(5000, L'T');
    EXPECT_THAT(Built(101, L"NoSuchModule.arx", type.c_str()), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre(L"XML File String is empty"));
    EXPECT_THAT(Built(101, std::wstring(5000, L'm') + L".arx"),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "program"))",
                            ItemLine(L"menu1", LR"("i")", LR"("I ")", L"null")));
}

TEST_F(ResourceBuild, TakesAnEmptyModuleNameForAModuleThatIsNotLoaded)
{
    EXPECT_THAT(Built(101, L""), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "program"))",
                                             ItemLine(L"menu1", LR"("i")", LR"("I ")", L"null")));
}

TEST_F(ResourceBuild, EndsTheTextWithTheResourceWhenThereIsNoZeroByte)
{
    EXPECT_THAT(Built(104), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "without.end"))"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceBuild, EndsTheTextAtTheFirstZeroByte)
{
    EXPECT_THAT(Built(106), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "with a tail"))"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceBuild, TrimsTheText)
{
    EXPECT_THAT(Built(107), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "trimmed"))"));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ResourceBuild, ReadsTheTextInTheAnsiCodePage)
{
    if (GetACP() != 1252)
        GTEST_SKIP() << "the byte stands for another character in this code page";
    EXPECT_THAT(Built(108), ElementsAre(L"menu1 = Create_ACADMenu(app, \"caf\u00E9\")"));
}

TEST_F(ResourceBuild, ShowsThatMalformedTextIsNotLoaded)
{
    EXPECT_THAT(Built(109), IsEmpty());
    EXPECT_THAT(Messages(), ElementsAre(L"MenuToolbar XML is not loaded"));
}
