// The macros that write entries of message maps.
//
// Each names its handler by the member's fixed name or by the argument memberFxn (&Class::Member);
// a handler of another type than the one the kind asks for does not compile.
#pragma once

#include "win/msgmap.h"

#define AFX_WINDOW_ENTRY(message, kind, member)                                                              \
    AFX_MSGMAP_ENTRY{message,                                                                                \
                     0,                                                                                      \
                     0,                                                                                      \
                     0,                                                                                      \
                     &AfxHandlerKind::kind::Call,                                                            \
                     AfxHideHandler(static_cast<AfxHandlerKind::kind::Handler>(member)),                     \
                     nullptr},

#define AFX_COMMAND_ENTRY(message, code, first, last, kind, member)                                          \
    AFX_MSGMAP_ENTRY{message,                                                                                \
                     static_cast<UINT>(code) & 0xFFFFu,                                                      \
                     static_cast<UINT>(first) & 0xFFFFu,                                                     \
                     static_cast<UINT>(last) & 0xFFFFu,                                                      \
                     &AfxHandlerKind::kind::Call,                                                            \
                     AfxHideHandler(static_cast<AfxHandlerKind::kind::Handler>(member)),                     \
                     nullptr},

// Commands of menus, accelerators and buttons: void Handler(). The _EX forms take the id and return
// FALSE to let the command travel on.
#define ON_COMMAND(id, memberFxn) AFX_COMMAND_ENTRY(WM_COMMAND, CN_COMMAND, id, id, Command, memberFxn)
#define ON_COMMAND_RANGE(id, idLast, memberFxn)                                                              \
    AFX_COMMAND_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, CommandId, memberFxn)
#define ON_COMMAND_EX(id, memberFxn) AFX_COMMAND_ENTRY(WM_COMMAND, CN_COMMAND, id, id, CommandEx, memberFxn)
#define ON_COMMAND_EX_RANGE(id, idLast, memberFxn)                                                           \
    AFX_COMMAND_ENTRY(WM_COMMAND, CN_COMMAND, id, idLast, CommandEx, memberFxn)

// State of a command's item or button: void Handler(CCmdUI*).
#define ON_UPDATE_COMMAND_UI(id, memberFxn)                                                                  \
    AFX_COMMAND_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, CommandUI, memberFxn)
#define ON_UPDATE_COMMAND_UI_RANGE(id, idLast, memberFxn)                                                    \
    AFX_COMMAND_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, idLast, CommandUI, memberFxn)
#define ON_UPDATE_COMMAND_UI_REFLECT(memberFxn)                                                              \
    AFX_COMMAND_ENTRY(WM_COMMAND + WM_REFLECT_BASE, CN_UPDATE_COMMAND_UI, 0, 0, CommandUI, memberFxn)

// Notifications of controls by WM_COMMAND: void Handler(), with the id for a range.
#define ON_CONTROL(wNotifyCode, id, memberFxn)                                                               \
    AFX_COMMAND_ENTRY(WM_COMMAND, wNotifyCode, id, id, Command, memberFxn)
#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn)                                                 \
    AFX_COMMAND_ENTRY(WM_COMMAND, wNotifyCode, id, idLast, CommandId, memberFxn)
#define ON_CONTROL_REFLECT(wNotifyCode, memberFxn)                                                           \
    AFX_COMMAND_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, Command, memberFxn)
#define ON_CONTROL_REFLECT_EX(wNotifyCode, memberFxn)                                                        \
    AFX_COMMAND_ENTRY(WM_COMMAND + WM_REFLECT_BASE, wNotifyCode, 0, 0, ControlReflectEx, memberFxn)

// Notifications of controls by WM_NOTIFY: void Handler(NMHDR*, LRESULT*), with the id for a range.
// The _EX forms return FALSE to let the notification travel on.
#define ON_NOTIFY(wNotifyCode, id, memberFxn)                                                                \
    AFX_COMMAND_ENTRY(WM_NOTIFY, wNotifyCode, id, id, Notify, memberFxn)
#define ON_NOTIFY_RANGE(wNotifyCode, id, idLast, memberFxn)                                                  \
    AFX_COMMAND_ENTRY(WM_NOTIFY, wNotifyCode, id, idLast, NotifyId, memberFxn)
#define ON_NOTIFY_EX(wNotifyCode, id, memberFxn)                                                             \
    AFX_COMMAND_ENTRY(WM_NOTIFY, wNotifyCode, id, id, NotifyEx, memberFxn)
#define ON_NOTIFY_EX_RANGE(wNotifyCode, id, idLast, memberFxn)                                               \
    AFX_COMMAND_ENTRY(WM_NOTIFY, wNotifyCode, id, idLast, NotifyEx, memberFxn)
#define ON_NOTIFY_REFLECT(wNotifyCode, memberFxn)                                                            \
    AFX_COMMAND_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, Notify, memberFxn)
#define ON_NOTIFY_REFLECT_EX(wNotifyCode, memberFxn)                                                         \
    AFX_COMMAND_ENTRY(WM_NOTIFY + WM_REFLECT_BASE, wNotifyCode, 0, 0, NotifyReflectEx, memberFxn)

// Any message: LRESULT Handler(WPARAM, LPARAM). The registered form takes the variable that holds
// the number; it is read when a message comes, not when the map is built.
#define ON_MESSAGE(message, memberFxn) AFX_WINDOW_ENTRY(message, Message, memberFxn)
#define ON_REGISTERED_MESSAGE(nMessageVariable, memberFxn)                                                   \
    AFX_MSGMAP_ENTRY{0xC000,                                                                                 \
                     0,                                                                                      \
                     0,                                                                                      \
                     0,                                                                                      \
                     &AfxHandlerKind::Message::Call,                                                         \
                     AfxHideHandler(static_cast<AfxHandlerKind::Message::Handler>(memberFxn)),               \
                     &nMessageVariable},

// Messages posted to a thread: void Handler(WPARAM, LPARAM) of a CWinThread.
#define ON_THREAD_MESSAGE(message, memberFxn) AFX_WINDOW_ENTRY(message, ThreadMessage, memberFxn)
#define ON_REGISTERED_THREAD_MESSAGE(nMessageVariable, memberFxn)                                            \
    AFX_MSGMAP_ENTRY{0xC000,                                                                                 \
                     0,                                                                                      \
                     0,                                                                                      \
                     0,                                                                                      \
                     &AfxHandlerKind::ThreadMessage::Call,                                                   \
                     AfxHideHandler(static_cast<AfxHandlerKind::ThreadMessage::Handler>(memberFxn)),         \
                     &nMessageVariable},

// Window messages with a handler of fixed name.
#define ON_WM_ACTIVATE() AFX_WINDOW_ENTRY(WM_ACTIVATE, Activate, &ThisClass::OnActivate)
#define ON_WM_ACTIVATEAPP() AFX_WINDOW_ENTRY(WM_ACTIVATEAPP, BoolDword, &ThisClass::OnActivateApp)
#define ON_WM_APPCOMMAND() AFX_WINDOW_ENTRY(WM_APPCOMMAND, AppCommand, &ThisClass::OnAppCommand)
#define ON_WM_CANCELMODE() AFX_WINDOW_ENTRY(WM_CANCELMODE, Plain, &ThisClass::OnCancelMode)
#define ON_WM_CAPTURECHANGED()                                                                               \
    AFX_WINDOW_ENTRY(WM_CAPTURECHANGED, WindowFromLparam, &ThisClass::OnCaptureChanged)
#define ON_WM_CHANGEUISTATE() AFX_WINDOW_ENTRY(WM_CHANGEUISTATE, UintHiLo, &ThisClass::OnChangeUIState)
#define ON_WM_CHAR() AFX_WINDOW_ENTRY(WM_CHAR, Key, &ThisClass::OnChar)
#define ON_WM_CHARTOITEM() AFX_WINDOW_ENTRY(WM_CHARTOITEM, KeyToItem, &ThisClass::OnCharToItem)
#define ON_WM_CHILDACTIVATE() AFX_WINDOW_ENTRY(WM_CHILDACTIVATE, Plain, &ThisClass::OnChildActivate)
#define ON_WM_CLIPBOARDUPDATE() AFX_WINDOW_ENTRY(WM_CLIPBOARDUPDATE, Plain, &ThisClass::OnClipboardUpdate)
#define ON_WM_CLOSE() AFX_WINDOW_ENTRY(WM_CLOSE, Plain, &ThisClass::OnClose)
#define ON_WM_COMPACTING() AFX_WINDOW_ENTRY(WM_COMPACTING, Uint, &ThisClass::OnCompacting)
#define ON_WM_COMPAREITEM() AFX_WINDOW_ENTRY(WM_COMPAREITEM, CompareItem, &ThisClass::OnCompareItem)
#define ON_WM_CONTEXTMENU() AFX_WINDOW_ENTRY(WM_CONTEXTMENU, ContextMenu, &ThisClass::OnContextMenu)
#define ON_WM_COPYDATA() AFX_WINDOW_ENTRY(WM_COPYDATA, CopyData, &ThisClass::OnCopyData)
#define ON_WM_CREATE() AFX_WINDOW_ENTRY(WM_CREATE, Create, &ThisClass::OnCreate)
#define ON_WM_DEADCHAR() AFX_WINDOW_ENTRY(WM_DEADCHAR, Key, &ThisClass::OnDeadChar)
#define ON_WM_DELETEITEM() AFX_WINDOW_ENTRY(WM_DELETEITEM, DeleteItem, &ThisClass::OnDeleteItem)
#define ON_WM_DESTROY() AFX_WINDOW_ENTRY(WM_DESTROY, Plain, &ThisClass::OnDestroy)
#define ON_WM_DESTROYCLIPBOARD() AFX_WINDOW_ENTRY(WM_DESTROYCLIPBOARD, Plain, &ThisClass::OnDestroyClipboard)
#define ON_WM_DEVICECHANGE() AFX_WINDOW_ENTRY(WM_DEVICECHANGE, DeviceChange, &ThisClass::OnDeviceChange)
#define ON_WM_DEVMODECHANGE() AFX_WINDOW_ENTRY(WM_DEVMODECHANGE, DeviceName, &ThisClass::OnDevModeChange)
#define ON_WM_DRAWCLIPBOARD() AFX_WINDOW_ENTRY(WM_DRAWCLIPBOARD, Plain, &ThisClass::OnDrawClipboard)
#define ON_WM_DRAWITEM() AFX_WINDOW_ENTRY(WM_DRAWITEM, DrawItem, &ThisClass::OnDrawItem)
#define ON_WM_DROPFILES() AFX_WINDOW_ENTRY(WM_DROPFILES, DropFiles, &ThisClass::OnDropFiles)
#define ON_WM_ENABLE() AFX_WINDOW_ENTRY(WM_ENABLE, Bool, &ThisClass::OnEnable)
#define ON_WM_ENDSESSION() AFX_WINDOW_ENTRY(WM_ENDSESSION, Bool, &ThisClass::OnEndSession)
#define ON_WM_ENTERIDLE() AFX_WINDOW_ENTRY(WM_ENTERIDLE, UintWindow, &ThisClass::OnEnterIdle)
#define ON_WM_ENTERMENULOOP() AFX_WINDOW_ENTRY(WM_ENTERMENULOOP, Bool, &ThisClass::OnEnterMenuLoop)
#define ON_WM_ENTERSIZEMOVE() AFX_WINDOW_ENTRY(WM_ENTERSIZEMOVE, Plain, &ThisClass::OnEnterSizeMove)
#define ON_WM_ERASEBKGND() AFX_WINDOW_ENTRY(WM_ERASEBKGND, Draw, &ThisClass::OnEraseBkgnd)
#define ON_WM_EXITMENULOOP() AFX_WINDOW_ENTRY(WM_EXITMENULOOP, Bool, &ThisClass::OnExitMenuLoop)
#define ON_WM_EXITSIZEMOVE() AFX_WINDOW_ENTRY(WM_EXITSIZEMOVE, Plain, &ThisClass::OnExitSizeMove)
#define ON_WM_FONTCHANGE() AFX_WINDOW_ENTRY(WM_FONTCHANGE, Plain, &ThisClass::OnFontChange)
#define ON_WM_GETDLGCODE() AFX_WINDOW_ENTRY(WM_GETDLGCODE, PlainUint, &ThisClass::OnGetDlgCode)
#define ON_WM_GETMINMAXINFO() AFX_WINDOW_ENTRY(WM_GETMINMAXINFO, MinMax, &ThisClass::OnGetMinMaxInfo)
#define ON_WM_HELPINFO() AFX_WINDOW_ENTRY(WM_HELP, HelpInfo, &ThisClass::OnHelpInfo)
#define ON_WM_HOTKEY() AFX_WINDOW_ENTRY(WM_HOTKEY, HotKey, &ThisClass::OnHotKey)
#define ON_WM_HSCROLL() AFX_WINDOW_ENTRY(WM_HSCROLL, Scroll, &ThisClass::OnHScroll)
#define ON_WM_ICONERASEBKGND() AFX_WINDOW_ENTRY(WM_ICONERASEBKGND, DrawVoid, &ThisClass::OnIconEraseBkgnd)
#define ON_WM_INITMENU() AFX_WINDOW_ENTRY(WM_INITMENU, InitMenu, &ThisClass::OnInitMenu)
#define ON_WM_INITMENUPOPUP() AFX_WINDOW_ENTRY(WM_INITMENUPOPUP, InitMenuPopup, &ThisClass::OnInitMenuPopup)
#define ON_WM_INPUTLANGCHANGE() AFX_WINDOW_ENTRY(WM_INPUTLANGCHANGE, UintUint, &ThisClass::OnInputLangChange)
#define ON_WM_INPUTLANGCHANGEREQUEST()                                                                       \
    AFX_WINDOW_ENTRY(WM_INPUTLANGCHANGEREQUEST, UintUint, &ThisClass::OnInputLangChangeRequest)
#define ON_WM_KEYDOWN() AFX_WINDOW_ENTRY(WM_KEYDOWN, Key, &ThisClass::OnKeyDown)
#define ON_WM_KEYUP() AFX_WINDOW_ENTRY(WM_KEYUP, Key, &ThisClass::OnKeyUp)
#define ON_WM_KILLFOCUS() AFX_WINDOW_ENTRY(WM_KILLFOCUS, Window, &ThisClass::OnKillFocus)
#define ON_WM_LBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_LBUTTONDBLCLK, Mouse, &ThisClass::OnLButtonDblClk)
#define ON_WM_LBUTTONDOWN() AFX_WINDOW_ENTRY(WM_LBUTTONDOWN, Mouse, &ThisClass::OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_WINDOW_ENTRY(WM_LBUTTONUP, Mouse, &ThisClass::OnLButtonUp)
#define ON_WM_MBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_MBUTTONDBLCLK, Mouse, &ThisClass::OnMButtonDblClk)
#define ON_WM_MBUTTONDOWN() AFX_WINDOW_ENTRY(WM_MBUTTONDOWN, Mouse, &ThisClass::OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_WINDOW_ENTRY(WM_MBUTTONUP, Mouse, &ThisClass::OnMButtonUp)
#define ON_WM_MEASUREITEM() AFX_WINDOW_ENTRY(WM_MEASUREITEM, MeasureItem, &ThisClass::OnMeasureItem)
#define ON_WM_MENUCHAR() AFX_WINDOW_ENTRY(WM_MENUCHAR, MenuChar, &ThisClass::OnMenuChar)
#define ON_WM_MENUDRAG() AFX_WINDOW_ENTRY(WM_MENUDRAG, MenuDrag, &ThisClass::OnMenuDrag)
#define ON_WM_MENURBUTTONUP() AFX_WINDOW_ENTRY(WM_MENURBUTTONUP, MenuButton, &ThisClass::OnMenuRButtonUp)
#define ON_WM_MENUSELECT() AFX_WINDOW_ENTRY(WM_MENUSELECT, MenuSelect, &ThisClass::OnMenuSelect)
#define ON_WM_MOUSEACTIVATE() AFX_WINDOW_ENTRY(WM_MOUSEACTIVATE, MouseActivate, &ThisClass::OnMouseActivate)
#define ON_WM_MOUSEHOVER() AFX_WINDOW_ENTRY(WM_MOUSEHOVER, Mouse, &ThisClass::OnMouseHover)
#define ON_WM_MOUSEHWHEEL() AFX_WINDOW_ENTRY(WM_MOUSEHWHEEL, WheelVoid, &ThisClass::OnMouseHWheel)
#define ON_WM_MOUSELEAVE() AFX_WINDOW_ENTRY(WM_MOUSELEAVE, Plain, &ThisClass::OnMouseLeave)
#define ON_WM_MOUSEMOVE() AFX_WINDOW_ENTRY(WM_MOUSEMOVE, Mouse, &ThisClass::OnMouseMove)
#define ON_WM_MOUSEWHEEL() AFX_WINDOW_ENTRY(WM_MOUSEWHEEL, Wheel, &ThisClass::OnMouseWheel)
#define ON_WM_MOVE() AFX_WINDOW_ENTRY(WM_MOVE, Position, &ThisClass::OnMove)
#define ON_WM_MOVING() AFX_WINDOW_ENTRY(WM_MOVING, Moving, &ThisClass::OnMoving)
#define ON_WM_NCACTIVATE() AFX_WINDOW_ENTRY(WM_NCACTIVATE, BoolBool, &ThisClass::OnNcActivate)
#define ON_WM_NCCALCSIZE() AFX_WINDOW_ENTRY(WM_NCCALCSIZE, NcCalcSize, &ThisClass::OnNcCalcSize)
#define ON_WM_NCCREATE() AFX_WINDOW_ENTRY(WM_NCCREATE, NcCreate, &ThisClass::OnNcCreate)
#define ON_WM_NCDESTROY() AFX_WINDOW_ENTRY(WM_NCDESTROY, Plain, &ThisClass::OnNcDestroy)
#define ON_WM_NCHITTEST() AFX_WINDOW_ENTRY(WM_NCHITTEST, NcHitTest, &ThisClass::OnNcHitTest)
#define ON_WM_NCLBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_NCLBUTTONDBLCLK, Mouse, &ThisClass::OnNcLButtonDblClk)
#define ON_WM_NCLBUTTONDOWN() AFX_WINDOW_ENTRY(WM_NCLBUTTONDOWN, Mouse, &ThisClass::OnNcLButtonDown)
#define ON_WM_NCLBUTTONUP() AFX_WINDOW_ENTRY(WM_NCLBUTTONUP, Mouse, &ThisClass::OnNcLButtonUp)
#define ON_WM_NCMBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_NCMBUTTONDBLCLK, Mouse, &ThisClass::OnNcMButtonDblClk)
#define ON_WM_NCMBUTTONDOWN() AFX_WINDOW_ENTRY(WM_NCMBUTTONDOWN, Mouse, &ThisClass::OnNcMButtonDown)
#define ON_WM_NCMBUTTONUP() AFX_WINDOW_ENTRY(WM_NCMBUTTONUP, Mouse, &ThisClass::OnNcMButtonUp)
#define ON_WM_NCMOUSEHOVER() AFX_WINDOW_ENTRY(WM_NCMOUSEHOVER, Mouse, &ThisClass::OnNcMouseHover)
#define ON_WM_NCMOUSELEAVE() AFX_WINDOW_ENTRY(WM_NCMOUSELEAVE, Plain, &ThisClass::OnNcMouseLeave)
#define ON_WM_NCMOUSEMOVE() AFX_WINDOW_ENTRY(WM_NCMOUSEMOVE, Mouse, &ThisClass::OnNcMouseMove)
#define ON_WM_NCPAINT() AFX_WINDOW_ENTRY(WM_NCPAINT, Plain, &ThisClass::OnNcPaint)
#define ON_WM_NCRBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_NCRBUTTONDBLCLK, Mouse, &ThisClass::OnNcRButtonDblClk)
#define ON_WM_NCRBUTTONDOWN() AFX_WINDOW_ENTRY(WM_NCRBUTTONDOWN, Mouse, &ThisClass::OnNcRButtonDown)
#define ON_WM_NCRBUTTONUP() AFX_WINDOW_ENTRY(WM_NCRBUTTONUP, Mouse, &ThisClass::OnNcRButtonUp)
#define ON_WM_NCXBUTTONDBLCLK()                                                                              \
    AFX_WINDOW_ENTRY(WM_NCXBUTTONDBLCLK, NcMouseButton, &ThisClass::OnNcXButtonDblClk)
#define ON_WM_NCXBUTTONDOWN() AFX_WINDOW_ENTRY(WM_NCXBUTTONDOWN, NcMouseButton, &ThisClass::OnNcXButtonDown)
#define ON_WM_NCXBUTTONUP() AFX_WINDOW_ENTRY(WM_NCXBUTTONUP, NcMouseButton, &ThisClass::OnNcXButtonUp)
#define ON_WM_NEXTMENU() AFX_WINDOW_ENTRY(WM_NEXTMENU, NextMenu, &ThisClass::OnNextMenu)
#define ON_WM_NOTIFYFORMAT() AFX_WINDOW_ENTRY(WM_NOTIFYFORMAT, WindowFormat, &ThisClass::OnNotifyFormat)
#define ON_WM_PAINT() AFX_WINDOW_ENTRY(WM_PAINT, Plain, &ThisClass::OnPaint)
#define ON_WM_PALETTECHANGED() AFX_WINDOW_ENTRY(WM_PALETTECHANGED, Window, &ThisClass::OnPaletteChanged)
#define ON_WM_PALETTEISCHANGING()                                                                            \
    AFX_WINDOW_ENTRY(WM_PALETTEISCHANGING, Window, &ThisClass::OnPaletteIsChanging)
#define ON_WM_PARENTNOTIFY() AFX_WINDOW_ENTRY(WM_PARENTNOTIFY, ParentNotify, &ThisClass::OnParentNotify)
#define ON_WM_POWERBROADCAST() AFX_WINDOW_ENTRY(WM_POWERBROADCAST, UintUintUint, &ThisClass::OnPowerBroadcast)
#define ON_WM_QUERYDRAGICON() AFX_WINDOW_ENTRY(WM_QUERYDRAGICON, PlainCursor, &ThisClass::OnQueryDragIcon)
#define ON_WM_QUERYENDSESSION() AFX_WINDOW_ENTRY(WM_QUERYENDSESSION, PlainBool, &ThisClass::OnQueryEndSession)
#define ON_WM_QUERYNEWPALETTE() AFX_WINDOW_ENTRY(WM_QUERYNEWPALETTE, PlainBool, &ThisClass::OnQueryNewPalette)
#define ON_WM_QUERYOPEN() AFX_WINDOW_ENTRY(WM_QUERYOPEN, PlainBool, &ThisClass::OnQueryOpen)
#define ON_WM_QUERYUISTATE() AFX_WINDOW_ENTRY(WM_QUERYUISTATE, PlainUint, &ThisClass::OnQueryUIState)
#define ON_WM_RBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_RBUTTONDBLCLK, Mouse, &ThisClass::OnRButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_WINDOW_ENTRY(WM_RBUTTONDOWN, Mouse, &ThisClass::OnRButtonDown)
#define ON_WM_RBUTTONUP() AFX_WINDOW_ENTRY(WM_RBUTTONUP, Mouse, &ThisClass::OnRButtonUp)
#define ON_WM_RENDERALLFORMATS() AFX_WINDOW_ENTRY(WM_RENDERALLFORMATS, Plain, &ThisClass::OnRenderAllFormats)
#define ON_WM_RENDERFORMAT() AFX_WINDOW_ENTRY(WM_RENDERFORMAT, Uint, &ThisClass::OnRenderFormat)
#define ON_WM_SETCURSOR() AFX_WINDOW_ENTRY(WM_SETCURSOR, SetCursor, &ThisClass::OnSetCursor)
#define ON_WM_SETFOCUS() AFX_WINDOW_ENTRY(WM_SETFOCUS, Window, &ThisClass::OnSetFocus)
#define ON_WM_SETTINGCHANGE() AFX_WINDOW_ENTRY(WM_SETTINGCHANGE, UintText, &ThisClass::OnSettingChange)
#define ON_WM_SHOWWINDOW() AFX_WINDOW_ENTRY(WM_SHOWWINDOW, BoolUint, &ThisClass::OnShowWindow)
#define ON_WM_SIZE() AFX_WINDOW_ENTRY(WM_SIZE, Size, &ThisClass::OnSize)
#define ON_WM_SIZING() AFX_WINDOW_ENTRY(WM_SIZING, Moving, &ThisClass::OnSizing)
#define ON_WM_SPOOLERSTATUS() AFX_WINDOW_ENTRY(WM_SPOOLERSTATUS, UintUint, &ThisClass::OnSpoolerStatus)
#define ON_WM_STYLECHANGED() AFX_WINDOW_ENTRY(WM_STYLECHANGED, Style, &ThisClass::OnStyleChanged)
#define ON_WM_STYLECHANGING() AFX_WINDOW_ENTRY(WM_STYLECHANGING, Style, &ThisClass::OnStyleChanging)
#define ON_WM_SYSCHAR() AFX_WINDOW_ENTRY(WM_SYSCHAR, Key, &ThisClass::OnSysChar)
#define ON_WM_SYSCOLORCHANGE() AFX_WINDOW_ENTRY(WM_SYSCOLORCHANGE, Plain, &ThisClass::OnSysColorChange)
#define ON_WM_SYSCOMMAND() AFX_WINDOW_ENTRY(WM_SYSCOMMAND, UintLparam, &ThisClass::OnSysCommand)
#define ON_WM_SYSDEADCHAR() AFX_WINDOW_ENTRY(WM_SYSDEADCHAR, Key, &ThisClass::OnSysDeadChar)
#define ON_WM_SYSKEYDOWN() AFX_WINDOW_ENTRY(WM_SYSKEYDOWN, Key, &ThisClass::OnSysKeyDown)
#define ON_WM_SYSKEYUP() AFX_WINDOW_ENTRY(WM_SYSKEYUP, Key, &ThisClass::OnSysKeyUp)
#define ON_WM_TIMECHANGE() AFX_WINDOW_ENTRY(WM_TIMECHANGE, Plain, &ThisClass::OnTimeChange)
#define ON_WM_TIMER() AFX_WINDOW_ENTRY(WM_TIMER, Timer, &ThisClass::OnTimer)
#define ON_WM_UNICHAR() AFX_WINDOW_ENTRY(WM_UNICHAR, Key, &ThisClass::OnUniChar)
#define ON_WM_UNINITMENUPOPUP()                                                                              \
    AFX_WINDOW_ENTRY(WM_UNINITMENUPOPUP, UninitMenuPopup, &ThisClass::OnUnInitMenuPopup)
#define ON_WM_UPDATEUISTATE() AFX_WINDOW_ENTRY(WM_UPDATEUISTATE, UintHiLo, &ThisClass::OnUpdateUIState)
#define ON_WM_USERCHANGED() AFX_WINDOW_ENTRY(WM_USERCHANGED, Plain, &ThisClass::OnUserChanged)
#define ON_WM_VKEYTOITEM() AFX_WINDOW_ENTRY(WM_VKEYTOITEM, KeyToItem, &ThisClass::OnVKeyToItem)
#define ON_WM_VSCROLL() AFX_WINDOW_ENTRY(WM_VSCROLL, Scroll, &ThisClass::OnVScroll)
#define ON_WM_WINDOWPOSCHANGED()                                                                             \
    AFX_WINDOW_ENTRY(WM_WINDOWPOSCHANGED, WindowPos, &ThisClass::OnWindowPosChanged)
#define ON_WM_WINDOWPOSCHANGING()                                                                            \
    AFX_WINDOW_ENTRY(WM_WINDOWPOSCHANGING, WindowPos, &ThisClass::OnWindowPosChanging)
#define ON_WM_WININICHANGE() AFX_WINDOW_ENTRY(WM_WININICHANGE, Text, &ThisClass::OnWinIniChange)
#define ON_WM_XBUTTONDBLCLK() AFX_WINDOW_ENTRY(WM_XBUTTONDBLCLK, MouseButton, &ThisClass::OnXButtonDblClk)
#define ON_WM_XBUTTONDOWN() AFX_WINDOW_ENTRY(WM_XBUTTONDOWN, MouseButton, &ThisClass::OnXButtonDown)
#define ON_WM_XBUTTONUP() AFX_WINDOW_ENTRY(WM_XBUTTONUP, MouseButton, &ThisClass::OnXButtonUp)

// The colour messages come to one handler, which is told the kind of control.
#define ON_WM_CTLCOLOR() AFX_WINDOW_ENTRY(AFX_WM_CTLCOLOR, CtlColor, &ThisClass::OnCtlColor)

// Messages that the parent reflects to the control itself, and handlers of the like name there.
#define ON_WM_CTLCOLOR_REFLECT()                                                                             \
    AFX_WINDOW_ENTRY(AFX_WM_CTLCOLOR + WM_REFLECT_BASE, CtlColorReflect, &ThisClass::CtlColor)
#define ON_WM_COMPAREITEM_REFLECT()                                                                          \
    AFX_WINDOW_ENTRY(WM_COMPAREITEM + WM_REFLECT_BASE, CompareItemReflect, &ThisClass::CompareItem)
#define ON_WM_DELETEITEM_REFLECT()                                                                           \
    AFX_WINDOW_ENTRY(WM_DELETEITEM + WM_REFLECT_BASE, DeleteItemReflect, &ThisClass::DeleteItem)
#define ON_WM_DRAWITEM_REFLECT()                                                                             \
    AFX_WINDOW_ENTRY(WM_DRAWITEM + WM_REFLECT_BASE, DrawItemReflect, &ThisClass::DrawItem)
#define ON_WM_MEASUREITEM_REFLECT()                                                                          \
    AFX_WINDOW_ENTRY(WM_MEASUREITEM + WM_REFLECT_BASE, MeasureItemReflect, &ThisClass::MeasureItem)
#define ON_WM_CHARTOITEM_REFLECT()                                                                           \
    AFX_WINDOW_ENTRY(WM_CHARTOITEM + WM_REFLECT_BASE, KeyToItemReflect, &ThisClass::CharToItem)
#define ON_WM_VKEYTOITEM_REFLECT()                                                                           \
    AFX_WINDOW_ENTRY(WM_VKEYTOITEM + WM_REFLECT_BASE, KeyToItemReflect, &ThisClass::VKeyToItem)
#define ON_WM_HSCROLL_REFLECT()                                                                              \
    AFX_WINDOW_ENTRY(WM_HSCROLL + WM_REFLECT_BASE, ScrollReflect, &ThisClass::HScroll)
#define ON_WM_VSCROLL_REFLECT()                                                                              \
    AFX_WINDOW_ENTRY(WM_VSCROLL + WM_REFLECT_BASE, ScrollReflect, &ThisClass::VScroll)
#define ON_WM_PARENTNOTIFY_REFLECT()                                                                         \
    AFX_WINDOW_ENTRY(WM_PARENTNOTIFY + WM_REFLECT_BASE, ParentNotify, &ThisClass::ParentNotify)

// Controls' own notifications under their usual names.
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_BN_DOUBLECLICKED(id, memberFxn) ON_CONTROL(BN_DOUBLECLICKED, id, memberFxn)
#define ON_BN_SETFOCUS(id, memberFxn) ON_CONTROL(BN_SETFOCUS, id, memberFxn)
#define ON_BN_KILLFOCUS(id, memberFxn) ON_CONTROL(BN_KILLFOCUS, id, memberFxn)
#define ON_STN_CLICKED(id, memberFxn) ON_CONTROL(STN_CLICKED, id, memberFxn)
#define ON_STN_DBLCLK(id, memberFxn) ON_CONTROL(STN_DBLCLK, id, memberFxn)
#define ON_STN_ENABLE(id, memberFxn) ON_CONTROL(STN_ENABLE, id, memberFxn)
#define ON_STN_DISABLE(id, memberFxn) ON_CONTROL(STN_DISABLE, id, memberFxn)
#define ON_EN_SETFOCUS(id, memberFxn) ON_CONTROL(EN_SETFOCUS, id, memberFxn)
#define ON_EN_KILLFOCUS(id, memberFxn) ON_CONTROL(EN_KILLFOCUS, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_EN_UPDATE(id, memberFxn) ON_CONTROL(EN_UPDATE, id, memberFxn)
#define ON_EN_ERRSPACE(id, memberFxn) ON_CONTROL(EN_ERRSPACE, id, memberFxn)
#define ON_EN_MAXTEXT(id, memberFxn) ON_CONTROL(EN_MAXTEXT, id, memberFxn)
#define ON_EN_HSCROLL(id, memberFxn) ON_CONTROL(EN_HSCROLL, id, memberFxn)
#define ON_EN_VSCROLL(id, memberFxn) ON_CONTROL(EN_VSCROLL, id, memberFxn)
#define ON_LBN_ERRSPACE(id, memberFxn) ON_CONTROL(LBN_ERRSPACE, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_LBN_DBLCLK(id, memberFxn) ON_CONTROL(LBN_DBLCLK, id, memberFxn)
#define ON_LBN_SELCANCEL(id, memberFxn) ON_CONTROL(LBN_SELCANCEL, id, memberFxn)
#define ON_LBN_SETFOCUS(id, memberFxn) ON_CONTROL(LBN_SETFOCUS, id, memberFxn)
#define ON_LBN_KILLFOCUS(id, memberFxn) ON_CONTROL(LBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_ERRSPACE(id, memberFxn) ON_CONTROL(CBN_ERRSPACE, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)
#define ON_CBN_DBLCLK(id, memberFxn) ON_CONTROL(CBN_DBLCLK, id, memberFxn)
#define ON_CBN_SETFOCUS(id, memberFxn) ON_CONTROL(CBN_SETFOCUS, id, memberFxn)
#define ON_CBN_KILLFOCUS(id, memberFxn) ON_CONTROL(CBN_KILLFOCUS, id, memberFxn)
#define ON_CBN_EDITCHANGE(id, memberFxn) ON_CONTROL(CBN_EDITCHANGE, id, memberFxn)
#define ON_CBN_EDITUPDATE(id, memberFxn) ON_CONTROL(CBN_EDITUPDATE, id, memberFxn)
#define ON_CBN_DROPDOWN(id, memberFxn) ON_CONTROL(CBN_DROPDOWN, id, memberFxn)
#define ON_CBN_CLOSEUP(id, memberFxn) ON_CONTROL(CBN_CLOSEUP, id, memberFxn)
#define ON_CBN_SELENDOK(id, memberFxn) ON_CONTROL(CBN_SELENDOK, id, memberFxn)
#define ON_CBN_SELENDCANCEL(id, memberFxn) ON_CONTROL(CBN_SELENDCANCEL, id, memberFxn)
