// Message maps: what an entry holds, and the kinds of handlers that entries may name.
//
// A map is a table of entries, closed by an all-zero one, with a link to the base class's map. An
// entry pairs a message (and, for commands and notifications, a code and a range of ids) with a
// handler and with the kind that knows how to unpack the message for it. Sources write maps with
// the macros of afxmsg_.h; only this file and the message router look inside.
#pragma once

#include <bit>

class CCmdTarget;
class CCmdUI;
class CDC;
class CListBox;
class CMenu;
class CScrollBar;
class CWinThread;
class CWnd;

// Marks handlers that a message map names; expands to nothing.
#ifndef afx_msg
#define afx_msg
#endif

// A handler with its real type hidden; the entry's kind gives it back.
typedef void (CCmdTarget::*AFX_PMSG)();

// Codes with which commands travel through CCmdTarget::OnCmdMsg beside the controls' own codes.
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;

// The number under which the seven WM_CTLCOLOR... messages stand in a map.
constexpr UINT AFX_WM_CTLCOLOR = 0x0019;

// Messages that a parent sends back to the control that caused them bear this offset.
constexpr UINT WM_REFLECT_BASE = WM_USER + 0xB800;

// What a handler's kind gets to unpack, and where it leaves the outcome.
struct AFX_MSGCALL_ARGS
{
    CCmdTarget* pTarget; // the object whose map the entry stands in
    AFX_PMSG pfn;        // its handler
    UINT nMessage;       // message, without the offset of reflection
    WPARAM wParam;
    LPARAM lParam;
    UINT nID;             // commands: the command or control
    int nCode;            // commands: the notification code
    void* pExtra;         // commands: CCmdUI* or AFX_NOTIFY*
    LRESULT lResult = 0;  // out: the message's result
    BOOL bHandled = TRUE; // out: FALSE lets the message travel on
};

typedef void (*AFX_MSGCALL)(AFX_MSGCALL_ARGS& args);

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage = 0; // 0 ends the table
    UINT nCode = 0;    // notification code, CN_COMMAND or CN_UPDATE_COMMAND_UI
    UINT nID = 0;      // first and last id of the range
    UINT nLastID = 0;
    AFX_MSGCALL pCall = nullptr;       // kind of the handler
    AFX_PMSG pfn = nullptr;            // the handler
    const UINT* pRegistered = nullptr; // variable that holds the number of a registered message
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)(); // null for the last map of the chain
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// Where OnCmdMsg leaves the handler that it found, when the caller wants it named instead of called.
struct AFX_CMDHANDLERINFO
{
    CCmdTarget* pTarget;
    AFX_PMSG pmf;
};

// What travels as pExtra with a notification.
struct AFX_NOTIFY
{
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

// Hides a handler's type. The round trip through AFX_PMSG and back keeps every bit.
template <class Handler>
AFX_PMSG AfxHideHandler(Handler handler)
{
    static_assert(sizeof(Handler) == sizeof(AFX_PMSG));
    return std::bit_cast<AFX_PMSG>(handler);
}

// Kinds of handlers. Handler is the exact type that a map's member must have; Call unpacks the
// message and calls it.
#define AFX_HANDLER_KIND(name, target, result, ...)                                                          \
    struct AFX_CORE_API name                                                                                 \
    {                                                                                                        \
        using Handler = result (target::*)(__VA_ARGS__);                                                     \
        static void Call(AFX_MSGCALL_ARGS& args);                                                            \
    };

namespace AfxHandlerKind
{
AFX_HANDLER_KIND(Command, CCmdTarget, void)
AFX_HANDLER_KIND(CommandId, CCmdTarget, void, UINT)
AFX_HANDLER_KIND(CommandEx, CCmdTarget, BOOL, UINT)
AFX_HANDLER_KIND(ControlReflectEx, CCmdTarget, BOOL)
AFX_HANDLER_KIND(CommandUI, CCmdTarget, void, CCmdUI*)
AFX_HANDLER_KIND(Notify, CCmdTarget, void, NMHDR*, LRESULT*)
AFX_HANDLER_KIND(NotifyId, CCmdTarget, void, UINT, NMHDR*, LRESULT*)
AFX_HANDLER_KIND(NotifyEx, CCmdTarget, BOOL, UINT, NMHDR*, LRESULT*)
AFX_HANDLER_KIND(NotifyReflectEx, CCmdTarget, BOOL, NMHDR*, LRESULT*)

AFX_HANDLER_KIND(Message, CWnd, LRESULT, WPARAM, LPARAM)
AFX_HANDLER_KIND(ThreadMessage, CWinThread, void, WPARAM, LPARAM)

AFX_HANDLER_KIND(Plain, CWnd, void)
AFX_HANDLER_KIND(PlainBool, CWnd, BOOL)
AFX_HANDLER_KIND(PlainUint, CWnd, UINT)
AFX_HANDLER_KIND(PlainCursor, CWnd, HCURSOR)
AFX_HANDLER_KIND(Bool, CWnd, void, BOOL)
AFX_HANDLER_KIND(BoolBool, CWnd, BOOL, BOOL)
AFX_HANDLER_KIND(Uint, CWnd, void, UINT)
AFX_HANDLER_KIND(UintHiLo, CWnd, void, UINT, UINT)
AFX_HANDLER_KIND(BoolUint, CWnd, void, BOOL, UINT)
AFX_HANDLER_KIND(BoolDword, CWnd, void, BOOL, DWORD)
AFX_HANDLER_KIND(UintLparam, CWnd, void, UINT, LPARAM)
AFX_HANDLER_KIND(UintUint, CWnd, void, UINT, UINT)
AFX_HANDLER_KIND(UintUintUint, CWnd, UINT, UINT, UINT)
AFX_HANDLER_KIND(DeviceChange, CWnd, BOOL, UINT, DWORD_PTR)
AFX_HANDLER_KIND(UintText, CWnd, void, UINT, LPCTSTR)
AFX_HANDLER_KIND(Text, CWnd, void, LPCTSTR)
AFX_HANDLER_KIND(DeviceName, CWnd, void, LPTSTR)
AFX_HANDLER_KIND(Window, CWnd, void, CWnd*)
AFX_HANDLER_KIND(WindowFromLparam, CWnd, void, CWnd*)
AFX_HANDLER_KIND(WindowFormat, CWnd, UINT, CWnd*, UINT)
AFX_HANDLER_KIND(UintWindow, CWnd, void, UINT, CWnd*)
AFX_HANDLER_KIND(Activate, CWnd, void, UINT, CWnd*, BOOL)
AFX_HANDLER_KIND(Create, CWnd, int, LPCREATESTRUCT)
AFX_HANDLER_KIND(NcCreate, CWnd, BOOL, LPCREATESTRUCT)
AFX_HANDLER_KIND(Draw, CWnd, BOOL, CDC*)
AFX_HANDLER_KIND(DrawVoid, CWnd, void, CDC*)
AFX_HANDLER_KIND(CtlColor, CWnd, HBRUSH, CDC*, CWnd*, UINT)
AFX_HANDLER_KIND(CtlColorReflect, CWnd, HBRUSH, CDC*, UINT)
AFX_HANDLER_KIND(Mouse, CWnd, void, UINT, CPoint)
AFX_HANDLER_KIND(MouseButton, CWnd, void, UINT, UINT, CPoint)
AFX_HANDLER_KIND(NcMouseButton, CWnd, void, short, UINT, CPoint)
AFX_HANDLER_KIND(Wheel, CWnd, BOOL, UINT, short, CPoint)
AFX_HANDLER_KIND(WheelVoid, CWnd, void, UINT, short, CPoint)
AFX_HANDLER_KIND(NcHitTest, CWnd, LRESULT, CPoint)
AFX_HANDLER_KIND(Key, CWnd, void, UINT, UINT, UINT)
AFX_HANDLER_KIND(HotKey, CWnd, void, UINT, UINT, UINT)
AFX_HANDLER_KIND(MouseActivate, CWnd, int, CWnd*, UINT, UINT)
AFX_HANDLER_KIND(SetCursor, CWnd, BOOL, CWnd*, UINT, UINT)
AFX_HANDLER_KIND(Scroll, CWnd, void, UINT, UINT, CScrollBar*)
AFX_HANDLER_KIND(ScrollReflect, CWnd, void, UINT, UINT)
AFX_HANDLER_KIND(Position, CWnd, void, int, int)
AFX_HANDLER_KIND(Size, CWnd, void, UINT, int, int)
AFX_HANDLER_KIND(Moving, CWnd, void, UINT, LPRECT)
AFX_HANDLER_KIND(MinMax, CWnd, void, MINMAXINFO*)
AFX_HANDLER_KIND(NcCalcSize, CWnd, void, BOOL, NCCALCSIZE_PARAMS*)
AFX_HANDLER_KIND(WindowPos, CWnd, void, WINDOWPOS*)
AFX_HANDLER_KIND(Style, CWnd, void, int, LPSTYLESTRUCT)
AFX_HANDLER_KIND(Timer, CWnd, void, UINT_PTR)
AFX_HANDLER_KIND(InitMenu, CWnd, void, CMenu*)
AFX_HANDLER_KIND(InitMenuPopup, CWnd, void, CMenu*, UINT, BOOL)
AFX_HANDLER_KIND(UninitMenuPopup, CWnd, void, CMenu*, UINT)
AFX_HANDLER_KIND(MenuSelect, CWnd, void, UINT, UINT, HMENU)
AFX_HANDLER_KIND(MenuChar, CWnd, LRESULT, UINT, UINT, CMenu*)
AFX_HANDLER_KIND(MenuDrag, CWnd, UINT, UINT, CMenu*)
AFX_HANDLER_KIND(MenuButton, CWnd, void, UINT, CMenu*)
AFX_HANDLER_KIND(NextMenu, CWnd, void, UINT, LPMDINEXTMENU)
AFX_HANDLER_KIND(ContextMenu, CWnd, void, CWnd*, CPoint)
AFX_HANDLER_KIND(HelpInfo, CWnd, BOOL, HELPINFO*)
AFX_HANDLER_KIND(CopyData, CWnd, BOOL, CWnd*, COPYDATASTRUCT*)
AFX_HANDLER_KIND(DropFiles, CWnd, void, HDROP)
AFX_HANDLER_KIND(DrawItem, CWnd, void, int, LPDRAWITEMSTRUCT)
AFX_HANDLER_KIND(MeasureItem, CWnd, void, int, LPMEASUREITEMSTRUCT)
AFX_HANDLER_KIND(DeleteItem, CWnd, void, int, LPDELETEITEMSTRUCT)
AFX_HANDLER_KIND(CompareItem, CWnd, int, int, LPCOMPAREITEMSTRUCT)
AFX_HANDLER_KIND(DrawItemReflect, CWnd, void, LPDRAWITEMSTRUCT)
AFX_HANDLER_KIND(MeasureItemReflect, CWnd, void, LPMEASUREITEMSTRUCT)
AFX_HANDLER_KIND(DeleteItemReflect, CWnd, void, LPDELETEITEMSTRUCT)
AFX_HANDLER_KIND(CompareItemReflect, CWnd, int, LPCOMPAREITEMSTRUCT)
AFX_HANDLER_KIND(KeyToItem, CWnd, int, UINT, CListBox*, UINT)
AFX_HANDLER_KIND(KeyToItemReflect, CWnd, int, UINT, UINT)
AFX_HANDLER_KIND(ParentNotify, CWnd, void, UINT, LPARAM)
AFX_HANDLER_KIND(AppCommand, CWnd, void, CWnd*, UINT, UINT, UINT)
} // namespace AfxHandlerKind

// Gives a class its message map; the map itself stands between BEGIN_MESSAGE_MAP and
// END_MESSAGE_MAP in one source.
#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* PASCAL GetThisMessageMap();                                                     \
    virtual const AFX_MSGMAP* GetMessageMap() const;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                               \
    const AFX_MSGMAP* theClass::GetMessageMap() const                                                        \
    {                                                                                                        \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap()                                                   \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = theClass;                                                         \
        using TheBaseClass [[maybe_unused]] = baseClass;                                                     \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define BEGIN_TEMPLATE_MESSAGE_MAP(theClass, type_name, baseClass)                                           \
    template <typename type_name>                                                                            \
    const AFX_MSGMAP* theClass<type_name>::GetMessageMap() const                                             \
    {                                                                                                        \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    template <typename type_name>                                                                            \
    const AFX_MSGMAP* PASCAL theClass<type_name>::GetThisMessageMap()                                        \
    {                                                                                                        \
        using ThisClass [[maybe_unused]] = theClass<type_name>;                                              \
        using TheBaseClass [[maybe_unused]] = baseClass;                                                     \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    AFX_MSGMAP_ENTRY {}                                                                                      \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, messageEntries};                 \
    return &messageMap;                                                                                      \
    }
