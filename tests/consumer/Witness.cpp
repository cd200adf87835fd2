// An add-in that is loaded behind the other one, and so stopped before it: it writes what the dialog of that
// one shows then into witness.txt, a line for each cell.
#include "VelmUtil22.h"
#include <afxdllx.h>

#include <cstdio>

#include "resource.h"

static AFX_EXTENSION_MODULE module = {};

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH && AfxInitExtensionModule(module, instance))
        new CDynLinkLibrary(module);
    if (reason == DLL_PROCESS_DETACH)
        AfxTermExtensionModule(module);
    return 1;
}

extern "C" __declspec(dllexport) void AddInStop()
{
    CWnd* const dialog = CWnd::FindWindow(L"#32770", L"Parts");
    auto* const list = dialog ? dynamic_cast<CXListCtrl*>(dialog->GetDlgItem(IDC_PARTS)) : nullptr;
    FILE* const file = _wfopen(L"witness.txt", L"wb");
    if (file == nullptr)
        return;
    for (int row = 0; list != nullptr && dialog->IsWindowVisible() && row < list->GetItemCount(); ++row) {
        const auto* const cells = reinterpret_cast<const XLISTCTRLDATA*>(list->CListCtrl::GetItemData(row));
        for (int column = 0; column < list->GetColumns(); ++column)
            std::fprintf(file, "%ls %06lx on %06lx\n", list->CListCtrl::GetItemText(row, column).GetString(),
                         cells[column].crText, cells[column].crBackground);
    }
    std::fclose(file);
}
