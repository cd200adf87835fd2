// CFrameWnd: a top-level window with a menu, commonly the main window.
#pragma once

#include "win/wnd.h"

// Frame windows' own style bit: the application's name is added to the title.
#define FWS_ADDTOTITLE 0x00008000L

struct CCreateContext
{
    CRuntimeClass* m_pNewViewClass = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

class AFX_CORE_API CFrameWnd : public CWnd
{
    DECLARE_DYNCREATE(CFrameWnd)

public:
    static const CRect rectDefault; // let the system choose size and place

    CFrameWnd();
    virtual ~CFrameWnd();

    // Creates the frame; a null class name means a standard one. The menu is found along the resource
    // chain; FALSE when it is not found or the window cannot be made. The object is then deleted.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                        const RECT& rect = rectDefault, CWnd* pParentWnd = nullptr,
                        LPCTSTR lpszMenuName = nullptr, DWORD dwExStyle = 0,
                        CCreateContext* pContext = nullptr);
    // Creates the frame from the resources of one number: title (string), menu, accelerators, icon.
    // What is missing is left out.
    virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                           CWnd* pParentWnd = nullptr, CCreateContext* pContext = nullptr);
    BOOL LoadAccelTable(LPCTSTR lpszResourceName);

    // Attributes
public:
    // Items of the menu that have no handler are disabled when it opens. TRUE at first.
    BOOL m_bAutoMenuEnable;
    CString GetTitle() const { return m_strTitle; }
    void SetTitle(LPCTSTR lpszTitle) { m_strTitle = lpszTitle; }
    BOOL InModalState() const { return m_cModalStack != 0; }

    // Operations
public:
    virtual void ActivateFrame(int nCmdShow = -1);
    // Disable and enable the frame while something modal runs; calls nest.
    virtual void BeginModalState();
    virtual void EndModalState();
    virtual CFrameWnd* GetActiveFrame() { return this; }
    virtual void RecalcLayout(BOOL bNotify = TRUE);

    // Overridables
public:
    virtual BOOL OnCreateClient(LPCREATESTRUCT lpcs, CCreateContext* pContext);
    // The text that explains a command: the first line of the string of that number.
    virtual void GetMessageString(UINT nID, CString& rMessage) const;
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Commands go to the frame, then to the application.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    // Implementation
protected:
    CString m_strTitle;
    HACCEL m_hAccelTable; // shared resource
    int m_cModalStack;
    BOOL m_bModalDisabled;

    // A frame is made with new and deletes itself.
    virtual void PostNcDestroy();

    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnClose();
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);

    DECLARE_MESSAGE_MAP()
};
