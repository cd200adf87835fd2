#include "model/ModelPrinter.h"

#include "model/HostModel.h"

namespace velmhost
{

namespace
{

std::wstring Quoted(const std::wstring& text)
{
    return L"\"" + VisibleText(text) + L"\"";
}

const wchar_t* NameOf(DockStatus dock)
{
    switch (dock) {
    case DockStatus::Top:
        return L"top";
    case DockStatus::Bottom:
        return L"bottom";
    case DockStatus::Left:
        return L"left";
    case DockStatus::Right:
        return L"right";
    case DockStatus::Floating:
        break;
    }
    return L"floating";
}

class Printer
{
public:
    explicit Printer(const HostModel& model) : m_model(model) {}

    std::wstring Print()
    {
        m_text = L"menu bar:";
        for (const Menu* menu : m_model.MenuBar())
            m_text += L" " + Quoted(menu->name);
        m_text += L"\n";
        Line(0, std::wstring(L"large buttons: ") + (m_model.LargeButtons() ? L"yes" : L"no"));
        for (const auto& group : m_model.Groups())
            PrintGroup(*group);
        return m_text;
    }

private:
    void Line(int level, const std::wstring& line)
    {
        m_text.append(static_cast<size_t>(level) * 2, L' ');
        m_text += line + L"\n";
    }

    static std::wstring Field(const wchar_t* title, const std::wstring& value)
    {
        return value.empty() ? std::wstring() : L" " + std::wstring(title) + L" " + Quoted(value);
    }

    void PrintGroup(const MenuGroup& group)
    {
        Line(0, L"group " + Quoted(group.name) +
                    (group.type == MenuGroupType::Base ? L" base" : L" partial") +
                    Field(L"file", group.fileName));
        for (const auto& menu : group.menus) {
            Line(1, L"menu " + Quoted(menu->name) + (menu->shortcut ? L" shortcut" : L"") +
                        (m_model.IsOnMenuBar(menu->id) ? L" on bar" : L""));
            PrintItems(*menu, 2);
        }
        for (const auto& toolbar : group.toolbars)
            PrintToolbar(*toolbar);
    }

    void PrintItems(const Menu& menu, int level)
    {
        for (const auto& item : menu.items) {
            if (item->type == MenuItemType::Separator) {
                Line(level, L"separator");
                continue;
            }
            const wchar_t* kind = item->type == MenuItemType::SubMenu ? L"submenu " : L"item ";
            Line(level, kind + Quoted(item->label) + Field(L"macro", item->macro) +
                            Field(L"help", item->help) + (item->enabled ? L"" : L" disabled") +
                            (item->checked ? L" checked" : L""));
            if (item->subMenu)
                PrintItems(*item->subMenu, level + 1);
        }
    }

    void PrintToolbar(const Toolbar& toolbar)
    {
        Line(1, L"toolbar " + Quoted(toolbar.name) + (toolbar.visible ? L" visible " : L" hidden ") +
                    NameOf(toolbar.dock) + Field(L"help", toolbar.help));
        for (const auto& item : toolbar.items) {
            if (item->type == ToolbarItemType::Separator) {
                Line(2, L"separator");
                continue;
            }
            std::wstring line = item->type == ToolbarItemType::Flyout ? L"flyout " : L"button ";
            line += Quoted(item->name) + Field(L"macro", item->macro) + Field(L"help", item->help);
            if (!item->smallBitmap.empty() || !item->largeBitmap.empty())
                line += L" bitmaps " + Quoted(item->smallBitmap) + L" " + Quoted(item->largeBitmap);
            if (item->flyout)
                line += L" opens " + Quoted(item->flyout->name);
            Line(2, line);
        }
    }

    const HostModel& m_model;
    std::wstring m_text;
};

} // namespace

std::wstring PrintModel(const HostModel& model)
{
    return Printer(model).Print();
}

std::wstring VisibleText(const std::wstring& text)
{
    std::wstring visible;
    visible.reserve(text.size());
    for (wchar_t c : text) {
        if (c < 0x20)
            (visible += L'^') += static_cast<wchar_t>(c + 0x40);
        else if (c == L'^' || c == L'"')
            (visible += L'^') += c;
        else if (c == 0x7F)
            visible += L"^?";
        else
            visible += c;
    }
    return visible;
}

} // namespace velmhost
