// How the library asks for COM objects.
#pragma once

#include "kit/ReplacedImports.h"

#include <string>
#include <vector>

// Notes, as long as it lives, what the library creates and in which contexts. One at a time.
class CCreationCalls
{
public:
    CCreationCalls() { s_current = this; }
    ~CCreationCalls() { s_current = nullptr; }
    CCreationCalls(const CCreationCalls&) = delete;
    CCreationCalls& operator=(const CCreationCalls&) = delete;

    // False where the library asks in another way, which depends on the toolchain.
    bool AreNoted() const { return m_fromProgId.IsReplaced() && m_create.IsReplaced(); }

    std::vector<std::wstring> m_names;
    std::vector<DWORD> m_contexts;

private:
    static HRESULT WINAPI NoteName(LPCOLESTR name, LPCLSID id)
    {
        s_current->m_names.emplace_back(name);
        return CLSIDFromProgID(name, id);
    }
    static HRESULT WINAPI NoteContext(REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object)
    {
        s_current->m_contexts.push_back(context);
        return CoCreateInstance(id, outer, context, iid, object);
    }

    inline static CCreationCalls* s_current = nullptr;

    const CReplacedImport m_fromProgId{"ole32.dll", "CLSIDFromProgID", reinterpret_cast<void*>(&NoteName)};
    const CReplacedImport m_create{"ole32.dll", "CoCreateInstance", reinterpret_cast<void*>(&NoteContext)};
};
