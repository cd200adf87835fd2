// What the window half keeps for each thread. Internal to the room.
#pragma once

#include <map>
#include <memory>
#include <utility>

#include "afxcmn.h"
#include "core/state.h"

// Bits of CWnd::m_nFlags.
enum : UINT
{
    AFX_WF_TOOLTIPS = 0x0001,      // EnableToolTips
    AFX_WF_MODALLOOP = 0x0002,     // RunModalLoop runs
    AFX_WF_CONTINUEMODAL = 0x0004, // and has not been ended
    AFX_WF_AUTOCENTER = 0x0008     // a dialog whose template leaves the place open
};

// The handle of each kind of object, and how a temporary object forgets it.
inline void AfxSetHandle(CWnd& object, HWND handle)
{
    object.m_hWnd = handle;
}
inline void AfxSetHandle(CMenu& object, HMENU handle)
{
    object.m_hMenu = handle;
}
inline void AfxSetHandle(CGdiObject& object, HGDIOBJ handle)
{
    object.m_hObject = handle;
}
inline void AfxSetHandle(CImageList& object, HIMAGELIST handle)
{
    object.m_hImageList = handle;
}
inline void AfxSetHandle(CDC& object, HDC handle)
{
    object.m_hDC = object.m_hAttribDC = handle;
}

// The objects that stand for handles of one kind. Permanent ones are owned by whoever made them;
// temporary ones are owned here and own nothing themselves.
template <class Object, class Handle>
class AfxHandleMap
{
public:
    using Maker = Object* (*)(Handle handle);

    AfxHandleMap() {}
    AfxHandleMap(const AfxHandleMap&) = delete;
    AfxHandleMap& operator=(const AfxHandleMap&) = delete;
    ~AfxHandleMap() { DeleteTemporary(); }

    Object* FromHandle(Handle handle, Maker maker)
    {
        if (handle == nullptr)
            return nullptr;
        if (Object* pPermanent = Permanent(handle))
            return pPermanent;
        std::unique_ptr<Object>& pTemporary = m_temporary[handle];
        if (pTemporary == nullptr)
            pTemporary.reset(maker(handle));
        AfxSetHandle(*pTemporary, handle);
        return pTemporary.get();
    }

    Object* Permanent(Handle handle) const
    {
        const auto found = m_permanent.find(handle);
        return found == m_permanent.end() ? nullptr : found->second;
    }

    void SetPermanent(Handle handle, Object* pObject) { m_permanent[handle] = pObject; }

    // Only the object that stands for the handle takes its entry along.
    void RemovePermanent(Handle handle, const Object* pObject)
    {
        const auto found = m_permanent.find(handle);
        if (found != m_permanent.end() && found->second == pObject)
            m_permanent.erase(found);
    }

    void DeleteTemporary()
    {
        // A destructor may look up handles, so the map is empty before the first one runs.
        const auto dying = std::exchange(m_temporary, {});
        for (const auto& entry : dying) {
            if (entry.second != nullptr)
                AfxSetHandle(*entry.second, nullptr);
        }
    }

private:
    // Maps that keep no memory of their own when they are empty.
    std::map<Handle, Object*> m_permanent;
    std::map<Handle, std::unique_ptr<Object>> m_temporary;
};

struct AfxWindowState
{
    AfxHandleMap<CWnd, HWND> windows;
    AfxHandleMap<CMenu, HMENU> menus;
    AfxHandleMap<CDC, HDC> dcs;
    AfxHandleMap<CGdiObject, HGDIOBJ> gdiObjects;
    AfxHandleMap<CImageList, HIMAGELIST> imageLists;

    // Creation: the object that waits for its window, the class that the window has (null: any), and
    // the hook that brings the two together.
    CWnd* pCreating = nullptr;
    LPCTSTR pszCreatingClass = nullptr;
    HHOOK hCreationHook = nullptr;

    HHOOK hMessageHook = nullptr; // for ProcessMessageFilter

    MSG message = {};               // the message that a window handles now
    HWND hExchangeWindow = nullptr; // its controls' notifications are held back during UpdateData
    TCHAR szClassName[128] = {};    // what AfxRegisterWndClass returned last
    CBrush halftoneBrush;

    // Tooltips: the control (owned by the window that it was made for), and the tool it has.
    HWND hToolTip = nullptr;
    HWND hLastHit = nullptr;
    INT_PTR nLastHit = -1;
    TOOLINFO lastTool = {};
    MSG toolMessage = {}; // a message that has found its tool
};

// The calling thread's; made when first asked for.
AfxWindowState& AfxGetWindowState();

// Frees what AfxGetWindowState made for the calling thread.
void AfxTermWindowState();

// Hands a message to a window object: keeps it as the current message, and lets no exception out.
LRESULT AfxCallWindow(CWnd* pWnd, HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);

// Runs body and deals with an exception as if it had left the handler of that message.
LRESULT AfxGuardMessage(const MSG& message, LRESULT (*body)(void* pContext), void* pContext);

// What a thread without an object does with an exception.
LRESULT AfxDefaultWndProcException(CException* e, const MSG* pMsg);

// As AfxHookWindowCreate, for a window of one class.
void AfxHookWindowCreateOfClass(CWnd* pWnd, LPCTSTR lpszClassName);

// The names of the standard window classes, registered when first asked for.
enum AfxStandardClass
{
    AfxClassWnd,
    AfxClassFrame
};
LPCTSTR AfxGetStandardClass(AfxStandardClass which);

// Prepares the calling thread for windows, and undoes that.
void AfxInitThread();

// The window that hWnd belongs to: the parent of a child, else the owner.
HWND AfxGetParentOwner(HWND hWnd);
BOOL AfxIsDescendant(HWND hWndParent, HWND hWndChild);
