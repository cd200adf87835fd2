#include "model/MenuFile.h"

#include <afxwin.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>
#include <vector>

#include "model/HostModel.h"

namespace velmhost
{

namespace
{

struct Line
{
    int number;
    std::wstring keyword;
    std::vector<std::wstring> fields; // of what follows the keyword; never empty
};

[[noreturn]] void RefuseLine(int number, const std::wstring& reason)
{
    throw HostError(Refusal::FileInvalid,
                    L"Line " + std::to_wstring(number) + L" of the menu file: " + reason);
}

std::wstring ReadText(const std::wstring& fileName)
{
    std::ifstream file(std::filesystem::path(fileName), std::ios::binary);
    if (!file)
        throw HostError(Refusal::FileMissing, L"The menu file cannot be opened.");
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
    if (bytes.empty())
        return std::wstring();
    const int count = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), count, nullptr, 0);
    if (length == 0)
        throw HostError(Refusal::FileInvalid, L"The menu file is not UTF-8 text.");
    std::wstring text(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), count, text.data(), length);
    return text;
}

std::wstring Trimmed(const std::wstring& text)
{
    const wchar_t blanks[] = L" \t\r";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring::npos)
        return std::wstring();
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

std::vector<std::wstring> Split(const std::wstring& text, wchar_t separator)
{
    std::vector<std::wstring> pieces(1);
    for (wchar_t c : text) {
        if (c == separator)
            pieces.emplace_back();
        else
            pieces.back() += c;
    }
    return pieces;
}

std::vector<Line> SplitLines(const std::wstring& text)
{
    std::vector<Line> lines;
    int number = 0;
    for (const std::wstring& raw : Split(text, L'\n')) {
        ++number;
        const std::wstring line = Trimmed(raw);
        if (line.empty() || line[0] == L';')
            continue;
        const size_t end = line.find_first_of(L" \t");
        const std::wstring rest = end == std::wstring::npos ? std::wstring() : Trimmed(line.substr(end));
        lines.push_back({number, line.substr(0, end), Split(rest, L'|')});
    }
    return lines;
}

std::wstring MacroOf(const std::wstring& text)
{
    std::wstring macro;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'^' && i + 1 < text.size() && text[i + 1] >= L'@' && text[i + 1] <= L'_')
            macro += static_cast<wchar_t>(text[++i] - 0x40);
        else
            macro += text[i];
    }
    return macro;
}

// Observers of the model may take the group away while it is read.
const MenuGroup& RequireGroup(const HostModel& model, ElementId id)
{
    if (const MenuGroup* group = model.FindGroup(id))
        return *group;
    throw HostError(Refusal::Gone, L"The menu group was removed while it was loaded.");
}

class GroupReader
{
public:
    GroupReader(HostModel& model, const std::wstring& fileName, MenuGroupType type)
        : m_model(model), m_fileName(fileName), m_type(type)
    {
    }

    // The id of the group that was begun, or 0.
    ElementId Group() const { return m_group; }

    // Returns the id of the group.
    ElementId Read(const std::vector<Line>& lines)
    {
        if (lines.empty() || lines.front().keyword != L"group")
            throw HostError(Refusal::FileInvalid, L"The menu file does not begin with a group.");
        for (const Line& line : lines) {
            try {
                ReadLine(line);
            } catch (const HostError& error) {
                if (error.Reason() == Refusal::FileInvalid || m_group == 0)
                    throw;
                RefuseLine(line.number, error.Description());
            }
        }
        if (m_menus.size() > 1)
            RefuseLine(lines.back().number, L"a sub-menu has no end.");
        for (const Attachment& attachment : m_attachments)
            Attach(attachment);
        return m_group;
    }

private:
    struct Attachment
    {
        int line;
        ElementId item;
        std::wstring toolbar;
    };

    static std::wstring Field(const Line& line, size_t index)
    {
        return index < line.fields.size() ? line.fields[index] : std::wstring();
    }

    void ReadLine(const Line& line)
    {
        const std::wstring& keyword = line.keyword;
        if (keyword == L"group")
            BeginGroup(line);
        else if (keyword == L"menu")
            BeginMenu(line);
        else if (keyword == L"bar")
            m_model.InsertInMenuBar(Root(line), kAtEnd);
        else if (keyword == L"item")
            ReadItem(line);
        else if (keyword == L"submenu")
            BeginSubMenu(line);
        else if (keyword == L"end")
            EndSubMenu(line);
        else if (keyword == L"separator")
            ReadSeparator(line);
        else if (keyword == L"toolbar")
            BeginToolbar(line);
        else if (keyword == L"button" || keyword == L"flyout")
            ReadButton(line, keyword == L"flyout");
        else if (keyword == L"hidden")
            m_model.SetToolbarVisible(CurrentToolbar(line), false);
        else
            RefuseLine(line.number, L"unknown word.");
    }

    void BeginGroup(const Line& line)
    {
        if (m_group != 0)
            RefuseLine(line.number, L"a second group.");
        m_group = m_model.AddGroup(Field(line, 0), m_type, m_fileName).id;
    }

    void RequireNoOpenSubMenu(const Line& line) const
    {
        if (m_menus.size() > 1)
            RefuseLine(line.number, L"the sub-menu before it has no end.");
    }

    void BeginMenu(const Line& line)
    {
        RequireNoOpenSubMenu(line);
        m_menus.assign(1, m_model.AddMenu(m_group, Field(line, 0)).id);
        m_toolbar = 0;
    }

    ElementId Root(const Line& line) const
    {
        if (m_menus.empty())
            RefuseLine(line.number, L"it belongs to no menu.");
        return m_menus.front();
    }

    ElementId CurrentMenu(const Line& line) const
    {
        Root(line);
        return m_menus.back();
    }

    ElementId CurrentToolbar(const Line& line) const
    {
        if (m_toolbar == 0)
            RefuseLine(line.number, L"it belongs to no toolbar.");
        return m_toolbar;
    }

    static const MenuItem& RequireAdded(const Line& line, const MenuItem* item)
    {
        if (!item)
            RefuseLine(line.number, L"the menu is full.");
        return *item;
    }

    void ReadItem(const Line& line)
    {
        const MenuItem& item = RequireAdded(
            line, m_model.AddMenuItem(CurrentMenu(line), kAtEnd, Field(line, 0), MacroOf(Field(line, 1))));
        m_model.SetMenuItemHelp(item.id, Field(line, 2));
    }

    void BeginSubMenu(const Line& line)
    {
        const MenuItem& item =
            RequireAdded(line, m_model.AddSubMenu(CurrentMenu(line), kAtEnd, Field(line, 0)));
        m_menus.push_back(item.subMenu->id);
    }

    void EndSubMenu(const Line& line)
    {
        if (m_menus.size() < 2)
            RefuseLine(line.number, L"no sub-menu is open.");
        m_menus.pop_back();
    }

    void ReadSeparator(const Line& line)
    {
        if (m_toolbar != 0)
            m_model.AddToolbarSeparator(m_toolbar, kAtEnd);
        else
            RequireAdded(line, m_model.AddMenuSeparator(CurrentMenu(line), kAtEnd));
    }

    void BeginToolbar(const Line& line)
    {
        RequireNoOpenSubMenu(line);
        m_menus.clear();
        m_toolbar = m_model.AddToolbar(m_group, Field(line, 0)).id;
    }

    void ReadButton(const Line& line, bool flyout)
    {
        const ElementId item = m_model
                                   .AddToolbarButton(CurrentToolbar(line), kAtEnd, Field(line, 0),
                                                     Field(line, 2), MacroOf(Field(line, 1)), flyout)
                                   .id;
        m_model.SetToolbarItemBitmaps(item, Field(line, 3), Field(line, 4));
        if (flyout)
            m_attachments.push_back({line.number, item, Field(line, 5)});
    }

    void Attach(const Attachment& attachment)
    {
        try {
            m_model.AttachFlyout(attachment.item, RequireGroup(m_model, m_group).name, attachment.toolbar);
        } catch (const HostError& error) {
            RefuseLine(attachment.line, error.Description());
        }
    }

    HostModel& m_model;
    const std::wstring& m_fileName;
    MenuGroupType m_type;
    ElementId m_group = 0;
    std::vector<ElementId> m_menus; // the menu begun last and the sub-menus open in it
    ElementId m_toolbar = 0;        // the toolbar begun last, unless a menu was begun after it
    std::vector<Attachment> m_attachments;
};

// The full name of a file whose name has a folder, or empty text.
std::wstring FileInFolder(const std::wstring& fileName)
{
    const DWORD size = GetFullPathNameW(fileName.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(fileName.c_str(), size, full.data(), nullptr);
    full.resize(length < size ? length : 0);
    const DWORD attributes = GetFileAttributesW(full.c_str());
    const bool isFile = attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    return isFile ? full : std::wstring();
}

} // namespace

std::wstring FindMenuFile(const std::wstring& fileName)
{
    if (fileName.find_first_of(L"\\/:") != std::wstring::npos)
        return FileInFolder(fileName);
    const DWORD size = SearchPathW(nullptr, fileName.c_str(), nullptr, 0, nullptr, nullptr);
    if (size == 0)
        return std::wstring();
    std::wstring found(size, L'\0');
    const DWORD length = SearchPathW(nullptr, fileName.c_str(), nullptr, size, found.data(), nullptr);
    found.resize(length < size ? length : 0);
    return found;
}

const MenuGroup& LoadMenuFile(HostModel& model, const std::wstring& fileName, MenuGroupType type)
{
    const std::wstring found = FindMenuFile(fileName);
    if (found.empty())
        throw HostError(Refusal::FileMissing, L"The menu file was not found.");
    const std::vector<Line> lines = SplitLines(ReadText(found));

    // Read once into a model of its own, so that an invalid file changes nothing.
    HostModel trial;
    trial.Policies() = model.Policies();
    GroupReader(trial, found, MenuGroupType::Base).Read(lines);

    GroupReader reader(model, found, type);
    try {
        return RequireGroup(model, reader.Read(lines));
    } catch (const HostError&) {
        // The file is valid, so an observer stood in the way.
        if (model.FindGroup(reader.Group()))
            model.RemoveGroup(reader.Group());
        throw;
    }
}

} // namespace velmhost
