#include "automation/Registration.h"

#include "automation/ComOwner.h"
#include "automation/HostAutomation.h"

namespace velmhost
{

// {5B0D6C1E-3A74-4D0F-9E5B-7C3F2A91D846}
const CLSID CLSID_VelmHostApplication = {
    0x5B0D6C1E, 0x3A74, 0x4D0F, {0x9E, 0x5B, 0x7C, 0x3F, 0x2A, 0x91, 0xD8, 0x46}};

namespace
{

class RegistryKey
{
public:
    // Creates the key below HKEY_CLASSES_ROOT if need be.
    explicit RegistryKey(const std::wstring& name)
    {
        m_error = RegCreateKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &m_key,
                                  nullptr);
    }
    ~RegistryKey()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    // Sets the key's own value.
    LSTATUS Set(const std::wstring& text) const
    {
        if (m_error != ERROR_SUCCESS)
            return m_error;
        return RegSetValueExW(m_key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

private:
    HKEY m_key = nullptr;
    LSTATUS m_error;
};

std::wstring ClassIdText()
{
    wchar_t text[39] = {};
    StringFromGUID2(CLSID_VelmHostApplication, text, 39);
    return text;
}

// Hands out the one application object.
class ApplicationFactory : public IClassFactory
{
public:
    explicit ApplicationFactory(IDispatch* application) : m_application(application)
    {
        application->AddRef();
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory)
            return E_NOINTERFACE;
        *object = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&m_references)); }
    STDMETHODIMP_(ULONG) Release() override
    {
        const LONG left = InterlockedDecrement(&m_references);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        return outer ? CLASS_E_NOAGGREGATION : m_application->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    virtual ~ApplicationFactory() = default;

    const ComOwner<IDispatch> m_application;
    LONG m_references = 1;
};

} // namespace

std::wstring HostProgramFile()
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

HRESULT RegisterHostClass(const std::wstring& program)
{
    const std::wstring classId = ClassIdText();
    const std::wstring classKey = L"CLSID\\" + classId;
    const struct
    {
        std::wstring key;
        std::wstring value;
    } values[] = {
        {classKey, kHostName},
        {classKey + L"\\LocalServer32", L"\"" + program + L"\""},
        {classKey + L"\\ProgID", kHostVersionedProgId},
        {classKey + L"\\VersionIndependentProgID", kHostProgId},
        {kHostProgId, kHostName},
        {std::wstring(kHostProgId) + L"\\CLSID", classId},
        {std::wstring(kHostProgId) + L"\\CurVer", kHostVersionedProgId},
        {kHostVersionedProgId, kHostName},
        {std::wstring(kHostVersionedProgId) + L"\\CLSID", classId},
    };
    for (const auto& value : values) {
        const LSTATUS error = RegistryKey(value.key).Set(value.value);
        if (error != ERROR_SUCCESS)
            return HRESULT_FROM_WIN32(error);
    }
    return S_OK;
}

HRESULT UnregisterHostClass()
{
    HRESULT result = S_OK;
    for (const std::wstring& key :
         {L"CLSID\\" + ClassIdText(), std::wstring(kHostProgId), std::wstring(kHostVersionedProgId)})
    {
        const LSTATUS error = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
        if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND && SUCCEEDED(result))
            result = HRESULT_FROM_WIN32(error);
    }
    return result;
}

HostRegistration::HostRegistration(IDispatch* application) : m_application(application)
{
    m_result = RegisterActiveObject(m_application, CLSID_VelmHostApplication, ACTIVEOBJECT_STRONG, &m_active);
    const ComOwner<IClassFactory> factory(new ApplicationFactory(m_application));
    const HRESULT result = CoRegisterClassObject(CLSID_VelmHostApplication, factory.get(),
                                                 CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &m_classObject);
    if (SUCCEEDED(m_result))
        m_result = FAILED(result) ? result : m_result;
}

HostRegistration::~HostRegistration()
{
    if (m_active)
        RevokeActiveObject(m_active, nullptr);
    if (m_classObject)
        CoRevokeClassObject(m_classObject);
    CoDisconnectObject(m_application, 0);
}

} // namespace velmhost
