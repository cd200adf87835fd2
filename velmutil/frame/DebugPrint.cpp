#include "frame/DebugPrint.h"

#include <cwchar>
#include <memory>

namespace
{

struct FileCloser
{
    void operator()(FILE* file) const { std::fclose(file); }
};

} // namespace

void DebugPrint(const wchar_t* text, FILE* stream, const wchar_t* path)
{
    if (stream != nullptr || path == nullptr)
        return;
    const std::unique_ptr<FILE, FileCloser> file(_wfopen(path, L"a"));
    // Not fwprintf: toolchains disagree on whether "%s" is wide there.
    if (file)
        std::fputws(text != nullptr ? text : L"(null)", file.get());
}
