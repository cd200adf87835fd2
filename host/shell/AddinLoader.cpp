#include "shell/AddinLoader.h"

#include <afxdisp.h>
#include <comdef.h>

#include <exception>
#include <functional>

#include "model/MenuText.h"

namespace velmhost
{

namespace
{

std::wstring Widen(const char* text)
{
    const int length = ::MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (length <= 1)
        return {};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), length);
    wide.pop_back();
    return wide;
}

// Calls into an add-in. Nothing that it throws may reach the host's message loop.
bool CallGuarded(const std::function<void()>& call, std::wstring& thrown)
{
    try {
        call();
        return true;
    } catch (COleDispatchException* e) {
        thrown = e->m_strDescription;
        e->Delete();
    } catch (CException* e) {
        wchar_t text[512] = L"";
        e->GetErrorMessage(text, 512);
        thrown = text;
        e->Delete();
    } catch (const _com_error& e) {
        thrown = e.ErrorMessage();
    } catch (const std::exception& e) {
        thrown = Widen(e.what());
    } catch (...) {
        thrown = L"an exception of unknown kind";
    }
    return false;
}

// While it lives, the loader looks for libraries in the folder of a file, too.
class LibraryFolder
{
public:
    explicit LibraryFolder(const std::wstring& fileName)
    {
        const std::size_t end = fileName.find_last_of(L"\\/");
        if (end != std::wstring::npos)
            ::SetDllDirectoryW(fileName.substr(0, end).c_str());
    }
    ~LibraryFolder() { ::SetDllDirectoryW(nullptr); }
    LibraryFolder(const LibraryFolder&) = delete;
    LibraryFolder& operator=(const LibraryFolder&) = delete;
};

// The full name of an existing file; any other name as it is, to be searched for.
std::wstring ResolveFile(const std::wstring& name)
{
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY))
        return name;
    const DWORD size = ::GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(::GetFullPathNameW(name.c_str(), size, full.data(), nullptr));
    return full;
}

std::wstring ModuleFileName(HINSTANCE module)
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

template <class Function>
Function* FindExport(HINSTANCE module, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

} // namespace

CAddinLoader::~CAddinLoader()
{
    UnloadAll();
}

std::vector<std::wstring> CAddinLoader::FileNames() const
{
    std::vector<std::wstring> names;
    for (const Addin& addin : m_addins)
        names.push_back(addin.fileName);
    return names;
}

bool CAddinLoader::Load(const std::wstring& fileName, std::wstring& reason)
{
    const std::wstring resolved = ResolveFile(fileName);
    HINSTANCE module = nullptr;
    {
        LibraryFolder folder(resolved);
        module = AfxLoadLibrary(resolved.c_str());
    }
    if (!module) {
        reason = SystemErrorText(::GetLastError());
        return false;
    }
    for (const Addin& addin : m_addins) {
        if (addin.module == module) {
            AfxFreeLibrary(module);
            reason = L"It is loaded already.";
            return false;
        }
    }

    // In the list before it is started: AddInStart may ask for the loaded add-ins, or load others.
    m_addins.push_back({ModuleFileName(module), module});
    int result = 0;
    std::wstring thrown;
    bool called = true;
    if (auto start = FindExport<int()>(module, "AddInStart"))
        called = CallGuarded([&] { result = start(); }, thrown);
    if (called && result == 0)
        return true;

    reason =
        called ? L"AddInStart returned " + std::to_wstring(result) + L"." : L"AddInStart failed: " + thrown;
    std::erase_if(m_addins, [&](const Addin& addin) { return addin.module == module; });
    AfxFreeLibrary(module);
    return false;
}

bool CAddinLoader::Command(const std::wstring& word, std::wstring& reason)
{
    // A copy: a command may load another add-in.
    const std::vector<Addin> addins = m_addins;
    for (const Addin& addin : addins) {
        const auto command = FindExport<int(const wchar_t*)>(addin.module, "AddInCommand");
        int result = 0;
        std::wstring thrown;
        if (command && !CallGuarded([&] { result = command(word.c_str()); }, thrown))
            reason += (reason.empty() ? L"" : L"\n") + FilePart(addin.fileName) + L": AddInCommand failed: " +
                      thrown;
        if (result != 0)
            return true;
    }
    return false;
}

bool CAddinLoader::Unload(const std::wstring& fileName, std::wstring& reason)
{
    const std::wstring resolved = ResolveFile(fileName);
    for (std::size_t i = 0; i < m_addins.size(); ++i) {
        if (SameName(m_addins[i].fileName, resolved) || SameName(FilePart(m_addins[i].fileName), fileName))
            return StopAndFree(i, reason);
    }
    reason = L"It is not loaded.";
    return false;
}

std::vector<std::wstring> CAddinLoader::UnloadAll()
{
    std::vector<std::wstring> failures;
    while (!m_addins.empty()) {
        std::wstring reason;
        if (!StopAndFree(m_addins.size() - 1, reason))
            failures.push_back(reason);
    }
    m_addins.shrink_to_fit();
    return failures;
}

bool CAddinLoader::StopAndFree(std::size_t index, std::wstring& reason)
{
    const Addin addin = m_addins[index];
    m_addins.erase(m_addins.begin() + static_cast<std::ptrdiff_t>(index));
    std::wstring thrown;
    bool called = true;
    if (auto stop = FindExport<void()>(addin.module, "AddInStop"))
        called = CallGuarded([&] { stop(); }, thrown);
    if (!called)
        reason = FilePart(addin.fileName) + L": AddInStop failed: " + thrown;
    AfxFreeLibrary(addin.module);
    return called;
}

std::wstring FilePart(const std::wstring& name)
{
    return name.substr(name.find_last_of(L"\\/") + 1);
}

std::wstring SystemErrorText(DWORD error)
{
    wchar_t* buffer = nullptr;
    const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                              FORMAT_MESSAGE_IGNORE_INSERTS,
                                          nullptr, error, 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    std::wstring text(buffer ? buffer : L"", length);
    ::LocalFree(buffer);
    while (!text.empty() && text.back() <= L' ')
        text.pop_back();
    return text.empty() ? L"error " + std::to_wstring(error) : text;
}

} // namespace velmhost
