// A list of parts in a dialog, each with a check box, a drop-down and a progress bar.
class CPartsDialog : public CDialog
{
public:
    CPartsDialog() : CDialog() {}

    CXListCtrl m_list;
    CStringArray m_materials; // must outlive the cells that show it
    CString m_told;

    void FillList()
    {
        m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
        m_list.InsertColumn(0, L"Part", LVCFMT_LEFT, 120);
        m_list.InsertColumn(1, L"Material", LVCFMT_LEFT, 90);
        m_list.InsertColumn(2, L"Drawn", LVCFMT_LEFT, 100);
        m_materials.Add(L"Oak");
        m_materials.Add(L"Steel");
        for (const wchar_t* part : {L"Door", L"Frame", L"Hinge"}) {
            const int row = m_list.InsertItem(m_list.GetItemCount(), part);
            m_list.SetCheckbox(row, 0, 0);
            m_list.SetComboBox(row, 1, TRUE, &m_materials, 5, 0);
            m_list.SetProgress(row, 2, TRUE, L"%d of 100");
            m_list.UpdateProgress(row, 2, 40);
        }
        m_list.SetItemText(2, 0, nullptr, RGB(160, 0, 0), RGB(255, 235, 235));
        m_list.EnableToolTips(TRUE);
        m_list.SetItemToolTipText(2, 0, L"Not in stock");
    }

protected:
    LRESULT OnChecked(WPARAM row, LPARAM column)
    {
        const bool isChecked = m_list.GetCheckbox(static_cast<int>(row), static_cast<int>(column)) == 1;
        m_told = m_list.GetComboText(static_cast<int>(row), 0) + (isChecked ? L" is checked" : L" is open");
        return 0;
    }

    LRESULT OnChosen(WPARAM row, LPARAM column)
    {
        m_told = m_list.GetComboText(static_cast<int>(row), static_cast<int>(column)) + L" was chosen";
        return 0;
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPartsDialog, CDialog)
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_CHECKBOX_CLICKED, &CPartsDialog::OnChecked)
ON_REGISTERED_MESSAGE(WM_XLISTCTRL_COMBO_SELECTION, &CPartsDialog::OnChosen)
END_MESSAGE_MAP()
