#include "VelmUtil22.h" // the one header
#include <afxdllx.h>

#include <memory>

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

class CPartsDialog : public CDialog
{
public:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        m_list.SubclassDlgItem(IDC_PARTS, this); // a list view of the template becomes ours
        m_list.InsertColumn(0, L"Part", LVCFMT_LEFT, 140);
        m_list.InsertColumn(1, L"State", LVCFMT_LEFT, 140);
        m_list.InsertItem(0, L"Bolt", RGB(0, 0, 160), RGB(230, 240, 255)); // text, background
        m_list.SetItemText(0, 1, L"ready", RGB(0, 110, 0), RGB(230, 255, 230));
        m_list.SetCheckbox(0, 0, 1);
        m_list.InsertItem(1, L"Nut", RGB(0, 0, 160), RGB(230, 240, 255));
        m_list.SetItemText(1, 1, L"missing", RGB(160, 0, 0), RGB(255, 235, 235));
        m_list.SetCheckbox(1, 0, 0);
        return TRUE;
    }

private:
    CXListCtrl m_list;
};

static std::unique_ptr<CPartsDialog> parts;

static void ShowParts()
{
    if (!parts) {
        parts = std::make_unique<CPartsDialog>();
        parts->Create(IDD_PARTS, AfxGetMainWnd());
    }
    parts->ShowWindow(SW_SHOW);
}

extern "C" __declspec(dllexport) int AddInCommand(const wchar_t* word) // what a menu item or a button sends
{
    if (wcscmp(word, L"PARTS") != 0)
        return 0;
    ShowParts();
    return 1;
}

extern "C" __declspec(dllexport) int AddInStart() // called by the host's user-interface thread
{
    wchar_t name[] = L"MyAddin.arx"; // its bitmaps: Bmps\line16.bmp, Bmps\line24.bmp beside it
    Append_MenuToolBar(IDR_MENUS, L"XML", name);
    return 0;
}

extern "C" __declspec(dllexport) void AddInStop() // before the host frees the add-in
{
    parts.reset();
}
