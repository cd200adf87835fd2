#include "frame/ResourceText.h"

#include <cstring>

CString NarrowResourceText(HMODULE module, WORD id, const wchar_t* type)
{
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL loaded = resource != nullptr ? LoadResource(module, resource) : nullptr;
    const auto bytes = loaded != nullptr ? static_cast<const char*>(LockResource(loaded)) : nullptr;
    if (bytes == nullptr)
        return CString();

    const int length = static_cast<int>(strnlen(bytes, SizeofResource(module, resource)));
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, bytes, length, nullptr, 0);
    CString text;
    MultiByteToWideChar(CP_ACP, 0, bytes, length, text.GetBuffer(wideLength), wideLength);
    text.ReleaseBuffer(wideLength);
    return text;
}
