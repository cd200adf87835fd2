#include "CompanionTest.h"

#include "Description.h"

#include <cstdio>

namespace companiontest
{

namespace
{

// The host's automation makes the tables of its classes when the first object of each is asked for, and
// keeps them. They are no leak of the first test that does so.
class UsedHost : public testing::Environment
{
public:
    void SetUp() override
    {
        Host host;
        for (int run = 0; run < 2; ++run)
            BuildDescription(host.Application());
    }
};

testing::Environment* const usedHost = testing::AddGlobalTestEnvironment(new UsedHost);

} // namespace

std::string Escaped(const std::wstring& text)
{
    std::string escaped;
    for (const wchar_t c : text) {
        if (c >= 0x20 && c < 0x7F) {
            escaped += static_cast<char>(c);
        } else {
            char code[8] = "";
            std::snprintf(code, sizeof(code), "\\u%04X", static_cast<unsigned>(c));
            escaped += code;
        }
    }
    return escaped;
}

std::optional<Failure> FailureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (COleDispatchException* exception) {
        Failure failure{exception->m_wCode,
                        exception->m_scError,
                        static_cast<const wchar_t*>(exception->m_strSource),
                        static_cast<const wchar_t*>(exception->m_strDescription),
                        static_cast<const wchar_t*>(exception->m_strHelpFile),
                        exception->m_dwHelpContext};
        exception->Delete();
        return failure;
    }
    return std::nullopt;
}

Host::~Host()
{
    EXPECT_EQ(0, automation.LiveObjects()) << "objects of the host are still held";
    EXPECT_EQ(0, automation.OutstandingReferences());
    EXPECT_EQ(m_references, automation.ApplicationReferences()) << "references to the application";
}

const velmhost::Menu* Host::FindMenu(const std::wstring& name) const
{
    for (const auto& menu : Base().menus) {
        if (menu->name == name)
            return menu.get();
    }
    return nullptr;
}

const velmhost::Toolbar* Host::FindToolbar(const std::wstring& name) const
{
    for (const auto& toolbar : Base().toolbars) {
        if (toolbar->name == name)
            return toolbar.get();
    }
    return nullptr;
}

std::vector<std::wstring> Host::MenuNames() const
{
    std::vector<std::wstring> names;
    for (const auto& menu : Base().menus)
        names.push_back(menu->name);
    return names;
}

std::vector<std::wstring> Host::ToolbarNames() const
{
    std::vector<std::wstring> names;
    for (const auto& toolbar : Base().toolbars)
        names.push_back(toolbar->name);
    return names;
}

std::vector<std::wstring> Host::BarNames() const
{
    std::vector<std::wstring> names;
    for (const velmhost::Menu* menu : model.MenuBar())
        names.push_back(menu->name);
    return names;
}

IAcadToolbar CompanionTest::NewFlyout(const IAcadToolbar& toolbar, const wchar_t* name)
{
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, name, name, flyout);
    AddButton(flyout, name, name);
    flyout.SetVisible(0);
    return flyout;
}

} // namespace companiontest
