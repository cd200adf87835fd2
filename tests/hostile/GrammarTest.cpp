// Documents that break one production of XML's grammar each, as files and as resources.
#include "GrammarTable.h"

#include <algorithm>
#include <set>

#include "MemoryResource.h"
#include "MutantTest.h"
#include "kit/Files.h"

using namespace hostile;

namespace
{

bool IsWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

class Grammar : public testing::Test
{
protected:
    Grammar() { (void)CoInitialize(nullptr); }
    ~Grammar() override { CoUninitialize(); }

    // What the library must say of it.
    static bool MustLoad(const GrammarCase& broken)
    {
        if (broken.document.find("<!DOCTYPE") != std::string::npos && !IsWine())
            return false;
        return broken.verdict == Verdict::Loads || (broken.verdict == Verdict::AcceptedHere && IsWine());
    }

    bool LoadsAsFile(const std::string& document)
    {
        testkit::WriteBytes(m_folder / L"case.xml", document);
        CXMLFile file((m_folder / L"case.xml").c_str());
        return file.LoadFile();
    }

    bool LoadsAsResource(const std::string& document)
    {
        m_resource.Give(document);
        CXMLFile file;
        return file.setXMLStringFromResource(1, L"XML", L"");
    }

    testkit::TempFolder m_folder;
    MemoryResource m_resource;
};

} // namespace

TEST_F(Grammar, EveryBrokenProductionIsRefusedInAFile)
{
    for (const GrammarCase& broken : GrammarCases())
        EXPECT_EQ(LoadsAsFile(broken.document), MustLoad(broken))
            << broken.production << ": " << broken.document;
    EXPECT_THAT(Host().TakeMessages(), testing::IsEmpty());
}

TEST_F(Grammar, EveryBrokenProductionIsRefusedInAResource)
{
    for (const GrammarCase& broken : GrammarCases()) {
        // Resources are text in the process's own encoding.
        const bool isAscii = std::all_of(broken.document.begin(), broken.document.end(),
                                         [](char c) { return static_cast<unsigned char>(c) < 128; });
        if (isAscii) {
            EXPECT_EQ(LoadsAsResource(broken.document), MustLoad(broken))
                << broken.production << ": " << broken.document;
        }
    }
    EXPECT_THAT(Host().TakeMessages(), testing::IsEmpty());
}

TEST_F(Grammar, EveryProductionHasACaseThatBreaksIt)
{
    std::set<std::string> broken;
    for (const GrammarCase& one : GrammarCases()) {
        if (one.verdict != Verdict::Loads)
            broken.insert(one.production.substr(0, one.production.find(' ')));
    }
    for (const std::string& number : Productions())
        EXPECT_TRUE(broken.contains(number)) << number;
    const auto accepted =
        std::count_if(GrammarCases().begin(), GrammarCases().end(),
                      [](const GrammarCase& one) { return one.verdict == Verdict::AcceptedHere; });
    testkit::Figure("documents for the productions of the grammar", GrammarCases().size());
    testkit::Figure("of these not well-formed, but accepted here", static_cast<unsigned long long>(accepted));
}
