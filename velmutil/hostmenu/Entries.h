// What becomes of the entries of a description, apart from the walks that build them: the one place
// where this is decided, for the builder and for tools that tell authors about it.
#pragma once

#include <optional>

#include "hostmenu/EntryAttributes.h"

// Where a document has its holders and its top-level entries.
inline constexpr wchar_t MenuHolderPath[] = L"//Menus";
inline constexpr wchar_t MenuEntriesPath[] = L"//Menus/Menu";
inline constexpr wchar_t ToolBarHolderPath[] = L"//Toolbars";
inline constexpr wchar_t ToolBarEntriesPath[] = L"//Toolbars/Toolbar";

enum class MenuEntryKind
{
    Item,   // its child nodes are ignored
    Cascade // its child nodes are entries; its help text is not handed on
};

// An entry of the menu, as it was read. The command ends with its blank.
struct MenuEntry
{
    std::optional<CString> name;
    std::optional<CString> command;
    std::optional<CString> help;

    MenuEntryKind Kind() const { return !command && help ? MenuEntryKind::Cascade : MenuEntryKind::Item; }
};

// None for a node without attributes, such as a comment, which adds nothing. Throws _com_error when the
// document model fails.
inline std::optional<MenuEntry> ReadMenuEntry(IXMLDOMNode* node)
{
    const CEntryAttributes attributes(node);
    if (!attributes.Exist())
        return std::nullopt;
    return MenuEntry{attributes.Value(NameAttribute), attributes.Command(), attributes.Value(HelpAttribute)};
}

enum class ToolBarEntryKind
{
    Separator,     // adds nothing; its child nodes are ignored
    WithoutImages, // the same
    Button
};

// An entry of the toolbar, as it was read. The command ends with its blank.
struct ToolBarEntry
{
    CString name;
    std::optional<CString> command;
    std::optional<CString> toolTip;
    CString imageList; // with the white space around it

    ToolBarEntryKind Kind() const
    {
        if (name.CompareNoCase(L"Separator") == 0)
            return ToolBarEntryKind::Separator;
        // A blank ImageList is built all the same: it is trimmed only after this.
        return imageList.IsEmpty() ? ToolBarEntryKind::WithoutImages : ToolBarEntryKind::Button;
    }

    // The first part of the names of its two bitmap files.
    CString ImageName() const
    {
        CString trimmed = imageList;
        trimmed.Trim();
        return trimmed;
    }
};

// As ReadMenuEntry.
inline std::optional<ToolBarEntry> ReadToolBarEntry(IXMLDOMNode* node)
{
    const CEntryAttributes attributes(node);
    if (!attributes.Exist())
        return std::nullopt;
    // Braces keep the order of reading.
    return ToolBarEntry{attributes.Value(NameAttribute).value_or(CString()), attributes.Command(),
                        attributes.Value(ToolTipAttribute),
                        attributes.Value(ImageListAttribute).value_or(CString())};
}

// Whether a button with that many child nodes, of any kind, is a fly-out.
inline bool OpensFlyout(long childNodes)
{
    return childNodes != 0;
}

inline constexpr wchar_t SmallImageSize[] = L"16";
inline constexpr wchar_t LargeImageSize[] = L"24";
inline constexpr wchar_t ImageFolder[] = L"Bmps";

// The name of a bitmap file within the folder of bitmaps.
inline CString ImageFileName(const CString& imageName, const wchar_t* size)
{
    return imageName + size + L".bmp";
}
