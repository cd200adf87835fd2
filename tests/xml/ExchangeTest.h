// What the tests of exchanging attributes share.
#pragma once

#include "XmlNodes.h"

#include <cstring>

// The name under which all of these exchange.
inline const wchar_t Name[] = L"Width";

class ExchangeTest : public XmlNodeTest
{
protected:
    // The text that a value is written as.
    template <class Value>
    std::wstring Written(Value value)
    {
        CXMLFile file = LoadedAt("<r/>");
        const Value before = value;
        file.CreateAttrib(Writable(Name), value);
        EXPECT_EQ(std::memcmp(&value, &before, sizeof value), 0);
        EXPECT_EQ(AttributeNodes(file.m_pCurNode).size(), 1u);
        return AttributeValue(file.m_pCurNode, Name).value_or(L"no attribute");
    }

    // What a variable that holds `value` holds after it was read from an attribute with that text.
    template <class Value>
    Value Read(const char* text, Value value)
    {
        CXMLFile file = LoadedAt("<r Width=\"" + std::string(text) + "\"/>");
        const std::wstring before = TreeOfDocument(file);
        file.m_bReadMode = true;
        file.CreateAttrib(Writable(Name), value);
        EXPECT_EQ(TreeOfDocument(file), before);
        return value;
    }

    // What is read back of what was written.
    template <class Value>
    Value Back(Value value)
    {
        CXMLFile file = LoadedAt("<r/>");
        file.CreateAttrib(Writable(Name), value);
        file.m_bReadMode = true;
        Value read{};
        file.CreateAttrib(Writable(Name), read);
        return read;
    }
};
