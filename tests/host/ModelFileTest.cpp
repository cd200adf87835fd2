#include "ModelFixture.h"
#include "ModelReaction.h"
#include "kit/Files.h"
#include "model/MenuFile.h"
#include "model/ModelPrinter.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

// Makes a folder the current one for as long as it lives.
class CurrentFolder
{
public:
    explicit CurrentFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
    ~CurrentFolder() { std::filesystem::current_path(m_before); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};

class ModelFile : public ModelFixture
{
protected:
    // Writes a menu file and returns its name.
    std::wstring Write(std::string_view text)
    {
        const std::filesystem::path file = m_folder / L"menu.txt";
        testkit::WriteBytes(file, text);
        return file.wstring();
    }
    Refusal ReasonOfLoading(std::string_view text)
    {
        const std::wstring file = Write(text);
        return ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); });
    }

    testkit::TempFolder m_folder;
};

} // namespace

TEST_F(ModelFile, BecomesAPartialGroup)
{
    const std::wstring file = Write("; made by hand\r\n"
                                    "group EXTRA\r\n"
                                    "\r\n"
                                    "menu &Extra\r\n"
                                    "bar\r\n"
                                    "  item &Line|^C^C_line |Draws\r\n"
                                    "  separator\r\n"
                                    "  submenu &More\r\n"
                                    "    item A\r\n"
                                    "  end\r\n"
                                    "toolbar Main\r\n"
                                    "button Line|^[_line |Draws|a.bmp|b.bmp\r\n"
                                    "separator\r\n"
                                    "flyout More|x||||Drop\r\n"
                                    "toolbar Drop\r\n"
                                    "hidden\r\n");
    const MenuGroup& group = LoadMenuFile(m_model, file, MenuGroupType::Partial);
    EXPECT_EQ(group.fileName, file);
    EXPECT_EQ(PrintModel(m_model), L"menu bar: \"&Extra\"\n"
                                   L"large buttons: no\n"
                                   L"group \"BASE\" base\n"
                                   L"group \"EXTRA\" partial file \"" +
                                       file +
                                       L"\"\n"
                                       L"  menu \"&Extra\" on bar\n"
                                       L"    item \"&Line\" macro \"^C^C_line \" help \"Draws\"\n"
                                       L"    separator\n"
                                       L"    submenu \"&More\"\n"
                                       L"      item \"A\"\n"
                                       L"  toolbar \"Main\" visible floating\n"
                                       L"    button \"Line\" macro \"^[_line \" help \"Draws\" bitmaps"
                                       L" \"a.bmp\" \"b.bmp\"\n"
                                       L"    separator\n"
                                       L"    flyout \"More\" macro \"x\" opens \"Drop\"\n"
                                       L"  toolbar \"Drop\" hidden floating\n");
    EXPECT_EQ(group.menus[0]->items[0]->macro, L"\x03\x03_line ");
}

TEST_F(ModelFile, IsUtf8WithOrWithoutMark)
{
    const MenuGroup& marked =
        LoadMenuFile(m_model, Write("\xEF\xBB\xBFgroup \xC3\x89tude"), MenuGroupType::Partial);
    EXPECT_EQ(marked.name, L"\x00c9tude");
    EXPECT_EQ(ReasonOfLoading("group \xC3"), Refusal::FileInvalid);
}

TEST_F(ModelFile, CanReplaceTheBaseGroup)
{
    AddMenu(L"&Old");
    LoadMenuFile(m_model, Write("group NEW\nmenu &New\n"), MenuGroupType::Base);
    ASSERT_EQ(m_model.Groups().size(), 1u);
    EXPECT_EQ(m_model.Groups()[0]->name, L"NEW");
    EXPECT_EQ(m_model.Groups()[0]->type, MenuGroupType::Base);
}

TEST_F(ModelFile, MissingFileIsRefused)
{
    const std::wstring file = (m_folder / L"none.txt").wstring();
    EXPECT_EQ(FindMenuFile(file), L"");
    EXPECT_EQ(ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); }), Refusal::FileMissing);
}

TEST_F(ModelFile, LoadedGroupIsNotLoadedTwice)
{
    EXPECT_EQ(ReasonOfLoading("group BASE"), Refusal::Duplicate);
    const std::wstring file = Write("group EXTRA");
    LoadMenuFile(m_model, file, MenuGroupType::Partial);
    EXPECT_EQ(ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); }), Refusal::Duplicate);
    EXPECT_EQ(m_model.Groups().size(), 2u);
}

TEST_F(ModelFile, InvalidFilesChangeNothing)
{
    const std::wstring before = PrintModel(m_model);
    for (const char* text : {
             "",                                         // no group
             "menu &A\n",                                // group not first
             "group X\ngroup Y\n",                       // two groups
             "group X\nitem A\n",                        // item in no menu
             "group X\nmenu A\nbutton B\n",              // button in no toolbar
             "group X\nseparator\n",                     // separator in nothing
             "group X\nmenu A\nend\n",                   // end of nothing
             "group X\nmenu A\nsubmenu S\nitem B\n",     // sub-menu without end
             "group X\nmenu A\nsubmenu S\nmenu B\n",     // the same, before a menu
             "group X\nmenu A\nbar\nbar\n",              // twice on the bar
             "group X\nmenu A\nmenu A\n",                // name taken
             "group X\nmenu A\nseparator\n",             // first separator
             "group X\ntoolbar A\nflyout B|m||||None\n", // no such toolbar
             "group X\ntoolbar A\nflyout B\n",           // fly-out without macro
             "group X\nmenu A\nhidden\n",                // hides no toolbar
             "group X\nmenu A\nnonsense\n",              // unknown word
         })
    {
        EXPECT_EQ(ReasonOfLoading(text), Refusal::FileInvalid) << text;
        EXPECT_EQ(PrintModel(m_model), before) << text;
    }
}

TEST_F(ModelFile, RefusalNamesTheLine)
{
    const std::wstring file = Write("group X\n\nmenu A\nnonsense\n");
    try {
        LoadMenuFile(m_model, file, MenuGroupType::Partial);
        FAIL() << "was not refused";
    } catch (const HostError& error) {
        EXPECT_NE(error.Description().find(L"Line 4 "), std::wstring::npos);
    }
}

TEST_F(ModelFile, NameWithoutFolderIsSearchedForInTheProgramFolder)
{
    const std::filesystem::path file = testkit::ProgramFolder() / L"velm-model-file-test.txt";
    testkit::WriteBytes(file, "group EXTRA");
    EXPECT_EQ(std::filesystem::path(FindMenuFile(L"velm-model-file-test.txt")).filename(), file.filename());
    std::filesystem::remove(file);
    EXPECT_EQ(FindMenuFile(L"velm-model-file-test.txt"), L"");
}

TEST_F(ModelFile, RelativeNameWithFolderIsTakenFromTheCurrentFolder)
{
    std::filesystem::create_directory(m_folder / L"sub");
    testkit::WriteBytes(m_folder / L"sub" / L"menu.txt", "group EXTRA");
    const CurrentFolder current(m_folder.Path());
    for (const wchar_t* name : {L"sub\\menu.txt", L"sub/menu.txt", L".\\sub\\menu.txt"}) {
        const std::filesystem::path found = FindMenuFile(name);
        EXPECT_TRUE(found.is_absolute()) << found;
        EXPECT_TRUE(!found.empty() && std::filesystem::equivalent(found, m_folder / L"sub" / L"menu.txt"))
            << found;
    }
}

TEST_F(ModelFile, RelativeNameWithFolderIsNotSearchedForElsewhere)
{
    const std::filesystem::path folder = testkit::ProgramFolder() / L"velm-model-file-test";
    std::filesystem::create_directory(folder);
    testkit::WriteBytes(folder / L"menu.txt", "group EXTRA");
    {
        const CurrentFolder current(m_folder.Path());
        EXPECT_EQ(FindMenuFile(L"velm-model-file-test\\menu.txt"), L"");
        EXPECT_EQ(FindMenuFile(L"velm-model-file-test/menu.txt"), L"");
    }
    std::filesystem::remove_all(folder);
}

TEST_F(ModelFile, FolderIsNoMenuFile)
{
    EXPECT_EQ(FindMenuFile(m_folder.Path().wstring()), L"");
}

TEST_F(ModelFile, GroupThatAnObserverSpoilsIsRefusedAndNotKept)
{
    const std::wstring file = Write("group EXTRA\ntoolbar Main\nflyout More|x||s|l|Drop\ntoolbar Drop\n");
    const std::wstring before = PrintModel(m_model);
    {
        const ModelReaction reaction(m_model, TakeAway(m_model));
        EXPECT_EQ(ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); }), Refusal::Gone);
    }
    for (auto what : {ModelChange::What::Toolbar, ModelChange::What::ToolbarItem}) {
        // Takes the group away, or the button once it has its images.
        const ModelReaction reaction(m_model, [&](const ModelChange& change) {
            if (change.what != what)
                return;
            if (what == ModelChange::What::Toolbar)
                m_model.RemoveGroup(change.parent);
            else if (change.kind == ModelChange::Kind::Changed)
                m_model.RemoveToolbarItem(change.element);
        });
        EXPECT_EQ(ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); }),
                  Refusal::FileInvalid);
        EXPECT_EQ(PrintModel(m_model), before);
    }
}

TEST_F(ModelFile, GroupThatAnObserverRemovesAtTheLastLineIsGone)
{
    const std::wstring file = Write("group EXTRA\ntoolbar Main\nhidden\n");
    const ModelReaction reaction(m_model, [&](const ModelChange& change) {
        if (change.what == ModelChange::What::Toolbar && change.kind == ModelChange::Kind::Changed)
            m_model.RemoveGroup(change.parent);
    });
    EXPECT_EQ(ReasonOf([&] { LoadMenuFile(m_model, file, MenuGroupType::Partial); }), Refusal::Gone);
    EXPECT_EQ(m_model.Groups().size(), 1u);
}
