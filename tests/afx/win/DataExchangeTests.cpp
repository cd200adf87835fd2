// Values between controls and members.
#include "TestWindow.h"
#include "resource.h"

#include "kit/MessageBoxWatch.h"

#include <functional>

namespace
{
class CExchangeDialog : public CDialog
{
public:
    std::function<void(CDataExchange*)> m_exchange;

    virtual ~CExchangeDialog() { DestroyWindow(); }
    CString Text(int nID)
    {
        CString text;
        GetDlgItemText(nID, text);
        return text;
    }

protected:
    virtual void DoDataExchange(CDataExchange* pDX)
    {
        CDialog::DoDataExchange(pDX);
        if (m_exchange)
            m_exchange(pDX);
    }
    virtual BOOL OnInitDialog()
    {
        for (const LPCTSTR text : {_T("apple"), _T("apple pie"), _T("cherry")}) {
            SendDlgItemMessage(IDC_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
            SendDlgItemMessage(IDC_COMBO, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
        }
        return CDialog::OnInitDialog();
    }
};

class DataExchange : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(dialog.Create(IDD_EXCHANGE)); }

    template <class Value>
    BOOL Save(int nID, void(AFXAPI* exchange)(CDataExchange*, int, Value&), Value& value)
    {
        dialog.m_exchange = [&](CDataExchange* pDX) { exchange(pDX, nID, value); };
        return dialog.UpdateData(TRUE);
    }
    template <class Value>
    BOOL Load(int nID, void(AFXAPI* exchange)(CDataExchange*, int, Value&), Value value)
    {
        dialog.m_exchange = [&](CDataExchange* pDX) { exchange(pDX, nID, value); };
        return dialog.UpdateData(FALSE);
    }

    CExchangeDialog dialog;
    testkit::MessageBoxWatch boxes;
};
} // namespace

TEST_F(DataExchange, TextGoesBothWays)
{
    EXPECT_TRUE(Load(IDC_NAME, &DDX_Text, CString(_T("given"))));
    EXPECT_EQ(CString(_T("given")), dialog.Text(IDC_NAME));
    dialog.SetDlgItemText(IDC_NAME, _T("typed"));
    CString value;
    EXPECT_TRUE(Save(IDC_NAME, &DDX_Text, value));
    EXPECT_EQ(CString(_T("typed")), value);
}

TEST_F(DataExchange, WholeNumbersGoBothWays)
{
    EXPECT_TRUE(Load(IDC_NUMBER, &DDX_Text, -42));
    EXPECT_EQ(CString(_T("-42")), dialog.Text(IDC_NUMBER));
    dialog.SetDlgItemText(IDC_NUMBER, _T(" 2147483647 "));
    int value = 0;
    EXPECT_TRUE(Save(IDC_NUMBER, &DDX_Text, value));
    EXPECT_EQ(2147483647, value);

    EXPECT_TRUE(Load(IDC_NUMBER, &DDX_Text, DWORD(4294967295u)));
    EXPECT_EQ(CString(_T("4294967295")), dialog.Text(IDC_NUMBER));
    UINT unsignedValue = 0;
    EXPECT_TRUE(Save(IDC_NUMBER, &DDX_Text, unsignedValue));
    EXPECT_EQ(4294967295u, unsignedValue);
}

TEST_F(DataExchange, RealNumbersGoBothWays)
{
    EXPECT_TRUE(Load(IDC_NUMBER, &DDX_Text, 0.1));
    EXPECT_EQ(CString(_T("0.1")), dialog.Text(IDC_NUMBER));
    EXPECT_TRUE(Load(IDC_NUMBER, &DDX_Text, 0.1f));
    EXPECT_EQ(CString(_T("0.1")), dialog.Text(IDC_NUMBER));
    dialog.SetDlgItemText(IDC_NUMBER, _T("-1.5e3"));
    double value = 0;
    EXPECT_TRUE(Save(IDC_NUMBER, &DDX_Text, value));
    EXPECT_EQ(-1500.0, value);
}

TEST_F(DataExchange, WhatIsNoNumberIsRefused)
{
    for (const LPCTSTR text : {_T(""), _T("x"), _T("12x"), _T("2147483648"), _T("-2147483649"), _T("1.5")}) {
        dialog.SetDlgItemText(IDC_NUMBER, text);
        int value = 7;
        EXPECT_FALSE(Save(IDC_NUMBER, &DDX_Text, value)) << CStringA(text).GetString();
        EXPECT_EQ(7, value);
    }
    EXPECT_EQ(6u, boxes.Boxes().size()) << "the user is told each time";
    EXPECT_TRUE(boxes.Boxes().empty() || !boxes.Boxes()[0].text.empty());
}

TEST_F(DataExchange, NegativeNumbersAreRefusedForUnsignedMembers)
{
    dialog.SetDlgItemText(IDC_NUMBER, _T("-1"));
    UINT value = 7;
    EXPECT_FALSE(Save(IDC_NUMBER, &DDX_Text, value));
    EXPECT_EQ(7u, value);
    BYTE small = 7;
    dialog.SetDlgItemText(IDC_NUMBER, _T("256"));
    EXPECT_FALSE(Save(IDC_NUMBER, &DDX_Text, small));
    EXPECT_EQ(7, small);
}

TEST_F(DataExchange, RefusedControlGetsTheFocusAndIsSelected)
{
    dialog.ShowWindow(SW_SHOW);
    dialog.GetDlgItem(IDC_NAME)->SetFocus();
    dialog.SetDlgItemText(IDC_NUMBER, _T("abc"));
    int value = 0;
    EXPECT_FALSE(Save(IDC_NUMBER, &DDX_Text, value));
    EXPECT_EQ(::GetDlgItem(dialog, IDC_NUMBER), ::GetFocus());
    EXPECT_EQ(LRESULT(MAKELONG(0, 3)), dialog.SendDlgItemMessage(IDC_NUMBER, EM_GETSEL));
}

TEST_F(DataExchange, CheckBoxGoesBothWays)
{
    EXPECT_TRUE(Load(IDC_CHECK, &DDX_Check, 1));
    EXPECT_EQ(1u, dialog.IsDlgButtonChecked(IDC_CHECK));
    EXPECT_TRUE(Load(IDC_CHECK, &DDX_Check, 5));
    EXPECT_EQ(0u, dialog.IsDlgButtonChecked(IDC_CHECK)) << "out of range is off";
    dialog.CheckDlgButton(IDC_CHECK, BST_CHECKED);
    int value = 0;
    EXPECT_TRUE(Save(IDC_CHECK, &DDX_Check, value));
    EXPECT_EQ(1, value);
}

TEST_F(DataExchange, RadioButtonsCountFromTheFirstOfTheirGroup)
{
    EXPECT_TRUE(Load(IDC_FIRST_RADIO, &DDX_Radio, 2));
    EXPECT_EQ(IDC_THIRD_RADIO, dialog.GetCheckedRadioButton(IDC_FIRST_RADIO, IDC_THIRD_RADIO));
    int value = -5;
    EXPECT_TRUE(Save(IDC_FIRST_RADIO, &DDX_Radio, value));
    EXPECT_EQ(2, value);
    EXPECT_TRUE(Load(IDC_FIRST_RADIO, &DDX_Radio, -1));
    EXPECT_EQ(0, dialog.GetCheckedRadioButton(IDC_FIRST_RADIO, IDC_THIRD_RADIO));
    dialog.CheckDlgButton(IDC_AFTER_GROUP, BST_CHECKED);
    EXPECT_TRUE(Save(IDC_FIRST_RADIO, &DDX_Radio, value));
    EXPECT_EQ(-1, value) << "the next group does not count";
}

TEST_F(DataExchange, ListBoxByIndexAndByText)
{
    EXPECT_TRUE(Load(IDC_LIST, &DDX_LBIndex, 2));
    CString text;
    EXPECT_TRUE(Save(IDC_LIST, &DDX_LBString, text));
    EXPECT_EQ(CString(_T("cherry")), text);
    EXPECT_TRUE(Load(IDC_LIST, &DDX_LBString, CString(_T("che"))));
    int index = 0;
    EXPECT_TRUE(Save(IDC_LIST, &DDX_LBIndex, index));
    EXPECT_EQ(2, index) << "a beginning is enough";
    EXPECT_TRUE(Load(IDC_LIST, &DDX_LBStringExact, CString(_T("apple pie"))));
    EXPECT_TRUE(Save(IDC_LIST, &DDX_LBIndex, index));
    EXPECT_EQ(1, index);
    EXPECT_TRUE(Load(IDC_LIST, &DDX_LBIndex, -1));
    EXPECT_TRUE(Save(IDC_LIST, &DDX_LBString, text));
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(DataExchange, ComboBoxByIndexAndByText)
{
    EXPECT_TRUE(Load(IDC_COMBO, &DDX_CBString, CString(_T("cherry"))));
    int index = 0;
    EXPECT_TRUE(Save(IDC_COMBO, &DDX_CBIndex, index));
    EXPECT_EQ(2, index);
    EXPECT_TRUE(Load(IDC_COMBO, &DDX_CBStringExact, CString(_T("che"))));
    CString text;
    EXPECT_TRUE(Save(IDC_COMBO, &DDX_CBString, text));
    EXPECT_EQ(CString(_T("che")), text) << "a text that is no item goes into the edit control";
}

TEST_F(DataExchange, ControlIsSubclassedOnce)
{
    CEdit edit;
    for (int i = 0; i < 2; ++i) {
        dialog.m_exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, IDC_NAME, edit); };
        EXPECT_TRUE(dialog.UpdateData(i != 0));
        EXPECT_EQ(&edit, dialog.GetDlgItem(IDC_NAME));
    }
    edit.UnsubclassWindow();
}

TEST_F(DataExchange, MissingControlIsReported)
{
    CString value;
    EXPECT_FALSE(Save(4000, &DDX_Text, value));
    EXPECT_EQ(1u, boxes.Boxes().size());
}

TEST_F(DataExchange, NotificationsAreHeldBackMeanwhile)
{
    class CListening : public CExchangeDialog
    {
    public:
        int m_changes = 0;

    protected:
        virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
        {
            if (nID == IDC_NAME && nCode == EN_CHANGE)
                ++m_changes;
            return CExchangeDialog::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
        }
    } listening;
    ASSERT_TRUE(listening.Create(IDD_EXCHANGE));
    CString value(_T("new"));
    listening.m_exchange = [&](CDataExchange* pDX) { DDX_Text(pDX, IDC_NAME, value); };
    listening.m_changes = 0;
    EXPECT_TRUE(listening.UpdateData(FALSE));
    EXPECT_EQ(0, listening.m_changes);
    listening.SetDlgItemText(IDC_NAME, _T("newer"));
    EXPECT_EQ(1, listening.m_changes);
}
