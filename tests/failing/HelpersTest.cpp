// The helpers for texts, lists and modules on a failing platform.
//
// Left out: InitInstance and the like of the entry point, which has tests of its own in tests/frame.
#include "Suites.h"

#include <fstream>
#include <iterator>
#include <list>

#include "kit/Files.h"
#include "kit/Text.h"

namespace
{

using namespace failingtest;

// Deleted by the helpers for lists of pointers.
class CElement : public CObject
{
};

class HelpersGround : public Ground
{
public:
    HelpersGround()
    {
        // Longer than what a text holds without memory of its own.
        items.Add(L"first text,,second text");
        items.Add(L"third text");
        out.Add(L"there before");
        list.push_back(L"there before");
        parent.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 200, 200), nullptr, 0);
        combo.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 100, 100), &parent, 1);
        box.Create(WS_CHILD, CRect(0, 100, 100, 200), &parent, 2);
        combo.AddString(L"there before");
        box.AddString(L"there before");
        box.AddString(L"and another one");
        pointers = new CPtrList;
        for (CElement*& element : elements)
            pointers->AddTail(static_cast<CObject*>(element = new CElement));
    }
    ~HelpersGround() override
    {
        parent.DestroyWindow();
        DeletePtrList(pointers);
    }

    std::string State() override
    {
        std::string state = "out:";
        for (INT_PTR i = 0; i < out.GetSize(); ++i)
            state += std::string(" ") + Shown(out[i]);
        state += "\nlist:";
        for (const CString& text : list)
            state += std::string(" ") + Shown(text);
        state += std::string("\ncombo:") + Entries(combo, CB_GETCOUNT, CB_GETLBTEXT) + " selected " +
                 Shown(combo.GetCurSel());
        state += std::string("\nbox:") + Entries(box, LB_GETCOUNT, LB_GETTEXT) + " selected " +
                 Shown(box.GetCurSel());
        state += "\npointers: " + (pointers ? std::to_string(pointers->GetCount()) : "none");
        state += std::string("\ntexts: ") + Shown(drive) + " " + Shown(dir) + " " + testkit::Quoted(name);
        return state;
    }

    CStringArray items;
    CString text = L"abc12.5 and some more";
    CString delimiter = L", ";
    CStringArray out;
    std::list<CString> list;
    CWnd parent;
    CComboBox combo;
    CListBox box;
    CPtrList* pointers = nullptr;
    CElement* elements[3] = {};
    CString drive = L"as before";
    CString dir = L"as before, too";
    wchar_t name[512] = L"VelmUtil22";

private:
    static std::string Entries(const CWnd& control, UINT countMessage, UINT textMessage)
    {
        std::string entries;
        const auto count = ::SendMessageW(control.m_hWnd, countMessage, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(count); ++i) {
            wchar_t entry[200] = L"";
            ::SendMessageW(control.m_hWnd, textMessage, i, reinterpret_cast<LPARAM>(entry));
            entries += std::string(" ") + testkit::Quoted(entry);
        }
        return entries;
    }
};

using Helper = Row<HelpersGround>;

// What was there, and of what is to be added nothing or the first ones: the selection comes last.
bool AreFirstAdded(const std::string& before, const std::string& done, const Outcome& failed)
{
    const auto lineOf = [](const std::string& state, size_t line) {
        size_t start = 0;
        while (line-- > 0)
            start = state.find('\n', start) + 1;
        const std::string text = state.substr(start, state.find('\n', start) - start);
        return text.substr(0, text.find(" selected"));
    };
    for (size_t line = 0; line < 4; ++line) {
        const std::string now = lineOf(failed.state, line);
        if (!now.starts_with(lineOf(before, line)) || !lineOf(done, line).starts_with(now))
            return false;
    }
    return true;
}

// Empty, or of its final size, with empty texts in place of those that are missing.
bool IsSplitAsStated(const std::string&, const std::string& done, const Outcome& failed)
{
    const auto pieces = [](const std::string& state) {
        std::vector<std::string> texts;
        const std::string line = state.substr(0, state.find('\n'));
        for (size_t at = 0; (at = line.find('"', at)) != std::string::npos;) {
            const size_t end = line.find('"', at + 1);
            texts.push_back(line.substr(at + 1, end - at - 1));
            at = end + 1;
        }
        return texts;
    };
    const std::vector<std::string> now = pieces(failed.state);
    const std::vector<std::string> all = pieces(done);
    if (now.empty())
        return true;
    for (size_t i = 0; i < now.size(); ++i) {
        if (now.size() != all.size() || (!now[i].empty() && now[i] != all[i]))
            return false;
    }
    return true;
}

std::vector<Operation> Helpers()
{
    return OperationsOn<HelpersGround>({
        {"GetStrToDouble", [](HelpersGround& g) { return std::to_string(GetStrToDouble(g.text)); }},
        {"GetStrToFloat", [](HelpersGround& g) { return std::to_string(GetStrToFloat(g.text)); }},
        {"GetStrToInt", [](HelpersGround& g) { return std::to_string(GetStrToInt(g.text)); }},
        {"GetStrToLong", [](HelpersGround& g) { return std::to_string(GetStrToLong(g.text)); }},
        {"GetStringFromInt", [](HelpersGround&) { return Shown(GetStringFrom(-1234567)); }, Memory},
        {"GetStringFromLong", [](HelpersGround&) { return Shown(GetStringFrom(-1234567L)); }, Memory},
        {"GetStringFromFloat", [](HelpersGround&) { return Shown(GetStringFrom(12.345f)); }, Memory},
        {"GetStringFromDouble", [](HelpersGround&) { return Shown(GetStringFrom(12.345)); }, Memory},
        {"GetNumberFromText", [](HelpersGround& g) { return Shown(GetNumberFromText(g.text)); }, Memory},
        {"EntityFilter",
         [](HelpersGround&) {
             const CEntityFilter filter;
             return Shown(filter.m_bFlag1);
         }},
        {"FillComboBox",
         [](HelpersGround& g) {
             FillComboBox(g.items, g.combo);
             return "";
         }},
        {"FillListBox",
         [](HelpersGround& g) {
             FillListBox(g.items, g.box);
             return "";
         }},
        {"FillListBox1",
         [](HelpersGround& g) {
             FillListBox1(g.items, g.box);
             return "";
         },
         Memory,
         {},
         AreFirstAdded},
        {"FillStringArray",
         [](HelpersGround& g) {
             FillStringArray(g.box, g.out);
             return "";
         },
         Memory,
         {},
         AreFirstAdded},
        {"FillStringList",
         [](HelpersGround& g) {
             FillStringList(g.items, g.list);
             return "";
         },
         Memory,
         {},
         AreFirstAdded},
        {"GetAppPath",
         [](HelpersGround& g) {
             GetAppPath(g.name);
             return "";
         },
         Memory},
        {"GetProjectPath", [](HelpersGround& g) { return Shown(GetProjectPath(g.name)); }, Memory},
        {"GetProjectPathOfProgram", [](HelpersGround&) { return Shown(GetProjectPath(nullptr)); }, Memory},
        {"GetProjectPathOfAName",
         [](HelpersGround& g) {
             wcscpy(g.name, L"C:\\some folder that is not there\\no such module");
             return Shown(GetProjectPath(g.name));
         },
         Memory,
         {},
         [](auto&...) { return true; }},
        {"GetAppDriveAndDir",
         [](HelpersGround& g) {
             GetAppDriveAndDir(g.drive, g.dir);
             return "";
         },
         Memory},
        {"ClearPtrList",
         [](HelpersGround& g) {
             ClearPtrList(g.pointers);
             return "";
         }},
        {"DeletePtrList",
         [](HelpersGround& g) {
             DeletePtrList(g.pointers);
             return "";
         }},
        {"DeletePtrListItem",
         [](HelpersGround& g) {
             DeletePtrListItem(std::exchange(g.elements[1], nullptr), g.pointers, true);
             return "";
         }},
        {"Split2ArrayTokens",
         [](HelpersGround& g) {
             Split2Array(g.items[0], g.delimiter, g.out, true);
             return "";
         },
         Memory,
         {},
         IsSplitAsStated},
        {"Split2ArrayWhole",
         [](HelpersGround& g) {
             Split2Array(g.items[0], g.delimiter, g.out, false);
             return "";
         },
         Memory,
         {},
         IsSplitAsStated},
        {"Split2ArrayWithoutDelimiter",
         [](HelpersGround& g) {
             Split2Array(g.items[0], CString(), g.out, false);
             return "";
         },
         Memory,
         {},
         IsSplitAsStated},
        {"DebugPrint",
         [](HelpersGround&) {
             const testkit::TempFolder folder;
             const std::filesystem::path file = folder / L"log.txt";
             DebugPrint(L"a line", nullptr, file.c_str());
             return std::to_string(std::filesystem::file_size(file));
         }},
    });
}

FAILING_SUITE(FailingHelpers, Helpers());

} // namespace
