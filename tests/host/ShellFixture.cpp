#include "ShellFixture.h"

#include "kit/Files.h"
#include "kit/Input.h"
#include "kit/Pump.h"

namespace
{

velmhost::CHostApp theApp;

}

namespace hosttest
{

using namespace velmhost;

void ShellFixture::SetUpTestSuite()
{
    // What the platform and our containers make at first use, and keep.
    static bool warm = false;
    if (warm)
        return;
    warm = true;
    HostModel& model = theApp.Model();
    for (int i = 0; i < 12; ++i) {
        const ElementId group = model.AddGroup(std::to_wstring(i), MenuGroupType::Partial, L"").id;
        model.InsertInMenuBar(model.AddMenu(group, L"Menu").id, kAtEnd);
        model.AddToolbarButton(model.AddToolbar(group, L"Bar").id, kAtEnd, L"B", L"", L"b ", false);
    }
    theApp.OpenShell(QuietOptions(), SW_SHOW);
    testkit::PumpPending();
    theApp.CloseShell();
    theApp.ForgetTexts();
    EmptyModel();
}

ShellFixture::ShellFixture()
{
    EmptyModel();
    App().OpenShell(QuietOptions(), SW_SHOW);
    ParkMouse();
}

ShellFixture::~ShellFixture()
{
    App().CloseShell();
    App().ForgetTexts();
    EmptyModel();
}

void ShellFixture::Reopen(const ShellOptions& options, int showCommand)
{
    App().CloseShell();
    ASSERT_TRUE(App().OpenShell(options, showCommand));
}

ShellOptions ShellFixture::QuietOptions()
{
    ShellOptions options;
    options.noRegister = true;
    options.batch = true;
    return options;
}

CHostApp& ShellFixture::App()
{
    return theApp;
}

CHostFrame& ShellFixture::Frame()
{
    return *theApp.MainFrame();
}

HostModel& ShellFixture::Model()
{
    return theApp.Model();
}

// A new base group takes the place of the old one and all that is in it.
void ShellFixture::EmptyModel()
{
    HostModel& model = theApp.Model();
    while (model.Groups().size() > 1)
        model.RemoveGroup(model.Groups().back()->id);
    model.AddGroup(model.Groups().front()->name == L"BASE" ? L"BASE2" : L"BASE", MenuGroupType::Base, L"");
    model.SetLargeButtons(false);
    model.Policies() = HostPolicies{};
}

ElementId ShellFixture::Base()
{
    return Model().Groups().front()->id;
}

ElementId ShellFixture::AddBarMenu(const wchar_t* name)
{
    const ElementId menu = Model().AddMenu(Base(), name).id;
    Model().InsertInMenuBar(menu, kAtEnd);
    return menu;
}

ElementId ShellFixture::AddItem(ElementId menu, const wchar_t* label, const wchar_t* macro,
                                const wchar_t* help)
{
    const ElementId item = Model().AddMenuItem(menu, kAtEnd, label, macro)->id;
    if (*help)
        Model().SetMenuItemHelp(item, help);
    return item;
}

ElementId ShellFixture::AddSubMenu(ElementId menu, const wchar_t* label)
{
    return Model().AddSubMenu(menu, kAtEnd, label)->subMenu->id;
}

ElementId ShellFixture::AddToolbar(const wchar_t* name)
{
    return Model().AddToolbar(Base(), name).id;
}

ElementId ShellFixture::AddButton(ElementId toolbar, const wchar_t* name, const wchar_t* macro,
                                  const wchar_t* help)
{
    return Model().AddToolbarButton(toolbar, kAtEnd, name, help, macro, false).id;
}

ElementId ShellFixture::AddFlyout(ElementId toolbar, const wchar_t* name, ElementId opened)
{
    const Toolbar& target = *Model().FindToolbar(opened);
    const ElementId item = Model().AddToolbarButton(toolbar, kAtEnd, name, L"", L"unused", true).id;
    Model().AttachFlyout(item, Model().Groups().front()->name, target.name);
    Model().SetToolbarVisible(opened, false);
    return item;
}

void ShellFixture::Show()
{
    Frame().ShowChanges();
    testkit::PumpPending();
}

CToolbarPane& ShellFixture::Pane(ElementId toolbar)
{
    CToolbarPane* pane = Frame().Toolbars().FindPane(toolbar);
    if (!pane)
        throw std::runtime_error("the toolbar is not on show");
    return *pane;
}

CPoint ShellFixture::ButtonPoint(const CToolbarPane& pane, ElementId item)
{
    return pane.ButtonRect(pane.PositionOf(item)).CenterPoint();
}

void ShellFixture::Click(const CToolbarPane& pane, ElementId item)
{
    EXPECT_TRUE(testkit::Mouse::Click(ButtonPoint(pane, item)));
    testkit::PumpPending();
}

void ShellFixture::ParkMouse()
{
    EXPECT_TRUE(testkit::Mouse::MoveTo(testkit::MiddleOf(Frame().DrawingArea())));
    testkit::PumpPending();
}

void WriteBitmap(const std::filesystem::path& file, int width, int height,
                 const std::function<COLORREF(int x, int y)>& colour)
{
    const std::size_t stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    BITMAPFILEHEADER header{};
    BITMAPINFOHEADER info{};
    info.biSize = sizeof info;
    info.biWidth = width;
    info.biHeight = height;
    info.biPlanes = 1;
    info.biBitCount = 24;
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + stride * static_cast<std::size_t>(height));
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    bytes.append(reinterpret_cast<const char*>(&info), sizeof info);
    for (int y = height - 1; y >= 0; --y) {
        std::string row(stride, '\0');
        for (int x = 0; x < width; ++x) {
            const COLORREF pixel = colour(x, y);
            row[static_cast<std::size_t>(x) * 3] = static_cast<char>(GetBValue(pixel));
            row[static_cast<std::size_t>(x) * 3 + 1] = static_cast<char>(GetGValue(pixel));
            row[static_cast<std::size_t>(x) * 3 + 2] = static_cast<char>(GetRValue(pixel));
        }
        bytes += row;
    }
    testkit::WriteBytes(file, bytes);
}

} // namespace hosttest
