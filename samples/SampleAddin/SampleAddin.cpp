// A small add-in: one menu and one toolbar of drafting commands.
#include "VelmUtil22.h"

#include <afxdllx.h>
#include <comdef.h>

#include <exception>
#include <string>

#include "DescriptionFile.h"
#include "SampleAddin.h"
#include "resource.h"

namespace
{

AFX_EXTENSION_MODULE sampleAddinModule = {};

// The add-in's own file, whatever it was renamed to. The buttons' bitmaps lie beside it.
std::wstring OwnFileName()
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(sampleAddinModule.hModule, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(2 * name.size());
    }
}

bool Build(const wchar_t* fileName)
{
    std::wstring module = OwnFileName();
    if (fileName == nullptr) {
        Append_MenuToolBar(IDR_DESCRIPTION, L"XML", module.data());
        return true;
    }
    const std::optional<CString> description = ReadDescription(fileName);
    if (!description) {
        AfxMessageBox(CString(L"The description cannot be read:\n") + fileName);
        return false;
    }
    Append_MenuToolBar(*description, module.data());
    return true;
}

} // namespace

int AddInBuild(const wchar_t* fileName)
{
    // The host's message loop is no place for exceptions of an add-in.
    try {
        return Build(fileName) ? 0 : 1;
    } catch (CException* exception) {
        exception->ReportError();
        exception->Delete();
    } catch (const _com_error& error) {
        AfxMessageBox(error.ErrorMessage());
    } catch (const std::exception&) {
        AfxMessageBox(L"The menu and the toolbar could not be built.");
    }
    return 1;
}

int AddInStart()
{
    const int own = AddInBuild(nullptr);
    const CString file = DescriptionFromCommandLine();
    const int second = file.IsEmpty() ? 0 : AddInBuild(file);
    return own != 0 ? own : second;
}

void AddInStop() {}

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(sampleAddinModule, instance))
            return 0;
        new CDynLinkLibrary(sampleAddinModule);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(sampleAddinModule);
    }
    return 1;
}
