// A client in a process of its own: finds the running host, adds a menu and a toolbar, reads them back.
// Ends with 0, or with 1 after naming the first step that failed.

#include <windows.h>
#include <ole2.h>

#include <cstdio>
#include <string>
#include <vector>

namespace
{

struct Failure
{
    std::string step;
    HRESULT result;
};

void Require(HRESULT result, const std::string& step)
{
    if (FAILED(result))
        throw Failure{step, result};
}

struct Value : VARIANT
{
    Value() { VariantInit(this); }
    Value(long number) : Value()
    {
        vt = VT_I4;
        lVal = number;
    }
    Value(const wchar_t* text) : Value()
    {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    Value(Value&& other) noexcept : Value() { std::swap<VARIANT>(*this, other); }
    ~Value() { VariantClear(this); }
};

Value Invoke(IDispatch* object, const wchar_t* name, std::vector<VARIANT> reversed = {})
{
    std::string step(name, name + wcslen(name));
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID id = DISPID_UNKNOWN;
    Require(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id), step);
    DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Value result;
    Require(object->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params,
                           &result, nullptr, nullptr),
            step);
    return result;
}

IDispatch* ObjectIn(const Value& value)
{
    if (value.vt != VT_DISPATCH || !value.pdispVal)
        throw Failure{"an object was expected", E_UNEXPECTED};
    return value.pdispVal;
}

void Run()
{
    CLSID classId;
    Require(CLSIDFromProgID(L"VelmHost.Application", &classId), "class of the host");
    Value unknown;
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = nullptr;
    Require(GetActiveObject(classId, nullptr, &unknown.punkVal), "running host");
    Value application;
    application.vt = VT_DISPATCH;
    application.pdispVal = nullptr;
    Require(unknown.punkVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&application.pdispVal)),
            "dispatch of the host");

    const Value groups = Invoke(ObjectIn(application), L"MenuGroups");
    const Value group = Invoke(ObjectIn(groups), L"Item", {Value(0L)});
    const Value menus = Invoke(ObjectIn(group), L"Menus");
    const Value name(L"&Client"), label(L"Item"), macro(L"\x03_item "), index(0L);
    const Value menu = Invoke(ObjectIn(menus), L"Add", {name});
    const Value item = Invoke(ObjectIn(menu), L"AddMenuItem", {macro, label, index});
    const Value read = Invoke(ObjectIn(item), L"Macro");
    if (read.vt != VT_BSTR || std::wstring(read.bstrVal) != L"\x03_item ")
        throw Failure{"the macro reads differently", E_UNEXPECTED};
    Invoke(ObjectIn(menu), L"InsertInMenuBar", {index});
    const Value toolbars = Invoke(ObjectIn(group), L"Toolbars");
    const Value toolbarName(L"Client");
    const Value toolbar = Invoke(ObjectIn(toolbars), L"Add", {toolbarName});
    const Value count = Invoke(ObjectIn(toolbar), L"Count");
    if (count.vt != VT_I4 || count.lVal != 0)
        throw Failure{"a new toolbar is not empty", E_UNEXPECTED};
}

} // namespace

int main()
{
    if (FAILED(CoInitialize(nullptr)))
        return 2;
    int status = 0;
    try {
        Run();
    } catch (const Failure& failure) {
        std::printf("%s: %08lx\n", failure.step.c_str(), static_cast<unsigned long>(failure.result));
        status = 1;
    }
    CoUninitialize();
    return status;
}
