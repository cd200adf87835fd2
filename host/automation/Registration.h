// How other processes find the host.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <string>

namespace velmhost
{

// Class and programmatic identifier of the host's application object. The version-bound identifier has
// the major version after it and stands for the same class.
extern const CLSID CLSID_VelmHostApplication;
inline constexpr wchar_t kHostProgId[] = L"VelmHost.Application";
inline constexpr wchar_t kHostVersionedProgId[] = L"VelmHost.Application.22";

// Writes the class and both identifiers under HKEY_CLASSES_ROOT, with `program` (a full file name) as the
// server to start; the platform starts it with "-Embedding" added. Returns what the registry said; needs
// the right to write there. Rests on RegCreateKeyEx and RegSetValueEx.
HRESULT RegisterHostClass(const std::wstring& program);

// Removes what RegisterHostClass writes. S_OK also when nothing was there.
HRESULT UnregisterHostClass();

// The full file name of the running program.
std::wstring HostProgramFile();

// While it lives, the application object can be reached from other processes: as the running object
// of its class (GetActiveObject) and through a class object (CoCreateInstance, local server), which
// always hands out this one object. COM must be initialised on the thread, which must dispatch messages
// for calls to arrive. Look-ups by programmatic identifier need the class in the registry. References
// that the registration holds count as clients' references on the application object.
class HostRegistration
{
    // Construction
public:
    // Registers `application`, which must outlive this. Check Result: a failure of either registration
    // leaves the other in place.
    explicit HostRegistration(IDispatch* application);
    // Takes both back and cuts remote clients off.
    ~HostRegistration();
    HostRegistration(const HostRegistration&) = delete;
    HostRegistration& operator=(const HostRegistration&) = delete;

    // Attributes
public:
    // S_OK, or the first failure.
    HRESULT Result() const { return m_result; }

    // Implementation
private:
    IDispatch* m_application;
    DWORD m_active = 0;
    DWORD m_classObject = 0;
    HRESULT m_result = S_OK;
};

} // namespace velmhost
