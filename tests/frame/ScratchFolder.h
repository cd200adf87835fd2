// A folder for one test's files, in the system's folder for such; removed with all that is in it.
#pragma once

#include "kit/Platform.h"

#include <filesystem>
#include <string>

class CScratchFolder
{
public:
    CScratchFolder()
    {
        static int number = 0;
        m_path = std::filesystem::temp_directory_path()
                 / (L"velm-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++number));
        std::filesystem::create_directories(m_path);
    }
    ~CScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    CScratchFolder(const CScratchFolder&) = delete;
    CScratchFolder& operator=(const CScratchFolder&) = delete;

    // The full name of a file in it.
    std::wstring File(const std::wstring& name) const { return m_path.wstring() + L"\\" + name; }

    // The folder with its trailing backslash.
    std::wstring Folder() const { return m_path.wstring() + L"\\"; }

private:
    std::filesystem::path m_path;
};
