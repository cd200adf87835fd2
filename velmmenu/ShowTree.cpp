#include "ShowTree.h"

#include "Findings.h"
#include "ToolHost.h"
#include "model/ModelPrinter.h"

namespace velmmenu
{

namespace
{

class Printer
{
public:
    void Print(const velmhost::Menu& menu)
    {
        Line(0, L"menu " + Shown(menu.name));
        PrintItems(menu, 1);
    }

    void Print(const velmhost::Toolbar& toolbar)
    {
        Line(0, L"toolbar " + Shown(toolbar.name));
        PrintItems(toolbar, 1);
    }

    const std::wstring& Text() const { return m_text; }

private:
    void Line(std::size_t level, const std::wstring& text)
    {
        m_text.append(level * 2, L' ');
        m_text += text + L"\n";
    }

    static std::wstring Shown(const std::wstring& text) { return Quoted(velmhost::VisibleText(text)); }

    static std::wstring Field(const wchar_t* title, const std::wstring& value)
    {
        return value.empty() ? std::wstring() : std::wstring(L" ") + title + L" " + Shown(value);
    }

    void PrintItems(const velmhost::Menu& menu, std::size_t level)
    {
        for (const auto& item : menu.items) {
            if (item->type == velmhost::MenuItemType::Separator) {
                Line(level, L"separator");
                continue;
            }
            Line(level, (item->subMenu ? L"cascade " : L"item ") + Shown(item->label) +
                            Field(L"macro", item->macro) + Field(L"help", item->help));
            if (item->subMenu)
                PrintItems(*item->subMenu, level + 1);
        }
    }

    void PrintItems(const velmhost::Toolbar& toolbar, std::size_t level)
    {
        for (const auto& item : toolbar.items) {
            Line(level, (item->flyout ? L"fly-out tip " : L"button tip ") + Shown(item->name) +
                            Field(L"macro", item->macro) + L" bitmaps " +
                            CToolHost::BitmapName(item->smallBitmap) + L" " +
                            CToolHost::BitmapName(item->largeBitmap));
            if (item->flyout)
                PrintItems(*item->flyout, level + 1);
        }
    }

    std::wstring m_text;
};

} // namespace

std::wstring ShowTree(const velmhost::Menu* menu, const velmhost::Toolbar* toolbar)
{
    Printer printer;
    if (menu != nullptr)
        printer.Print(*menu);
    if (toolbar != nullptr)
        printer.Print(*toolbar);
    return printer.Text();
}

} // namespace velmmenu
