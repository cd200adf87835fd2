// The folder of the buttons' bitmaps.
#pragma once

#include <optional>
#include <string>

namespace velmmenu
{

// The folder for the description `fileName`: `wished` when it is not empty, else the folder Bmps beside the
// file if there is one. Throws Failure when the folder wished for does not exist.
std::optional<std::wstring> FindBitmapFolder(const std::wstring& fileName, const std::wstring& wished);

// What is wrong with the bitmap `name` in `folder`, which is to have `side` by `side` pixels; empty when
// nothing is. Rests on LoadImage.
std::wstring BitmapProblem(const std::wstring& folder, const std::wstring& name, int side);

// Whether the file can be read as a bitmap. Rests on LoadImage.
bool IsBitmap(const std::wstring& fileName);

// Whether a file name leads out of the folder that it is put behind.
bool LeavesFolder(const std::wstring& name);

} // namespace velmmenu
