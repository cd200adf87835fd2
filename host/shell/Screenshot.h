// Pictures of the screen, saved as files.
#pragma once

#include <afxwin.h>

#include <string>

namespace velmhost
{

// Saves what the screen shows in `area` (screen coordinates; cut at the screen's edges). The extension
// of the file's name chooses the format, .png or .bmp; an existing file is replaced. Returns false with
// a reason when the area is off the screen, the extension is another one, or the file cannot be written.
// COM must be initialised on the thread for .png. On a desktop without a screen the picture is put together
// from this process's windows. Rests on BitBlt and the imaging component.
bool SaveScreenArea(const RECT& area, const std::wstring& fileName, std::wstring& reason);

} // namespace velmhost
