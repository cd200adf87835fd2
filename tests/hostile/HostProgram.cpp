#include "HostProgram.h"

#include <gtest/gtest.h>

#include "DocumentWalk.h"

namespace
{

hostile::CHostProgram theApp;

class ElementCount
{
public:
    explicit ElementCount(size_t mostSteps) : m_stepsLeft(mostSteps) {}

    void Add(const velmhost::MenuGroup& group)
    {
        for (const auto& menu : group.menus)
            Add(*menu);
        for (const auto& toolbar : group.toolbars) {
            Step();
            for (size_t i = 0; i < toolbar->items.size(); ++i)
                Step();
        }
    }

    size_t count = 0;

private:
    void Step()
    {
        if (m_stepsLeft == 0)
            throw hostile::EndlessWalk{};
        --m_stepsLeft;
        ++count;
    }

    void Add(const velmhost::Menu& menu)
    {
        Step();
        for (const auto& item : menu.items) {
            Step();
            if (item->subMenu)
                Add(*item->subMenu);
        }
    }

    size_t m_stepsLeft;
};

// What the host's automation makes at its first use, and the room that the model has needed once, stay.
class UsedHost : public testing::Environment
{
public:
    void SetUp() override
    {
        std::wstring items;
        for (int i = 0; i < 4'000; ++i)
            items += L"<Menu Name='a'/>";
        for (const std::wstring& more : {items, std::wstring()}) {
            const std::wstring text = L"<r><Menus>" + more +
                                      L"<Menu Name='c' Help='h'/></Menus><Toolbars><Toolbar Cmd='a' " +
                                      L"ImageList='i'><b Cmd='c' ImageList='i'/></Toolbar></Toolbars></r>";
            Append_MenuToolBar(CString(text.c_str()), nullptr);
        }
        velmhost::InvokeFault fault;
        fault.description.assign(200, L'x');
        theApp.Automation().FailInvoke(1, fault);
        Append_MenuToolBar(CString(L"<r/>"), nullptr);
        theApp.Automation().FailInvoke(0, {});
        hostile::EmptyHost();
        (void)theApp.TakeMessages();
    }
};

testing::Environment* const usedHost = testing::AddGlobalTestEnvironment(new UsedHost);

} // namespace

// What the library finds the host by.
extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}

namespace hostile
{

CHostProgram& Host()
{
    return theApp;
}

int CHostProgram::DoMessageBox(LPCTSTR prompt, UINT, UINT)
{
    m_messages.emplace_back(prompt);
    return IDOK;
}

void EmptyHost()
{
    // A model has no way to forget all; a new base group takes the place of the old one.
    theApp.Model().AddGroup(L"BASE", velmhost::MenuGroupType::Base, L"");
}

size_t HostElements(size_t mostSteps)
{
    ElementCount counted(mostSteps);
    for (const auto& group : theApp.Model().Groups())
        counted.Add(*group);
    return counted.count;
}

} // namespace hostile
