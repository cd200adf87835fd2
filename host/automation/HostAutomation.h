// The automation objects over a host model.
//
// The root is the application object; from it clients reach Application, MenuGroups, MenuGroup,
// PopupMenus, PopupMenu, PopupMenuItem, MenuBar, Toolbars, Toolbar, ToolbarItem and AcadState objects.
// All are late-bound (IDispatch without type information) and belong to the thread of the model. They
// hold ids into the model, never pointers: once their element is gone, all their members fail with
// RPC_E_DISCONNECTED and a description, and once the HostAutomation is gone, all members of all objects
// do. For what needs a shell see SetShell. One element has one object for as long as somebody holds it, so
// that clients can compare objects.
//
// Indexes and names follow the rules of Index in HostModel.h. An index may be any number, which is rounded
// to a whole one, or text, which is always a name; other types are refused. A property that is given
// arguments means the default member of the object that it yields, as in `group.Menus(0)`. What is added to
// a full menu yields a null object and no failure. Parent of a menu is the PopupMenus collection, of a
// sub-menu the menu that holds it. GetBitmaps replaces what the two variables held. HWND is a 32-bit
// number, ListArx an array of variants with text. The host has no documents, preferences or projects of
// macros, creates no objects of other programs and saves no menu groups: ActiveDocument, Documents,
// Preferences, RunMacro, GetInterfaceObject, Save and SaveAs are there and refuse (E_NOTIMPL). For
// MenuGroups.Load see MenuFile.h.
//
// Failures. What the dispatch layer itself finds comes first, but for the end of the host, and is returned
// bare: DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTOPTIONAL, DISP_E_PARAMNOTFOUND,
// DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW and DISP_E_UNKNOWNNAME. What a member refuses is DISP_E_EXCEPTION
// with source "VelmHost.Application", a description and scode: DISP_E_BADINDEX (nothing at that index or
// name), E_INVALIDARG (value), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS) (name taken), E_ACCESSDENIED (not
// on this kind of element or not in this state), RPC_E_SERVERCALL_RETRYLATER (busy), STG_E_FILENOTFOUND,
// HRESULT_FROM_WIN32(ERROR_INVALID_DATA) (menu file), E_NOTIMPL (no such thing here),
// RPC_E_DISCONNECTED (element gone). Without an EXCEPINFO to fill, the scode itself is returned.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <memory>
#include <string>
#include <vector>

#include "model/HostModel.h"
#include "model/HostShell.h"

namespace velmhost
{

class AutomationState;
class ApplicationObject;

inline constexpr wchar_t kHostName[] = L"Velm Host";
inline constexpr wchar_t kHostVersion[] = L"22.0";
inline constexpr wchar_t kHostSource[] = L"VelmHost.Application";

// A failure to be played to a client.
struct InvokeFault
{
    // What Invoke returns: DISP_E_EXCEPTION to hand out the texts, any other failure for a bare one.
    HRESULT result = DISP_E_EXCEPTION;
    HRESULT scode = E_FAIL; // these four go into the EXCEPINFO; a code other than 0 goes there
    WORD code = 0;          // instead of scode
    std::wstring source = kHostSource;
    std::wstring description = L"The host failed on request.";
    bool forever = false; // false: only the one call fails; true: all from that one on
};

// Counts the references to the application object in place of the object itself.
class ReferenceOwner
{
public:
    virtual ULONG AddReference() = 0;
    virtual ULONG ReleaseReference() = 0;
    // References that clients hold now.
    virtual long ClientReferences() = 0;

protected:
    ~ReferenceOwner() = default;
};

class HostAutomation
{
    // Construction
public:
    // `model`, and `owner` if any, must live longer than this. Without an owner the application object
    // counts its references itself.
    explicit HostAutomation(HostModel& model, ReferenceOwner* owner = nullptr);
    // Objects that clients still hold live on and fail.
    ~HostAutomation();
    HostAutomation(const HostAutomation&) = delete;
    HostAutomation& operator=(const HostAutomation&) = delete;

    // Attributes
public:
    // The application object, without a reference added.
    IDispatch* Application() const;

    // The shell that answers for the window and the add-ins; null while there is none, which is the
    // case at first. Not owned. Without a shell the host reads as a hidden window of no size that is
    // quiescent and has no add-ins; what would act on the window or on add-ins is refused
    // (E_NOTIMPL).
    HostShell* Shell() const;
    void SetShell(HostShell* shell);

    // Operations: for tests
public:
    // Objects that clients hold now, enumerators included, the application object not.
    long LiveObjects() const;
    // References that clients hold on those objects.
    long OutstandingReferences() const;
    // References that clients hold on the application object.
    long ApplicationReferences() const;

    // Lets the n-th Invoke from now fail, 1 being the next one, before it does anything. 0 takes a
    // fault back that has not come yet.
    void FailInvoke(unsigned n, const InvokeFault& fault);
    // Number of calls of Invoke since the start.
    unsigned InvokeCount() const;

    // Keeps a line for each Invoke: class and member, as "Toolbars.Add"; properties with " get" or
    // " put" after it. Off at first. TakeLog returns the lines and forgets them.
    void KeepLog(bool keep);
    std::vector<std::wstring> TakeLog();

    // Implementation
private:
    std::shared_ptr<AutomationState> m_state;
    ApplicationObject* m_application; // one reference of it is ours
};

} // namespace velmhost
