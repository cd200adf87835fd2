// How each kind of handler gets its arguments out of a message.
#include "afxwin.h"

namespace AfxHandlerKind
{
namespace
{
template <class Target, class Result, class... Arguments>
Result Invoke(Result (Target::*)(Arguments...), const AFX_MSGCALL_ARGS& args,
              std::type_identity_t<Arguments>... arguments)
{
    using Handler = Result (Target::*)(Arguments...);
    return (static_cast<Target*>(args.pTarget)->*std::bit_cast<Handler>(args.pfn))(arguments...);
}

CWnd* Wnd(WPARAM handle)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
CWnd* Wnd(LPARAM handle)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(handle));
}
CMenu* Menu(WPARAM handle)
{
    return CMenu::FromHandle(reinterpret_cast<HMENU>(handle));
}
CMenu* Menu(LPARAM handle)
{
    return CMenu::FromHandle(reinterpret_cast<HMENU>(handle));
}
CDC* Dc(WPARAM handle)
{
    return CDC::FromHandle(reinterpret_cast<HDC>(handle));
}
template <class Pointer>
Pointer As(LPARAM lParam)
{
    return reinterpret_cast<Pointer>(lParam);
}
CPoint Position16(LPARAM lParam)
{
    return CPoint(lParam);
}
AFX_NOTIFY& Notification(const AFX_MSGCALL_ARGS& args)
{
    return *static_cast<AFX_NOTIFY*>(args.pExtra);
}
} // namespace

// The type of the handler is all that the first argument of Invoke is for.
#define CALL(kind, ...) Invoke(static_cast<kind::Handler>(nullptr), args __VA_OPT__(, ) __VA_ARGS__)
#define RETURNS(kind, ...)                                                                                   \
    void kind::Call(AFX_MSGCALL_ARGS& args)                                                                  \
    {                                                                                                        \
        args.lResult = (LRESULT)CALL(kind, __VA_ARGS__);                                                     \
    }
#define NOTHING(kind, ...)                                                                                   \
    void kind::Call(AFX_MSGCALL_ARGS& args)                                                                  \
    {                                                                                                        \
        CALL(kind, __VA_ARGS__);                                                                             \
    }

#define W args.wParam
#define L args.lParam
#define WLO static_cast<UINT>(LOWORD(args.wParam))
#define WHI static_cast<UINT>(HIWORD(args.wParam))
#define LLO static_cast<UINT>(LOWORD(args.lParam))
#define LHI static_cast<UINT>(HIWORD(args.lParam))
#define WUINT static_cast<UINT>(args.wParam)

NOTHING(Command)
NOTHING(CommandId, args.nID)
void CommandEx::Call(AFX_MSGCALL_ARGS& args)
{
    args.bHandled = CALL(CommandEx, args.nID);
}
void ControlReflectEx::Call(AFX_MSGCALL_ARGS& args)
{
    args.bHandled = CALL(ControlReflectEx);
}
void CommandUI::Call(AFX_MSGCALL_ARGS& args)
{
    CCmdUI* const pCmdUI = static_cast<CCmdUI*>(args.pExtra);
    CALL(CommandUI, pCmdUI);
    args.bHandled = !pCmdUI->m_bContinueRouting;
    pCmdUI->m_bContinueRouting = FALSE;
}
NOTHING(Notify, Notification(args).pNMHDR, Notification(args).pResult)
NOTHING(NotifyId, args.nID, Notification(args).pNMHDR, Notification(args).pResult)
void NotifyEx::Call(AFX_MSGCALL_ARGS& args)
{
    args.bHandled = CALL(NotifyEx, args.nID, Notification(args).pNMHDR, Notification(args).pResult);
}
void NotifyReflectEx::Call(AFX_MSGCALL_ARGS& args)
{
    args.bHandled = CALL(NotifyReflectEx, Notification(args).pNMHDR, Notification(args).pResult);
}

RETURNS(Message, W, L)
NOTHING(ThreadMessage, W, L)

NOTHING(Plain)
RETURNS(PlainBool)
RETURNS(PlainUint)
RETURNS(PlainCursor)
NOTHING(Bool, static_cast<BOOL>(W))
RETURNS(BoolBool, static_cast<BOOL>(W))
NOTHING(Uint, WUINT)
NOTHING(UintHiLo, WLO, WHI)
NOTHING(BoolUint, static_cast<BOOL>(W), static_cast<UINT>(L))
NOTHING(BoolDword, static_cast<BOOL>(W), static_cast<DWORD>(L))
NOTHING(UintLparam, WUINT, L)
NOTHING(UintUint, WUINT, static_cast<UINT>(L))
RETURNS(UintUintUint, WUINT, static_cast<UINT>(L))
RETURNS(DeviceChange, WUINT, static_cast<DWORD_PTR>(L))
NOTHING(UintText, WUINT, As<LPCTSTR>(L))
NOTHING(Text, As<LPCTSTR>(L))
NOTHING(DeviceName, As<LPTSTR>(L))
NOTHING(Window, Wnd(W))
NOTHING(WindowFromLparam, Wnd(L))
RETURNS(WindowFormat, Wnd(W), static_cast<UINT>(L))
NOTHING(UintWindow, WUINT, Wnd(L))
NOTHING(Activate, WLO, Wnd(L), static_cast<BOOL>(WHI))
RETURNS(Create, As<LPCREATESTRUCT>(L))
RETURNS(NcCreate, As<LPCREATESTRUCT>(L))
RETURNS(Draw, Dc(W))
NOTHING(DrawVoid, Dc(W))

// No brush means that the handler leaves the colours to whoever comes next.
void CtlColor::Call(AFX_MSGCALL_ARGS& args)
{
    args.lResult = (LRESULT)CALL(CtlColor, Dc(W), Wnd(L), args.nMessage - WM_CTLCOLORMSGBOX);
    args.bHandled = args.lResult != 0;
}
void CtlColorReflect::Call(AFX_MSGCALL_ARGS& args)
{
    args.lResult = (LRESULT)CALL(CtlColorReflect, Dc(W), args.nMessage - WM_CTLCOLORMSGBOX);
    args.bHandled = args.lResult != 0;
}

NOTHING(Mouse, WUINT, Position16(L))

// The extra buttons' messages ask for TRUE from whoever takes them.
void MouseButton::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(MouseButton, WLO, WHI, Position16(L));
    args.lResult = TRUE;
}
void NcMouseButton::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(NcMouseButton, static_cast<short>(WLO), WHI, Position16(L));
    args.lResult = TRUE;
}

// A wheel that the handler does not use turns the parent's content.
void Wheel::Call(AFX_MSGCALL_ARGS& args)
{
    args.lResult = CALL(Wheel, WLO, static_cast<short>(WHI), Position16(L));
    args.bHandled = args.lResult != 0;
}
NOTHING(WheelVoid, WLO, static_cast<short>(WHI), Position16(L))
RETURNS(NcHitTest, Position16(L))
NOTHING(Key, WUINT, LLO, LHI)
NOTHING(HotKey, WUINT, LLO, LHI)
RETURNS(MouseActivate, Wnd(W), LLO, LHI)
RETURNS(SetCursor, Wnd(W), LLO, LHI)
NOTHING(Scroll, WLO, WHI, static_cast<CScrollBar*>(Wnd(L)))
NOTHING(ScrollReflect, WLO, WHI)
NOTHING(Position, Position16(L).x, Position16(L).y)
NOTHING(Size, WUINT, static_cast<int>(LLO), static_cast<int>(LHI))
void Moving::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(Moving, WUINT, As<LPRECT>(L));
    args.lResult = TRUE;
}
NOTHING(MinMax, As<MINMAXINFO*>(L))
NOTHING(NcCalcSize, static_cast<BOOL>(W), As<NCCALCSIZE_PARAMS*>(L))
NOTHING(WindowPos, As<WINDOWPOS*>(L))
NOTHING(Style, static_cast<int>(W), As<LPSTYLESTRUCT>(L))
NOTHING(Timer, W)
NOTHING(InitMenu, Menu(W))
NOTHING(InitMenuPopup, Menu(W), LLO, static_cast<BOOL>(LHI))
NOTHING(UninitMenuPopup, Menu(W), LHI)
NOTHING(MenuSelect, WLO, WHI, As<HMENU>(L))
RETURNS(MenuChar, WLO, WHI, Menu(L))
RETURNS(MenuDrag, WUINT, Menu(L))
NOTHING(MenuButton, WUINT, Menu(L))
NOTHING(NextMenu, WUINT, As<LPMDINEXTMENU>(L))
NOTHING(ContextMenu, Wnd(W), Position16(L))
RETURNS(HelpInfo, As<HELPINFO*>(L))
RETURNS(CopyData, Wnd(W), As<COPYDATASTRUCT*>(L))
NOTHING(DropFiles, reinterpret_cast<HDROP>(W))

// Owner-drawn controls' messages ask for TRUE.
void DrawItem::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(DrawItem, static_cast<int>(W), As<LPDRAWITEMSTRUCT>(L));
    args.lResult = TRUE;
}
void MeasureItem::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(MeasureItem, static_cast<int>(W), As<LPMEASUREITEMSTRUCT>(L));
    args.lResult = TRUE;
}
void DeleteItem::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(DeleteItem, static_cast<int>(W), As<LPDELETEITEMSTRUCT>(L));
    args.lResult = TRUE;
}
RETURNS(CompareItem, static_cast<int>(W), As<LPCOMPAREITEMSTRUCT>(L))
void DrawItemReflect::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(DrawItemReflect, As<LPDRAWITEMSTRUCT>(L));
    args.lResult = TRUE;
}
void MeasureItemReflect::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(MeasureItemReflect, As<LPMEASUREITEMSTRUCT>(L));
    args.lResult = TRUE;
}
void DeleteItemReflect::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(DeleteItemReflect, As<LPDELETEITEMSTRUCT>(L));
    args.lResult = TRUE;
}
RETURNS(CompareItemReflect, As<LPCOMPAREITEMSTRUCT>(L))
RETURNS(KeyToItem, WLO, static_cast<CListBox*>(Wnd(L)), WHI)
RETURNS(KeyToItemReflect, WLO, WHI)
NOTHING(ParentNotify, WUINT, L)
void AppCommand::Call(AFX_MSGCALL_ARGS& args)
{
    CALL(AppCommand, Wnd(W), static_cast<UINT>(GET_APPCOMMAND_LPARAM(L)),
         static_cast<UINT>(GET_DEVICE_LPARAM(L)), static_cast<UINT>(GET_KEYSTATE_LPARAM(L)));
    args.lResult = TRUE;
}
} // namespace AfxHandlerKind
