// What the command line asks of the gallery.
#pragma once

#include <string>
#include <vector>

struct GalleryOptions
{
    std::wstring page = L"list";
    std::wstring pictureFile;  // save the page's picture there and end
    std::wstring framesFolder; // save frames of the credits there and end
    int frameCount = 0;

    bool IsPictureWanted() const { return !pictureFile.empty() || !framesFolder.empty(); }
};

// Reads what stands behind the program's name; false when it is not to be understood. Whether there is a page
// of that name is not looked at.
bool ReadOptions(const std::vector<std::wstring>& arguments, GalleryOptions& options);

extern const wchar_t* const GalleryUsage;
