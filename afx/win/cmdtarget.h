// CCmdTarget: the base of everything that takes commands, and of objects with an IDispatch.
#pragma once

#include "win/msgmap.h"

class CDispatchPart;

class AFX_CORE_API CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // The reference count begins at 1: the constructing code's reference.
    CCmdTarget();
    virtual ~CCmdTarget();

    // Attributes
public:
    // The object's IDispatch, or null when neither GetInterfaceHook nor EnableAutomation supplies
    // one. With bAddRef a reference is added that the caller releases; without, the pointer lives as
    // long as the object.
    LPDISPATCH GetIDispatch(BOOL bAddRef);

    // The object behind an IDispatch that EnableAutomation supplied, or null for any other one and
    // for null. No reference is added.
    static CCmdTarget* PASCAL FromIDispatch(LPDISPATCH lpDispatch);

    // Operations
public:
    // Gives the object an IDispatch whose lifetime and identity are the object's. Call it in the
    // constructor. A second call does nothing.
    void EnableAutomation();

    // Show the hourglass, count back, show it again after something else changed the cursor. They
    // rest on CWinApp::DoWaitCursor.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();

    // Overridables
public:
    // Looks for a handler of a command (CN_COMMAND), a command's state (CN_UPDATE_COMMAND_UI) or a
    // notification (message in the high word of nCode, code in the low word) in the class's message
    // maps, from the most derived one on. With pHandlerInfo the handler is named there instead of
    // called. Returns TRUE when it was found and did not pass the command on.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    // Called when the last reference goes; deletes the object.
    virtual void OnFinalRelease();

    // Whether an automation member may run now; the default allows all.
    virtual BOOL IsInvokeAllowed(DISPID dispid);

    // The id of the object's own dispatch interface, under which the IDispatch is found too; FALSE
    // when it has none.
    virtual BOOL GetDispatchIID(IID* pIID);

    // The number of type descriptions that the IDispatch offers; the default is none.
    virtual UINT GetTypeInfoCount();

    // Asked first whenever an interface is wanted of the object, iid being the IID's address.
    // Returns the interface without adding a reference, or null to go on as usual.
    virtual LPUNKNOWN GetInterfaceHook(const void* iid);

    // Implementation
public:
    // Reference counting and look-up. The External forms go to the outer object of an aggregate
    // when there is one; the Internal forms never do.
    DWORD InternalAddRef();
    DWORD InternalRelease();
    DWORD InternalQueryInterface(const void* iid, LPVOID* ppvObj);
    DWORD ExternalAddRef();
    DWORD ExternalRelease();
    DWORD ExternalQueryInterface(const void* iid, LPVOID* ppvObj);

    // The interface itself, without a reference; null when there is none.
    LPUNKNOWN GetInterface(const void* iid);

    LONG m_dwRef;
    LPUNKNOWN m_pOuterUnknown; // not owned; null when not aggregated

protected:
    friend class CDispatchPart;
    CDispatchPart* m_pDispatchPart; // owned; null until EnableAutomation

    DECLARE_MESSAGE_MAP()
};

// Shows the hourglass while it lives.
class AFX_CORE_API CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

    // Shows it again after something else changed the cursor.
    void Restore();
};

// What an update handler gets: one menu item, or one control, whose state it sets.
class AFX_CORE_API CCmdUI
{
public:
    CCmdUI();
    virtual ~CCmdUI() = default;

    // Attributes
public:
    UINT m_nID;              // the command
    UINT m_nIndex;           // menu: the item's position
    CMenu* m_pMenu;          // menu: the pop-up that holds the item; null for a control
    CMenu* m_pSubMenu;       // menu: the pop-up behind the item, when it has one
    CWnd* m_pOther;          // control: the control
    UINT m_nIndexMax;        // menu: number of items
    CMenu* m_pParentMenu;    // menu: the menu that holds m_pMenu, when known
    BOOL m_bEnableChanged;   // a handler called Enable
    BOOL m_bContinueRouting; // a handler called ContinueRouting

    // Operations
public:
    virtual void Enable(BOOL bOn = TRUE);
    virtual void SetCheck(int nCheck = 1); // 0 off, 1 on, 2 neither
    virtual void SetRadio(BOOL bOn = TRUE);
    virtual void SetText(LPCTSTR lpszText);

    // Says that the handler did not answer: the search goes on.
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    // Implementation
public:
    // Asks pTarget for the state. With bDisableIfNoHndler a command without handler is disabled.
    // Returns whether somebody answered.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
};
