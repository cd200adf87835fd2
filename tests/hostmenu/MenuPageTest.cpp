// The description of docs/menus.md does what the page says of it.
#include "HostMenuTest.h"
#include "HostProgram.h"

#include "kit/SourceTree.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(HostMenuTest, DescriptionOfThePageBecomesWhatItsTablesSay)
{
    recording::NameApplication(ApplicationDispatch());
    const std::string text = testkit::FirstCodeOf(testkit::SourceText(L"docs/menus.md"), "xml");
    Build(std::wstring(text.begin(), text.end()));
    EXPECT_THAT(recording::Log(),
                ElementsAre(LR"(menu1 = Create_ACADMenu(app, "&Survey"))",
                            LR"(submenu2 = Append_SubMenu(menu1, "&Points"))",
                            ItemLine(L"submenu2", LR"("&Import...")", LR"("^C^CPTIMPORT ")",
                                     LR"("Reads points from a file")"),
                            ItemLine(L"submenu2", L"null", L"null", L"null"),
                            ItemLine(L"submenu2", LR"("&Label")", LR"("^C^CPTLABEL ")",
                                     LR"("Writes numbers beside points")"),
                            ItemLine(L"menu1", LR"("&About")", LR"("^C^CABOUT ")", L"null"),
                            LR"(toolbar3 = Create_ACADToolBar(app, "Survey"))",
                            ButtonLine(L"toolbar3", LR"("^C^CPTIMPORT ")", LR"("Import points")", L"import"),
                            LR"(toolbar4 = Create_ACADToolBar(app, "SubToolbar"))",
                            ButtonLine(L"toolbar3", LR"("^C^CDIST ")", LR"("Measure")", L"dist", L"toolbar4"),
                            ButtonLine(L"toolbar4", LR"("^C^CDIST ")", LR"("Measure")", L"dist"),
                            ButtonLine(L"toolbar4", LR"("^C^CAREA ")", LR"("Area")", L"area"),
                            L"SetVisible(toolbar4, 0)", L"SetVisible(toolbar3, 1)"));
    EXPECT_THAT(Messages(), IsEmpty());
}

} // namespace
