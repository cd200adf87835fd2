#include "VelmUtil22.h"
#include "kit/Files.h"

#include <afxdllx.h>
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// The entry with MFC's part played by the test: what it calls, in which order, with what.
namespace played
{

std::vector<std::string> calls;
BOOL initResult = TRUE;
bool memoryIsShort = false;
AFX_EXTENSION_MODULE* state = nullptr;
HMODULE module = nullptr;

BOOL Init(AFX_EXTENSION_MODULE& given, HMODULE instance)
{
    calls.push_back("init");
    state = &given;
    module = instance;
    return initResult;
}

void Term(AFX_EXTENSION_MODULE& given, BOOL all)
{
    calls.push_back(std::string("term ") + (&given == state ? "same " : "other ") + (all ? "all" : "one"));
}

struct DynLinkLibrary
{
    DynLinkLibrary(AFX_EXTENSION_MODULE& given, BOOL system)
    {
        calls.push_back(std::string("join ") + (&given == state ? "same " : "other ") +
                        (system ? "system" : "user"));
    }
    static void* operator new(size_t size)
    {
        static std::byte place[64];
        if (memoryIsShort || size > sizeof place)
            AfxThrowMemoryException();
        return place;
    }
    static void operator delete(void*) {}
};

} // namespace played

#define AfxInitExtensionModule played::Init
#define AfxTermExtensionModule played::Term
#define CDynLinkLibrary played::DynLinkLibrary
#define DllMain PlayedDllMain
#include "frame/Entry.cpp"
#undef DllMain
#undef CDynLinkLibrary
#undef AfxTermExtensionModule
#undef AfxInitExtensionModule

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

const HINSTANCE SomeInstance = reinterpret_cast<HINSTANCE>(0x10000);

class Entry : public testing::Test
{
protected:
    void SetUp() override
    {
        played::calls.clear();
        played::initResult = TRUE;
        played::memoryIsShort = false;
    }
    void TearDown() override { std::vector<std::string>().swap(played::calls); }
};

// Where the program's chain of libraries finds a version resource.
HINSTANCE VersionResourceHolder()
{
    return AfxFindResourceHandle(MAKEINTRESOURCE(VS_VERSION_INFO), RT_VERSION);
}

} // namespace

TEST_F(Entry, InitialisesTheModuleAndThenJoinsTheChain)
{
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_PROCESS_ATTACH, nullptr), 1);
    EXPECT_THAT(played::calls, ElementsAre("init", "join same user"));
    EXPECT_EQ(played::module, SomeInstance);
}

TEST_F(Entry, FailsTheLoadWhenTheModuleCannotBeInitialised)
{
    played::initResult = FALSE;
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_PROCESS_ATTACH, nullptr), 0);
    EXPECT_THAT(played::calls, ElementsAre("init"));
}

TEST_F(Entry, LoadsEvenWhenThereIsNoMemoryForTheChain)
{
    played::memoryIsShort = true;
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_PROCESS_ATTACH, nullptr), 1);
    EXPECT_THAT(played::calls, ElementsAre("init"));
}

TEST_F(Entry, TerminatesTheModuleAtTheEnd)
{
    PlayedDllMain(SomeInstance, DLL_PROCESS_ATTACH, nullptr);
    played::calls.clear();
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_PROCESS_DETACH, nullptr), 1);
    EXPECT_THAT(played::calls, ElementsAre("term same one"));
}

TEST_F(Entry, DoesNothingForThreads)
{
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_THREAD_ATTACH, nullptr), 1);
    EXPECT_EQ(PlayedDllMain(SomeInstance, DLL_THREAD_DETACH, nullptr), 1);
    EXPECT_THAT(played::calls, IsEmpty());
}

TEST(LoadedLibrary, BearsAVersionResource)
{
    const HMODULE library = GetModuleHandleW(L"VelmUtil22.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_NE(FindResourceW(library, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION), nullptr);
}

TEST(LoadedLibrary, JoinsTheChainAtLoadAndLeavesItAtUnload)
{
    const HINSTANCE before = VersionResourceHolder();
    const testkit::TempFolder scratch;
    const std::wstring copy = (scratch / L"VelmUtil22Copy.dll").wstring();
    ASSERT_TRUE(
        CopyFileW((std::wstring(GetProjectPath(nullptr)) + L"VelmUtil22.dll").c_str(), copy.c_str(), FALSE));
    const HMODULE library = LoadLibraryW(copy.c_str());
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(VersionResourceHolder(), library);
    ASSERT_TRUE(FreeLibrary(library));
    EXPECT_EQ(GetModuleHandleW(L"VelmUtil22Copy.dll"), nullptr);
    EXPECT_EQ(VersionResourceHolder(), before);
}

TEST(LoadedLibrary, MayBeLoadedAgain)
{
    const testkit::TempFolder scratch;
    const std::wstring copy = (scratch / L"VelmUtil22Copy.dll").wstring();
    ASSERT_TRUE(
        CopyFileW((std::wstring(GetProjectPath(nullptr)) + L"VelmUtil22.dll").c_str(), copy.c_str(), FALSE));
    for (int i = 0; i < 3; ++i) {
        const HMODULE library = LoadLibraryW(copy.c_str());
        ASSERT_NE(library, nullptr);
        EXPECT_EQ(VersionResourceHolder(), library);
        ASSERT_TRUE(FreeLibrary(library));
        EXPECT_NE(VersionResourceHolder(), library);
    }
}
