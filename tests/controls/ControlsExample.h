// What a tree knows of a sheet, and shows as its tip.
class CSheet : public ItemDataABSTRACT
{
public:
    explicit CSheet(const CString& file) : m_file(file) {}
    CString GetTipText() const override { return m_file; }

private:
    CString m_file;
};

// A progress dialog that Escape cancels.
class CPlotProgress : public CDlgProgressBar
{
public:
    bool IsCancelled() const { return m_isCancelled; }

protected:
    void OnOK() override {}                            // Enter would hide the dialog,
    void OnCancel() override { m_isCancelled = true; } // and so would Escape

private:
    bool m_isCancelled = false;
};

// A dialog with a tree of sheets and a list box of messages; its template has one of each.
class CSheetsDialog : public CDialog
{
public:
    CSheetsDialog(UINT idTemplate, CWnd* pParent) : CDialog(idTemplate, pParent) {}

    CXTreeCtrl m_sheets; // style TVS_NOTOOLTIPS
    CXListBox m_messages;

    HTREEITEM AddSheet(HTREEITEM set, const CString& name, const CString& file)
    {
        const HTREEITEM item = m_sheets.InsertItem(name, set);
        ItemDataABSTRACT* const data = new CSheet(file); // the tree owns it from here on
        m_sheets.SetItemData(item, reinterpret_cast<DWORD_PTR>(data));
        return item;
    }

    // Removes an item with all that is below it.
    void Remove(HTREEITEM item)
    {
        m_sheets.SelectItem(m_sheets.GetParentItem(item)); // nobody looks at data below
        m_sheets.DeleteBranchData(item);
        delete reinterpret_cast<ItemDataABSTRACT*>(m_sheets.GetItemData(item));
        m_sheets.SetItemData(item, 0); // the selection may still look at it while it goes
        m_sheets.DeleteItem(item);
    }

    // Plots the sheets of a set; Escape ends it. Returns how many were plotted.
    int PlotAll(HTREEITEM set)
    {
        short count = 0;
        for (HTREEITEM sheet = m_sheets.GetChildItem(set); sheet; sheet = m_sheets.GetNextSiblingItem(sheet))
            ++count;
        CPlotProgress progress;
        if (!progress.CreateNonModal(this))
            return 0;
        progress.Set(0, count, 1);
        progress.ShowWindow(SW_SHOW);
        EnableWindow(FALSE); // nobody changes the tree meanwhile
        int plotted = 0;
        for (HTREEITEM sheet = m_sheets.GetChildItem(set); sheet; sheet = m_sheets.GetNextSiblingItem(sheet))
        {
            CString status = L"Plotting " + m_sheets.GetItemText(sheet);
            progress.SetStatusInfo(status.GetBuffer());
            status.ReleaseBuffer();
            HandleMessages(); // draws the dialog and hears the keys
            if (progress.IsCancelled())
                break;
            Plot(sheet);
            ++plotted;
            progress.MoveNextStep();
        }
        EnableWindow(TRUE); // before the dialog goes: it hands the activation back
        progress.DestroyWindow();
        return plotted;
    }

protected:
    // The work itself.
    virtual void Plot(HTREEITEM sheet) { m_messages.AddString(m_sheets.GetItemText(sheet) + L": plotted"); }

    static void HandleMessages()
    {
        MSG message;
        while (::PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!AfxPumpMessage()) {
                ::PostQuitMessage(0); // for the loop that we are in
                return;
            }
        }
    }

    void DoDataExchange(CDataExchange* pDX) override
    {
        CDialog::DoDataExchange(pDX);
        DDX_Control(pDX, 101, m_sheets);
        DDX_Control(pDX, 102, m_messages);
    }

    // The tree deletes its data with its window, but only from the first visible item on.
    void OnDestroy()
    {
        m_sheets.SelectSetFirstVisible(m_sheets.GetRootItem());
        CDialog::OnDestroy();
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CSheetsDialog, CDialog)
ON_WM_DESTROY()
END_MESSAGE_MAP()
