// Loads add-ins into the host and takes them out again.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

namespace velmhost
{

// The add-ins that are loaded. An add-in is a DLL of any extension. If it exports
//     extern "C" int AddInStart()    it is called once loaded; a result other than 0 refuses the host
//     extern "C" int AddInCommand(const wchar_t* word)
//                                    it is called for each command, with its word in capitals; a result
//                                    other than 0 says that the command is the add-in's own
//     extern "C" void AddInStop()    it is called before the add-in is freed
// All are called on the thread that calls Load, Command and Unload. What they throw is caught; a C++
// exception's text becomes part of the reason.
class CAddinLoader
{
    // Construction
public:
    CAddinLoader() = default;
    ~CAddinLoader();
    CAddinLoader(const CAddinLoader&) = delete;
    CAddinLoader& operator=(const CAddinLoader&) = delete;

    // Attributes
public:
    // Full file names of the loaded add-ins in order of loading.
    std::vector<std::wstring> FileNames() const;

    // Operations
public:
    // Loads an add-in and starts it. A name that names a file is taken from there, and the libraries
    // that it needs are looked for beside it; another name is searched for as the platform does. Returns
    // false with a reason when it is loaded already, cannot be loaded, or does not start; it is then not
    // in the process. Rests on AfxLoadLibrary.
    bool Load(const std::wstring& fileName, std::wstring& reason);
    // Offers a command to the add-ins in order of loading, until one takes it. Returns whether one did. One
    // that throws has not taken it, and what it threw becomes part of the reason, a line each.
    bool Command(const std::wstring& word, std::wstring& reason);
    // Stops and frees one add-in, named as for Load or by its file name alone. Returns false with a
    // reason when it is not loaded, or when AddInStop threw; in the latter case it is freed all the same.
    bool Unload(const std::wstring& fileName, std::wstring& reason);
    // Stops and frees all, the last loaded first. Returns what AddInStop of any of them threw, one
    // text each.
    std::vector<std::wstring> UnloadAll();

    // Implementation
private:
    struct Addin
    {
        std::wstring fileName;
        HINSTANCE module;
    };
    bool StopAndFree(std::size_t index, std::wstring& reason);

    std::vector<Addin> m_addins;
};

// A file's name without its folder.
std::wstring FilePart(const std::wstring& name);

// The platform's sentence for an error code, without a line end; the number where it has none.
std::wstring SystemErrorText(DWORD error);

} // namespace velmhost
