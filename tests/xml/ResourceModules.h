// Modules with resources, loaded for a test.
#pragma once

#include "XmlTest.h"

#include <exception>
#include <thread>

// Where the modules with resources lie.
inline std::filesystem::path ModulesFolder()
{
    return testkit::ProgramFolder() / L"xml_modules";
}

// A module that is loaded as long as the object lives.
class CLoadedModule
{
public:
    explicit CLoadedModule(const std::filesystem::path& path) : m_module(LoadLibraryW(path.c_str())) {}
    ~CLoadedModule()
    {
        if (m_module != nullptr)
            FreeLibrary(m_module);
    }
    CLoadedModule(const CLoadedModule&) = delete;
    CLoadedModule& operator=(const CLoadedModule&) = delete;

    HMODULE Module() const { return m_module; }

private:
    HMODULE m_module;
};

// Bytes as the text that they are in the process's ANSI code page.
inline std::wstring AnsiText(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0'); // no code page makes more characters than there are bytes
    text.resize(static_cast<size_t>(
        MultiByteToWideChar(GetACP(), 0, bytes.data(), size, text.data(), static_cast<int>(text.size()))));
    return text;
}

// The byte behind the end of a resource of a module.
inline char ByteBehind(HMODULE module, WORD id, const wchar_t* type)
{
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL loaded = resource != nullptr ? LoadResource(module, resource) : nullptr;
    if (loaded == nullptr)
        return '\0';
    return static_cast<const char*>(LockResource(loaded))[SizeofResource(module, resource)];
}

// Calls `operation` on a thread of its own, which has no COM; what it throws is thrown here.
template <class Operation>
void OnFreshThread(Operation operation)
{
    std::exception_ptr failure;
    std::thread thread([&] {
        try {
            operation();
        } catch (...) {
            failure = std::current_exception();
        }
    });
    thread.join();
    if (failure)
        std::rethrow_exception(failure);
}
