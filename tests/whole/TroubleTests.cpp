// Bad descriptions, and a host that fails in the middle: what the user is told, and what stays.
#include "WholeTest.h"

#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"

namespace wholetest
{

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class Description : public WholeTest
{
protected:
    testkit::MessageBoxWatch boxes;
    testkit::TempFolder folder;

    Description() { EXPECT_TRUE(Load()); }

    int BuildFromBytes(std::string_view bytes)
    {
        testkit::WriteBytes(folder / L"description.xml", bytes);
        return Build(folder / L"description.xml");
    }
};

TEST_F(Description, OfAFileAddsToWhatTheHostHas)
{
    EXPECT_EQ(0, BuildFromBytes(
                     "<a><Menus Name='&amp;Own'><Menu Name='Go' Cmd='^C^CGO'/></Menus>"
                     "<Toolbars Name='Own'><Toolbar Cmd='GO' ToolTip='Go' ImageList='pan'/></Toolbars></a>"));
    EXPECT_THAT(LabelsOf({}), ElementsAre(L"File", L"Drafting", L"Own"));
    ClickMenu({L"Own", L"Go"});
    ClickButton(L"Own", L"Go");
    EXPECT_THAT(TakeSent(), ElementsAre(L"\x03\x03GO ", L"GO "));
    EXPECT_THAT(boxes.Texts(), IsEmpty());
}

TEST_F(Description, MayBeUtf8OrUtf16)
{
    const std::string utf8 =
        "\xEF\xBB\xBF<a><Menus Name='One'><Menu Name='\xC3\x9C \xE6\xA6\x82' Cmd='X'/></Menus></a>";
    EXPECT_EQ(0, BuildFromBytes(utf8));
    const std::wstring wide = L"\uFEFF<a><Menus Name='Two'><Menu Name='\u00DC \u6982' Cmd='X'/></Menus></a>";
    EXPECT_EQ(0,
              BuildFromBytes(std::string_view(reinterpret_cast<const char*>(wide.data()), wide.size() * 2)));
    EXPECT_THAT(LabelsOf({L"One"}), ElementsAre(L"\u00DC \u6982"));
    EXPECT_THAT(LabelsOf({L"Two"}), ElementsAre(L"\u00DC \u6982"));
    EXPECT_THAT(boxes.Texts(), IsEmpty());
}

TEST_F(Description, ThatIsNoXmlIsReportedAndChangesNothing)
{
    const std::wstring tree = Tree();
    EXPECT_EQ(0, BuildFromBytes("<a><Menus Name='Own'>"));
    EXPECT_THAT(boxes.Texts(), ElementsAre(L"MenuToolbar XML is not loaded"));
    EXPECT_EQ(tree, Tree());
}

TEST_F(Description, ThatCannotBeReadIsReportedAndChangesNothing)
{
    const std::wstring tree = Tree();
    EXPECT_EQ(1, Build(folder / L"no such file.xml"));
    EXPECT_EQ(1, BuildFromBytes("<a>\xFF\xC0</a>"));
    EXPECT_EQ(1, BuildFromBytes(std::string_view("\xFF\xFE<", 3)));
    ASSERT_EQ(3u, boxes.Texts().size());
    for (const std::wstring& text : boxes.Texts())
        EXPECT_THAT(text, StartsWith(L"The description cannot be read:\n"));
    EXPECT_THAT(boxes.Texts()[0], EndsWith(L"no such file.xml"));
    EXPECT_EQ(tree, Tree());
}

TEST_F(Description, WithoutMenusAndToolbarsStillMakesBothWithoutANameOnce)
{
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(0, BuildFromBytes("<a/>"));
        EXPECT_TRUE(MenuNamed(L"").items.empty());
        EXPECT_TRUE(ToolbarNamed(L"").items.empty());
        EXPECT_TRUE(ToolbarNamed(L"").visible);
    }
    EXPECT_EQ(3u, Model().MenuBar().size());
    EXPECT_THAT(boxes.Texts(), IsEmpty());
}

class FailingHost : public WholeTest
{
protected:
    testkit::MessageBoxWatch boxes;

    static velmhost::InvokeFault Fault()
    {
        velmhost::InvokeFault fault;
        fault.description = L"Not while the office is closed.";
        return fault;
    }
    // Number of calls that loading makes.
    unsigned CallsOfLoading()
    {
        const unsigned before = Host().Automation().InvokeCount();
        EXPECT_TRUE(Load());
        EXPECT_TRUE(Unload());
        return Host().Automation().InvokeCount() - before;
    }
    void ExpectNothingHeld()
    {
        EXPECT_EQ(0, Host().Automation().ApplicationReferences());
        EXPECT_EQ(0, Host().Automation().LiveObjects());
    }
};

TEST_F(FailingHost, InTheMenuIsReportedAndTheToolbarIsMade)
{
    Host().Automation().FailInvoke(30, Fault());
    EXPECT_TRUE(Load());
    EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Menu", L"Not while the office is closed."));
    EXPECT_LT(MenuNamed(L"D&rafting").items.size(), 13u);
    EXPECT_EQ(15u, ToolbarNamed(L"Drafting").items.size());
    ExpectNothingHeld();
}

TEST_F(FailingHost, InTheToolbarIsReportedAfterTheMenuWasMade)
{
    const unsigned calls = CallsOfLoading();
    // The toolbar is made last; a second loading makes more calls than the first, not fewer.
    Host().Automation().FailInvoke(calls - 10, Fault());
    Model().AddGroup(L"BASE", velmhost::MenuGroupType::Base, L"");
    EXPECT_TRUE(Load());
    EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Toolbar", L"Not while the office is closed."));
    EXPECT_EQ(13u, MenuNamed(L"D&rafting").items.size());
    EXPECT_LT(ToolbarNamed(L"Drafting").items.size(), 15u);
    ExpectNothingHeld();
}

TEST_F(FailingHost, ForGoodIsReportedForBoth)
{
    velmhost::InvokeFault fault = Fault();
    fault.forever = true;
    Host().Automation().FailInvoke(30, fault);
    EXPECT_TRUE(Load());
    EXPECT_THAT(boxes.Texts(), ElementsAre(L"Unable to Load Menu", L"Not while the office is closed.",
                                           L"Unable to Load Toolbar", L"Not while the office is closed."));
    ExpectNothingHeld();
}

TEST_F(FailingHost, ThatRecoversIsAsIfItHadNeverFailed)
{
    ASSERT_TRUE(Load());
    const std::wstring tree = Tree();
    const unsigned before = Host().Automation().InvokeCount();
    ASSERT_EQ(0, Build());
    const unsigned calls = Host().Automation().InvokeCount() - before;
    for (unsigned call = 1; call < calls; call += 37) {
        SCOPED_TRACE(testing::Message() << "call " << call << " of " << calls);
        Host().Automation().FailInvoke(call, Fault());
        EXPECT_EQ(0, Build());
        EXPECT_EQ(0, Build());
        EXPECT_EQ(tree, Tree());
        ExpectNothingHeld();
    }
    EXPECT_THAT(boxes.Texts().size(), testing::Ge(2u));
}

} // namespace wholetest
