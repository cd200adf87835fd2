#include "Bitmaps.h"
#include "Check.h"
#include "CheckSiblings.h"
#include "hostmenu/Entries.h"

namespace velmmenu
{

namespace
{

std::wstring Text(const CString& text)
{
    return std::wstring(text.GetString());
}

// One toolbar or fly-out.
class LevelCheck
{
public:
    LevelCheck(const std::optional<std::wstring>& bitmaps, Findings& findings)
        : m_bitmaps(bitmaps), m_findings(findings)
    {
    }

    // `opener` is the entry of a fly-out, which is its first button; null for the toolbar itself.
    void Run(const std::vector<Element*>& entries, const ToolBarEntry* opener)
    {
        for (const Element* element : entries) {
            if (const std::optional<ToolBarEntry> entry = ReadToolBarEntry(element->node))
                CheckEntry(*element, *entry, opener);
        }
        CheckToolBarSiblings(m_siblings, m_findings);
    }

private:
    void CheckEntry(const Element& element, const ToolBarEntry& entry, const ToolBarEntry* opener)
    {
        CheckAttributes(element, ElementKind::ToolBarEntry, m_findings);
        switch (entry.Kind()) {
        case ToolBarEntryKind::Separator:
            Report(element, L"an entry called Separator adds nothing to a toolbar" + Lost(element));
            return;
        case ToolBarEntryKind::WithoutImages:
            Report(element, (element.Has(L"ImageList") ? L"with an empty ImageList" : L"without ImageList") +
                                std::wstring(L" no button is built") + Lost(element));
            break;
        case ToolBarEntryKind::Button:
            CheckButton(element, entry, opener);
            break;
        }
        m_siblings.push_back({element.line, Text(entry.name), false});
    }

    void CheckButton(const Element& element, const ToolBarEntry& entry, const ToolBarEntry* opener)
    {
        CheckImages(element, Text(entry.ImageName()));
        if (!entry.command)
            Report(element, L"without Cmd the button sends nothing");
        if (opener != nullptr && opener->command == entry.command && opener->ImageName() == entry.ImageName())
            Report(element, L"the fly-out begins with this button already: the entry that opens it is its "
                            L"first one");
        if (!OpensFlyout(element.childNodes))
            return;
        if (element.children.empty())
            Report(element, L"a comment or text in the entry makes it a fly-out, which has nothing but the "
                            L"entry's own button");
        LevelCheck(m_bitmaps, m_findings).Run(element.children, &entry);
    }

    void CheckImages(const Element& element, const std::wstring& image)
    {
        if (image.empty())
            Report(element, L"ImageList is blank: the bitmaps are called 16.bmp and 24.bmp");
        if (LeavesFolder(image)) {
            Report(element, L"the bitmaps " + Quoted(image) + L" lie outside the folder " + ImageFolder);
            return;
        }
        if (!m_bitmaps)
            return;
        for (const wchar_t* size : {SmallImageSize, LargeImageSize}) {
            const std::wstring name = Text(ImageFileName(CString(image.c_str()), size));
            const std::wstring problem = BitmapProblem(*m_bitmaps, name, std::stoi(size));
            if (!problem.empty())
                Report(element, problem);
        }
    }

    void Report(const Element& element, const std::wstring& text) { m_findings.Add(element.line, text); }

    static std::wstring Lost(const Element& element)
    {
        return element.children.empty() ? std::wstring()
                                        : L"; " + ElementsInIt(element.CountBelow()) + L" will be ignored";
    }

    const std::optional<std::wstring>& m_bitmaps;
    Findings& m_findings;
    std::vector<Sibling> m_siblings;
};

} // namespace

void CheckToolBar(const std::vector<Element*>& entries, const std::optional<std::wstring>& bitmaps,
                  Findings& findings)
{
    LevelCheck(bitmaps, findings).Run(entries, nullptr);
}

} // namespace velmmenu
