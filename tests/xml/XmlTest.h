// What the tests of the XML document class share.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kit/Files.h"
#include "kit/MessageBoxWatch.h"
#include "kit/Text.h"

// COM for the test's thread, a folder for its files, and every message box of it noted.
class XmlTest : public testing::Test
{
protected:
    XmlTest() { (void)CoInitialize(nullptr); }
    ~XmlTest() override { CoUninitialize(); }

    // A document with this text; fails the test if it is not well-formed.
    CXMLFile Loaded(std::string_view utf8, std::wstring_view fileName = L"document.xml")
    {
        testkit::WriteBytes(m_folder / fileName, utf8);
        CXMLFile file(PathOf(fileName));
        EXPECT_TRUE(file.LoadFile()) << utf8;
        return file;
    }

    CString PathOf(std::wstring_view fileName) const { return (m_folder / fileName).c_str(); }

    std::vector<std::wstring> Messages() const { return m_watch.Texts(); }

    testkit::TempFolder m_folder;
    testkit::MessageBoxWatch m_watch;
};

// The result code of the _com_error that `operation` raises; S_OK if it raises nothing.
template <class Operation>
HRESULT ComFailureOf(Operation operation)
{
    try {
        operation();
    } catch (const _com_error& e) {
        return e.Error();
    }
    return S_OK;
}
