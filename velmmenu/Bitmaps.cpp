#include "Bitmaps.h"

#include <afxwin.h>

#include <filesystem>

#include "Failure.h"
#include "hostmenu/Entries.h"
#include "shell/Handles.h"

namespace velmmenu
{

namespace
{

bool IsFolder(const std::wstring& name)
{
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

velmhost::UniqueBitmap Load(const std::wstring& fileName)
{
    return velmhost::UniqueBitmap(static_cast<HBITMAP>(
        ::LoadImageW(nullptr, fileName.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
}

std::wstring Size(int width, int height)
{
    return std::to_wstring(width) + L"x" + std::to_wstring(height);
}

} // namespace

std::optional<std::wstring> FindBitmapFolder(const std::wstring& fileName, const std::wstring& wished)
{
    if (!wished.empty()) {
        if (!IsFolder(wished))
            throw Failure{wished + L": there is no such folder"};
        return wished;
    }
    const std::wstring beside = (std::filesystem::path(fileName).parent_path() / ImageFolder).wstring();
    return IsFolder(beside) ? std::optional(beside) : std::nullopt;
}

std::wstring BitmapProblem(const std::wstring& folder, const std::wstring& name, int side)
{
    const std::wstring path = folder + L"\\" + name;
    if (::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES)
        return L"the bitmap " + name + L" is missing";
    const velmhost::UniqueBitmap bitmap = Load(path);
    BITMAP facts{};
    if (!bitmap || ::GetObjectW(bitmap.get(), sizeof facts, &facts) == 0)
        return L"the bitmap " + name + L" cannot be read as one";
    if (facts.bmWidth != side || facts.bmHeight != side)
        return L"the bitmap " + name + L" has " + Size(facts.bmWidth, facts.bmHeight) + L" pixels, not " +
               Size(side, side);
    return std::wstring();
}

bool IsBitmap(const std::wstring& fileName)
{
    return Load(fileName) != nullptr;
}

bool LeavesFolder(const std::wstring& name)
{
    const std::filesystem::path path(name);
    if (path.has_root_path() || name.find(L':') != std::wstring::npos)
        return true;
    for (const std::filesystem::path& part : path) {
        if (part == L"..")
            return true;
    }
    return false;
}

} // namespace velmmenu
