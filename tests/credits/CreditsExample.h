// A dialog that shows the credits of an add-in in its whole client area.
class CCreditsDialog : public CDialog
{
public:
    CMatrixCredits m_credits;

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        m_credits.AddTextLine(L"Survey tools 4.2");
        m_credits.AddTextLine(L"drawn in Ghent");
        m_credits.AddTextLine(L"\x0001 3"); // ends a page, which stays for three seconds
        m_credits.AddTextLine(L"Thank you, Ines");
        m_credits.AddTextLine(L"\x0001 2");
        m_credits.SetCursor(TRUE, FALSE);    // a changing character, not a block
        m_credits.AllowEuropeanChars(FALSE); // nothing above 127
        m_credits.SetMaxPhaseCount(10);      // characters settle twice as fast
        CRect place;
        GetClientRect(&place);
        m_credits.Create(WS_CHILD | WS_VISIBLE, place, this, 100);
        return TRUE;
    }
};
