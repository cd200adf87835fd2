// The arguments and the result of one call of an automation member.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <string>
#include <vector>

#include "automation/ComOwner.h"
#include "model/HostModel.h"

namespace velmhost
{

// How an argument is taken from its variant. References are followed first.
enum class ArgumentType
{
    Index,   // any number, rounded to a whole one, or text; nothing else
    Text,    // text, or what the platform turns into text
    Number,  // what the platform turns into a 32-bit number
    Flag,    // what the platform turns into a boolean
    OutText, // a reference to text or to a variant, which receives the text
    Object   // anything; not looked at
};

struct Argument
{
    const wchar_t* name;
    ArgumentType type;
    bool optional = false;
};

// Thrown by value by what finds a call's arguments wrong; Invoke returns it bare.
struct ArgumentFailure
{
    HRESULT result;
    UINT position; // in the caller's array of arguments
};

class DispatchCall
{
    // Construction
public:
    // Sorts the arguments that the caller passed, by position and by name, and converts them all.
    // `result` may be null. Throws ArgumentFailure.
    DispatchCall(const std::vector<Argument>& arguments, const DISPPARAMS& passed, VARIANT* result);
    // The same for a property put, whose one argument is the new value.
    DispatchCall(const Argument& value, const DISPPARAMS& passed);

    // Attributes: arguments by position, of the type declared for them
public:
    bool IsGiven(size_t position) const { return m_values[position].given; }
    const Index& IndexAt(size_t position) const { return m_values[position].index; }
    const std::wstring& Text(size_t position = 0) const { return m_values[position].text; }
    long Number(size_t position = 0) const { return m_values[position].number; }
    // False for an optional argument that is missing.
    bool Flag(size_t position = 0) const { return m_values[position].number != 0; }

    // Operations
public:
    // Each sets the result; without, it stays empty.
    void Return(const std::wstring& text);
    void Return(long number);
    void Return(bool flag);
    // A null object is returned as such.
    void Return(ComOwner<IDispatch> object);
    void Return(ComOwner<IUnknown> object);
    // As an array of variants with text.
    void Return(const std::vector<std::wstring>& texts);
    void Return(const wchar_t* text) { Return(std::wstring(text)); }

    // Hands text to the caller's variable of an OutText argument, whose old value is freed.
    void SetText(size_t position, const std::wstring& text);

    // Implementation
private:
    struct Value
    {
        bool given = false;
        Index index = 0L;
        std::wstring text;
        long number = 0;
        const VARIANT* target = nullptr;
    };

    static Value Convert(const Argument& argument, const VARIANT& source, UINT position);

    std::vector<Value> m_values;
    VARIANT* m_result = nullptr;
};

} // namespace velmhost
