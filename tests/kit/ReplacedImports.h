// Functions of the platform, as VelmUtil22.dll calls them, replaced for a while.
#pragma once

#include "kit/ImportTable.h"

#include <vector>

// Puts a function in the place of one that the library imports, for as long as it lives.
class CReplacedImport
{
public:
    CReplacedImport(const char* library, const char* name, void* function) : m_back{library, name, nullptr}
    {
        m_back.function = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name));
        const testkit::ImportReplacement replacement{library, name, function};
        m_isReplaced = testkit::ReplaceImports(Library(), {&replacement, 1});
    }
    ~CReplacedImport() { testkit::ReplaceImports(Library(), {&m_back, 1}); }
    CReplacedImport(const CReplacedImport&) = delete;
    CReplacedImport& operator=(const CReplacedImport&) = delete;

    // False where the library does not import it by that name, which depends on the toolchain.
    bool IsReplaced() const { return m_isReplaced; }
    template <class Function>
    Function* Original() const
    {
        return reinterpret_cast<Function*>(m_back.function);
    }

private:
    static HMODULE Library() { return GetModuleHandleW(L"VelmUtil22.dll"); }

    testkit::ImportReplacement m_back;
    bool m_isReplaced = false;
};
