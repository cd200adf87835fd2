// The instrument of this folder.
#include <VelmUtil22.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

#include "FailingCalls.h"

#include "kit/HeapTracker.h"

namespace
{

using namespace failingtest;

bool RunsOutOfMemory()
{
    try {
        GetStringFrom(-1234567);
    } catch (CMemoryException* e) {
        e->Delete();
        return true;
    }
    return false;
}

TEST(FailingCalls, AreCountedAndFailOnceAtTheirNumber)
{
    const FailingCalls calls;
    FailingCalls::FailAt(Resource::Memory, 0);
    EXPECT_FALSE(RunsOutOfMemory());
    const unsigned count = FailingCalls::Calls(Resource::Memory);
    ASSERT_GE(count, 1u);
    EXPECT_FALSE(FailingCalls::HasFailed());
    for (unsigned n = 1; n <= count; ++n) {
        FailingCalls::FailAt(Resource::Memory, n);
        EXPECT_TRUE(RunsOutOfMemory()) << n;
        EXPECT_TRUE(FailingCalls::HasFailed());
        EXPECT_FALSE(RunsOutOfMemory()) << n;
    }
    FailingCalls::FailAt(Resource::Memory, count + 1);
    EXPECT_FALSE(RunsOutOfMemory());
    EXPECT_FALSE(FailingCalls::HasFailed());
    EXPECT_TRUE(RunsOutOfMemory());
    FailingCalls::FailAt(Resource::Memory, 1);
    FailingCalls::Stop();
    EXPECT_FALSE(RunsOutOfMemory());
}

TEST(FailingCalls, LeaveTheProgramsOwnAllocationsAlone)
{
    const FailingCalls calls;
    FailingCalls::FailAt(Resource::Memory, 1);
    {
        const std::wstring text(1000, L'x');
        std::string grown = "x";
        grown.append(1000, 'x');
        const auto object = std::make_unique<int>(5);
    }
    EXPECT_EQ(FailingCalls::Calls(Resource::Memory), 0u);
    // The library's share of the standard library is its own.
    wchar_t name[] = L"VelmUtil22";
    EXPECT_THROW(GetProjectPath(name), std::bad_alloc);
}

TEST(FailingCalls, LeaveOtherThreadsAlone)
{
    const FailingCalls calls;
    FailingCalls::FailAt(Resource::Memory, 1);
    bool hasFailed = true;
    std::thread([&] { hasFailed = RunsOutOfMemory(); }).join();
    EXPECT_FALSE(hasFailed);
    EXPECT_EQ(FailingCalls::Calls(Resource::Memory), 0u);
}

TEST(FailingCalls, LetTheLeakGateCount)
{
    const FailingCalls calls;
    const long long before = testkit::MarkHeap().blocks;
    {
        const CString text = GetStringFrom(-1234567);
        EXPECT_EQ(testkit::MarkHeap().blocks, before + 1);
    }
    EXPECT_EQ(testkit::MarkHeap().blocks, before);
}

TEST(FailingCalls, EndWithTheObject)
{
    {
        const FailingCalls calls;
    }
    FailingCalls::FailAt(Resource::Memory, 1);
    EXPECT_FALSE(RunsOutOfMemory());
    FailingCalls::FailAt(Resource::Timers, 1);
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    EXPECT_NE(window.SetTimer(1, 1000, nullptr), 0u);
    window.DestroyWindow();
    EXPECT_EQ(FailingCalls::Calls(Resource::Memory), 0u);
    EXPECT_EQ(FailingCalls::Calls(Resource::Windows), 0u);
    FailingCalls::Stop();
}

TEST(FailingCalls, ReachEveryKindOfResource)
{
    const FailingCalls calls;
    for (const Resource resource : {Resource::Memory, Resource::Texts, Resource::Documents, Resource::Windows,
                                    Resource::Gdi, Resource::Timers})
    {
        EXPECT_TRUE(FailingCalls::IsPossible(resource)) << static_cast<int>(resource);
    }

    FailingCalls::FailAt(Resource::Windows, 2); // the first is the hook
    CWnd window;
    EXPECT_FALSE(window.CreateEx(0, L"Static", L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    EXPECT_TRUE(FailingCalls::HasFailed());

    FailingCalls::FailAt(Resource::Gdi, 2); // the first is a device context, to measure with
    CFont font;
    EXPECT_FALSE(font.CreatePointFont(100, L"Courier"));

    (void)CoInitialize(nullptr);
    {
        CXMLFile file;
        FailingCalls::FailAt(Resource::Texts, 1);
        EXPECT_THROW(file.CreateNode(const_cast<wchar_t*>(L"name")), _com_error);
        FailingCalls::FailAt(Resource::Documents, 1);
        EXPECT_THROW(Append_MenuToolBar(CString(L"<a/>"), nullptr), _com_error);
    }
    CoUninitialize();
}

} // namespace
