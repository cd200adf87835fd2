#include "DocumentReferences.h"

#include <afxwin.h>

#include <objbase.h>

#include <vector>

#include "kit/BlockTable.h"
#include "kit/ReplacedImports.h"

namespace lifecycle
{
namespace
{

// Its own memory is not to be counted.
std::vector<IUnknown*, testkit::BlockTableAllocator<IUnknown*>>& Documents()
{
    static std::vector<IUnknown*, testkit::BlockTableAllocator<IUnknown*>> documents;
    return documents;
}

HRESULT WINAPI CreateAndKeep(REFCLSID id, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object)
{
    const HRESULT result = ::CoCreateInstance(id, outer, context, iid, object);
    if (SUCCEEDED(result)) {
        Documents().push_back(static_cast<IUnknown*>(*object));
        Documents().back()->AddRef();
    }
    return result;
}

} // namespace

bool StartCountingDocumentReferences()
{
    static const CReplacedImport replaced("ole32.dll", "CoCreateInstance",
                                          reinterpret_cast<void*>(&CreateAndKeep));
    return replaced.IsReplaced();
}

long long CountDocumentReferences()
{
    long long count = 0;
    std::erase_if(Documents(), [&](IUnknown* document) {
        const ULONG others = document->Release();
        if (others != 0)
            document->AddRef();
        count += others;
        return others == 0;
    });
    return count;
}

} // namespace lifecycle
