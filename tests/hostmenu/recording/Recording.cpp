#include "Recording.h"

#include <afxdllx.h>

#include <memory>
#include <set>

#include "CountedObject.h"

namespace
{

struct Recorder
{
    std::vector<std::wstring> log;
    std::vector<std::unique_ptr<CCountedObject>> objects;
    std::map<int, std::function<void()>> actions;
    std::set<int> nullResults;
    IDispatch* application = nullptr;
    int calls = 0;
};

Recorder& TheRecorder()
{
    static Recorder recorder;
    return recorder;
}

std::wstring Quoted(const wchar_t* text)
{
    return text == nullptr ? L"null" : L'"' + std::wstring(text) + L'"';
}

std::wstring NameOf(IDispatch* object)
{
    if (object == nullptr)
        return L"null";
    if (object == TheRecorder().application)
        return L"app";
    for (const auto& known : TheRecorder().objects) {
        if (known.get() == object)
            return known->Name();
    }
    return L"unknown";
}

std::wstring Flag(bool flag)
{
    return flag ? L"true" : L"false";
}

void BeginCall(const std::wstring& line)
{
    Recorder& recorder = TheRecorder();
    recorder.log.push_back(line);
    const auto action = recorder.actions.find(++recorder.calls);
    if (action != recorder.actions.end())
        action->second();
}

IDispatch* MakeObject(const wchar_t* kind, const std::wstring& call)
{
    Recorder& recorder = TheRecorder();
    const std::wstring name = kind + std::to_wstring(recorder.objects.size() + 1);
    BeginCall(name + L" = " + call);
    if (recorder.nullResults.count(recorder.calls) != 0)
        return nullptr;
    recorder.objects.push_back(std::make_unique<CCountedObject>(name));
    return recorder.objects.back().get();
}

AFX_EXTENSION_MODULE recordingModule = {};

} // namespace

namespace recording
{

void Reset()
{
    TheRecorder() = Recorder();
}

std::vector<std::wstring> Log()
{
    return TheRecorder().log;
}

void Note(const std::wstring& line)
{
    TheRecorder().log.push_back(line);
}

void NameApplication(IDispatch* application)
{
    TheRecorder().application = application;
}

std::map<std::wstring, long> References()
{
    std::map<std::wstring, long> references;
    for (const auto& object : TheRecorder().objects)
        references[object->Name()] = object->References();
    return references;
}

void InCall(int n, std::function<void()> action)
{
    TheRecorder().actions[n] = std::move(action);
}

void ReturnNullInCall(int n)
{
    TheRecorder().nullResults.insert(n);
}

int CallCount()
{
    return TheRecorder().calls;
}

} // namespace recording

IDispatch* Create_ACADMenu(IDispatch* application, const wchar_t* name)
{
    return MakeObject(L"menu", L"Create_ACADMenu(" + NameOf(application) + L", " + Quoted(name) + L")");
}

IDispatch* Create_ACADToolBar(IDispatch* application, const wchar_t* name)
{
    return MakeObject(L"toolbar", L"Create_ACADToolBar(" + NameOf(application) + L", " + Quoted(name) + L")");
}

bool Append_MenuItem(IAcadPopupMenu menu, const wchar_t* label, const wchar_t* macro, const wchar_t* help,
                     bool first, bool second)
{
    BeginCall(L"Append_MenuItem(" + NameOf(menu) + L", " + Quoted(label) + L", " + Quoted(macro) + L", " +
              Quoted(help) + L", " + Flag(first) + L", " + Flag(second) + L")");
    return true;
}

IDispatch* Append_SubMenu(IAcadPopupMenu menu, const wchar_t* label)
{
    return MakeObject(L"submenu", L"Append_SubMenu(" + NameOf(menu) + L", " + Quoted(label) + L")");
}

bool Append_ToolBarItem(IAcadToolbar toolbar, const wchar_t* macro, const wchar_t* tooltip,
                        const wchar_t* smallImage, const wchar_t* largeImage, bool isFlyout,
                        IAcadToolbar flyout)
{
    BeginCall(L"Append_ToolBarItem(" + NameOf(toolbar) + L", " + Quoted(macro) + L", " + Quoted(tooltip) +
              L", " + Quoted(smallImage) + L", " + Quoted(largeImage) + L", " + Flag(isFlyout) + L", " +
              NameOf(flyout) + L")");
    return true;
}

void IAcadToolbar::SetVisible(int visible)
{
    BeginCall(L"SetVisible(" + NameOf(*this) + L", " + std::to_wstring(visible) + L")");
}

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(recordingModule, instance))
            return 0;
        new CDynLinkLibrary(recordingModule);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(recordingModule);
    }
    return 1;
}
