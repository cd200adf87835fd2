// A dialog with a coloured list. With /check on the command line it writes what the list then holds into
// the file named behind it and ends by itself.
#include "VelmUtil22.h"

#include <cstdio>

#include "resource.h"

namespace
{

class PartsDialog : public CDialog
{
public:
    explicit PartsDialog(const CString& report) : CDialog(IDD_PARTS), m_report(report) {}

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        m_list.SubclassDlgItem(IDC_PARTS, this);
        m_list.InsertColumn(0, L"Part", LVCFMT_LEFT, 120);
        m_list.InsertColumn(1, L"State", LVCFMT_LEFT, 120);
        m_list.InsertItem(0, L"Bolt", RGB(0, 0, 160), RGB(230, 240, 255));
        m_list.SetItemText(0, 1, L"ready", RGB(0, 110, 0), RGB(230, 255, 230));
        m_list.SetCheckbox(0, 0, 1);
        m_list.SetProgress(0, 1, TRUE, L"%d %% done");
        m_list.UpdateProgress(0, 1, 57);
        if (!m_report.IsEmpty())
            PostMessage(WM_COMMAND, IDOK);
        return TRUE;
    }

    void OnOK() override
    {
        if (!m_report.IsEmpty())
            Report();
        CDialog::OnOK();
    }

private:
    void Report()
    {
        FILE* const file = _wfopen(m_report, L"wb");
        if (file == nullptr)
            return;
        std::fprintf(file, "%d x %d: %ls, %ls, %d\n", m_list.GetItemCount(), m_list.GetColumns(),
                     m_list.CListCtrl::GetItemText(0, 0).GetString(),
                     m_list.CListCtrl::GetItemText(0, 1).GetString(), m_list.GetCheckbox(0, 0));
        std::fclose(file);
    }

    CString m_report;
    CXListCtrl m_list;
};

class PartsApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        CWinApp::InitInstance();
        const CString arguments(m_lpCmdLine);
        PartsDialog dialog(arguments.Left(7) == L"/check " ? arguments.Mid(7) : CString());
        m_pMainWnd = &dialog;
        dialog.DoModal();
        return FALSE;
    }
};

PartsApp app;

} // namespace
