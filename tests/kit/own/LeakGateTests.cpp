#include "kit/LeakGate.h"

#include "FailingProgram.h"
#include "kit/CountedObject.h"
#include "kit/HeapTracker.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{

long long Blocks()
{
    return testkit::CountNow(testkit::HeapBlocks);
}

void* volatile g_seen = nullptr;

// The optimiser may drop an allocation whose result nobody sees.
void* Seen(void* block)
{
    g_seen = block;
    return block;
}

TEST(HeapCounter, CountsMallocCallocAndNew)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    void* a = Seen(std::malloc(10));
    EXPECT_EQ(Blocks(), before + 1);
    void* b = Seen(std::calloc(3, 5));
    EXPECT_EQ(Blocks(), before + 2);
    int* c = new int;
    Seen(c);
    EXPECT_EQ(Blocks(), before + 3);
    std::free(a);
    EXPECT_EQ(Blocks(), before + 2);
    std::free(b);
    delete c;
    EXPECT_EQ(Blocks(), before);
}

TEST(HeapCounter, CountsAReallocatedBlockOnce)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    void* block = Seen(std::realloc(nullptr, 10));
    EXPECT_EQ(Blocks(), before + 1);
    block = Seen(std::realloc(block, 1000000));
    EXPECT_EQ(Blocks(), before + 1);
    std::free(block);
    EXPECT_EQ(Blocks(), before);
}

TEST(HeapCounter, CountsAlignedBlocksAndStringCopies)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    void* aligned = Seen(_aligned_malloc(100, 64));
    char* narrow = _strdup("text");
    wchar_t* wide = _wcsdup(L"text");
    EXPECT_EQ(Blocks(), before + 3);
    _aligned_free(aligned);
    std::free(narrow);
    std::free(wide);
    EXPECT_EQ(Blocks(), before);
}

TEST(HeapCounter, CountsOnEveryThread)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    std::vector<void*> blocks(400);
    const auto allocate = [&](size_t first) {
        for (size_t i = first; i < first + 100; ++i) {
            blocks[i] = std::malloc(i + 1);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (size_t first = 0; first < blocks.size(); first += 100) {
            threads.emplace_back(allocate, first);
        }
    }
    EXPECT_EQ(Blocks(), before + 401); // the vector's own block too
    for (void* block : blocks) {
        std::free(block);
    }
    EXPECT_EQ(Blocks(), before + 1);
}

TEST(HeapCounter, CountsInModulesThatAreLoadedLater)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    const HMODULE module = LoadLibraryW(L"kit_probe.dll");
    ASSERT_NE(module, nullptr);
    const auto make =
        reinterpret_cast<void* (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "ProbeMakeBlock")));
    const auto release =
        reinterpret_cast<void (*)(void*)>(reinterpret_cast<void*>(GetProcAddress(module, "ProbeFreeBlock")));
    const long long loaded = Blocks();
    EXPECT_GE(loaded, before + 1) << "the block that it makes while it is being loaded";
    void* block = make();
    EXPECT_EQ(Blocks(), loaded + 1);
    release(block);
    EXPECT_EQ(Blocks(), loaded);
    FreeLibrary(module);
    EXPECT_EQ(Blocks(), before);
}

const std::vector<int>& MadeOnce()
{
    static const std::vector<int> numbers(100, 1);
    return numbers;
}

TEST(HeapCounter, LeavesStaticLocalObjectsOut)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const long long before = Blocks();
    EXPECT_EQ(MadeOnce().size(), 100u);
    EXPECT_EQ(Blocks(), before);
    const std::vector<int> numbers(MadeOnce()); // counting goes on after it
    EXPECT_EQ(Blocks(), before + 1);
}

int ThrowAtFirst(bool& thrown)
{
    if (!thrown) {
        thrown = true;
        throw std::runtime_error("the first time");
    }
    return 1;
}

TEST(HeapCounter, GoesOnAfterAStaticLocalObjectThatThrows)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    bool thrown = false;
    const auto make = [&] {
        static const int number = ThrowAtFirst(thrown);
        return number;
    };
    EXPECT_THROW(make(), std::runtime_error);
    const long long before = Blocks();
    void* block = Seen(std::malloc(10));
    EXPECT_EQ(Blocks(), before + 1);
    std::free(block);
    EXPECT_EQ(make(), 1);
}

TEST(HeapCounter, PatchesAModuleOnce)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    EXPECT_FALSE(testkit::TrackModule(GetModuleHandleW(nullptr)));
}

TEST(GdiCounter, CountsEveryKindOfObject)
{
    const long long before = testkit::CountNow(testkit::GdiObjects);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before + 1);
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    const HRGN region = CreateRectRgn(0, 0, 5, 5);
    const HDC dc = CreateCompatibleDC(nullptr);
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before + 4);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 10, 10);
    LOGFONTW description{};
    description.lfHeight = -11;
    const HFONT font = CreateFontIndirectW(&description);
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before + 6);
    DeleteObject(brush);
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before + 5);
    for (const HGDIOBJ object : {HGDIOBJ(pen), HGDIOBJ(region), HGDIOBJ(bitmap), HGDIOBJ(font)}) {
        DeleteObject(object);
    }
    DeleteDC(dc);
    EXPECT_EQ(testkit::CountNow(testkit::GdiObjects), before);
}

TEST(WindowCounter, CountsTopLevelMessageOnlyAndChildWindows)
{
    const long long before = testkit::CountNow(testkit::Windows);
    const auto create = [](DWORD style, HWND parent) {
        return CreateWindowExW(0, L"Static", L"", style, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr);
    };
    const HWND top = create(WS_POPUP, nullptr);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before + 1);
    const HWND child = create(WS_CHILD, top);
    create(WS_CHILD, child);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before + 3);
    const HWND messageOnly = create(0, HWND_MESSAGE);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before + 4);
    DestroyWindow(top);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before + 1);
    DestroyWindow(messageOnly);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before);
}

TEST(WindowCounter, CountsWindowsOfOtherThreads)
{
    const long long before = testkit::CountNow(testkit::Windows);
    long long with = 0;
    std::thread([&] {
        const HWND window =
            CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
        std::thread([&] { with = testkit::CountNow(testkit::Windows); }).join();
        DestroyWindow(window);
    }).join();
    EXPECT_EQ(with, before + 1);
    EXPECT_EQ(testkit::CountNow(testkit::Windows), before);
}

struct Object : testkit::CountedObject<IUnknown>
{
};

TEST(NamedCounter, SaysWhatItsFunctionSays)
{
    testkit::AddCounter("live", [] { return testkit::LiveObjects().load(); });
    const long long before = testkit::CountNow("live");
    IUnknown* object = new Object;
    EXPECT_EQ(testkit::CountNow("live"), before + 1);
    object->Release();
    EXPECT_EQ(testkit::CountNow("live"), before);
    testkit::RemoveCounter("live");
}

TEST(LeakGate, FailsATestThatLeavesABlockAndShowsWhoMadeIt)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const auto result = RunFailing(L"LeaksABlock");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("Leak in Failing.LeaksABlock: heap blocks grew"),
                      HasSubstr("block of 4321 bytes"), HasSubstr("ForgetABlock"), HasSubstr("Culprits.cpp:"),
                      HasSubstr("[  FAILED  ] Failing.LeaksABlock")));
}

TEST(LeakGate, FailsATestThatLeavesAStringCopy)
{
    if (!testkit::HeapIsTracked()) {
        GTEST_SKIP() << "this build does not count heap blocks";
    }
    const auto result = RunFailing(L"LeaksAStringCopy");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output, HasSubstr("block of 14 bytes"));
}

TEST(LeakGate, FailsATestThatLeavesAGdiObject)
{
    const auto result = RunFailing(L"LeaksABrush");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output, AllOf(HasSubstr("Leak in Failing.LeaksABrush: GDI objects grew"),
                                     Not(HasSubstr("heap blocks grew"))));
}

TEST(LeakGate, FailsATestThatLeavesAWindow)
{
    const auto result = RunFailing(L"LeaksAWindow");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output, AllOf(HasSubstr("Leak in Failing.LeaksAWindow: windows grew"),
                                     HasSubstr("\"Static\", text \"left behind\"")));
}

TEST(LeakGate, FailsATestThatLeavesACountedReference)
{
    const auto result = RunFailing(L"FailingWithCounter.LeaksAReference");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("objects of the test grew from 0 to 1"), Not(HasSubstr("heap blocks grew"))));
}

TEST(LeakGate, LetsAnAllowedGrowthPass)
{
    testkit::AllowGrowth(testkit::HeapBlocks, 1, "this test shows that an allowance is kept to");
    Seen(std::malloc(10));
    testkit::AllowGrowth(testkit::GdiObjects, 1, "this test shows that an allowance is kept to");
    CreateSolidBrush(RGB(1, 2, 3));
}

TEST(LeakGate, WantsAReasonForAnAllowance)
{
    const auto result = RunFailing(L"AllowsGrowthWithoutReason");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output, HasSubstr("AllowGrowth needs a reason"));
}

TEST(LeakGate, WantsAKnownCounterForAnAllowance)
{
    const auto result = RunFailing(L"AllowsGrowthOfAnUnknownCounter");
    EXPECT_EQ(result.exitCode, 1u) << result.output;
    EXPECT_THAT(result.output, HasSubstr("no such counter"));
}

TEST(LeakGate, TakesNeitherAssertionsNorTracesForLeaks)
{
    for (int i = 0; i < 100; ++i) {
        SCOPED_TRACE(std::string(100, 'x'));
        EXPECT_EQ(i, i) << "a long message that is made for nothing, because the expectation holds";
        EXPECT_THAT(std::string("text"), HasSubstr("ex"));
        EXPECT_THROW(throw std::runtime_error(std::string(100, 'x')), std::runtime_error);
    }
}

#ifdef TESTKIT_WITH_MFC

TEST(LeakGate, TakesNoTemporaryObjectsOfTheFrameworkForLeaks)
{
    CWnd* desktop = CWnd::FromHandle(::GetDesktopWindow());
    EXPECT_EQ(desktop->m_hWnd, ::GetDesktopWindow());
    CClientDC dc(desktop);
    EXPECT_NE(dc.GetCurrentFont(), nullptr);
}

#endif

} // namespace
