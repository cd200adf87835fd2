#include "afxwin.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY messageEntries[] = {{}};
    static const AFX_MSGMAP messageMap = {nullptr, messageEntries};
    return &messageMap;
}

namespace
{
const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP_ENTRY* pEntry, UINT nMessage, UINT nCode, UINT nID)
{
    for (; pEntry->nMessage != 0; ++pEntry) {
        if (pEntry->nMessage == nMessage && pEntry->nCode == nCode && pEntry->nID <= nID &&
            nID <= pEntry->nLastID)
            return pEntry;
    }
    return nullptr;
}
} // namespace

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    // A plain command has no message in its high word; CN_UPDATE_COMMAND_UI alone is negative as a whole.
    UINT nMessage = WM_COMMAND;
    if (nCode != CN_UPDATE_COMMAND_UI && HIWORD(nCode) != 0)
        nMessage = HIWORD(nCode);
    const UINT nEntryCode = LOWORD(nCode);
    nID &= 0xFFFF;

    for (const AFX_MSGMAP* pMap = GetMessageMap(); pMap != nullptr;
         pMap = pMap->pfnGetBaseMap == nullptr ? nullptr : pMap->pfnGetBaseMap())
    {
        const AFX_MSGMAP_ENTRY* const pEntry = FindCommand(pMap->lpEntries, nMessage, nEntryCode, nID);
        if (pEntry == nullptr)
            continue;
        if (pHandlerInfo != nullptr) {
            pHandlerInfo->pTarget = this;
            pHandlerInfo->pmf = pEntry->pfn;
            return TRUE;
        }
        AFX_MSGCALL_ARGS args{this, pEntry->pfn, nMessage, 0, 0, nID, nCode, pExtra};
        pEntry->pCall(args);
        return args.bHandled;
    }
    return FALSE;
}

void CCmdTarget::BeginWaitCursor()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(1);
}

void CCmdTarget::EndWaitCursor()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(-1);
}

void CCmdTarget::RestoreWaitCursor()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(0);
}

CWaitCursor::CWaitCursor()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(1);
}

CWaitCursor::~CWaitCursor()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(-1);
}

void CWaitCursor::Restore()
{
    if (CWinApp* pApp = AfxGetApp())
        pApp->DoWaitCursor(0);
}
