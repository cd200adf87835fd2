#include "Options.h"

#include <cwchar>

const wchar_t* const GalleryUsage =
    L"Usage: gallery [--page NAME] [--screenshot FILE]\n"
    L"       gallery --frames FOLDER COUNT\n"
    L"\n"
    L"  --page NAME            list (default), cells, tree, list-box, progress, credits, xml or helpers;\n"
    L"                         with --screenshot also drop-down\n"
    L"  --screenshot FILE      saves a picture of the page (.png or .bmp) and ends\n"
    L"  --frames FOLDER COUNT  saves a run of pictures of the credits and ends\n";

bool ReadOptions(const std::vector<std::wstring>& arguments, GalleryOptions& options)
{
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& name = arguments[i];
        const std::size_t values = arguments.size() - i - 1;
        if (name == L"--page" && values >= 1) {
            options.page = arguments[++i];
        } else if (name == L"--screenshot" && values >= 1) {
            options.pictureFile = arguments[++i];
        } else if (name == L"--frames" && values >= 2) {
            options.page = L"credits";
            options.framesFolder = arguments[++i];
            wchar_t* end = nullptr;
            options.frameCount = static_cast<int>(std::wcstol(arguments[++i].c_str(), &end, 10));
            if (*end != 0 || options.frameCount < 1)
                return false;
        } else {
            return false;
        }
    }
    return options.pictureFile.empty() || options.framesFolder.empty();
}
