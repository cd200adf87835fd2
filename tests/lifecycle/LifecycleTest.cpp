// Lives that follow each other leave nothing behind.
#include "Lives.h"

#include "DocumentReferences.h"
#include "Holdings.h"
#include "PlatformBlocks.h"

#include <objbase.h>

#include "kit/Depth.h"
#include "kit/Watchdog.h"

namespace lifecycle
{

void PrintTo(const Life& life, std::ostream* out)
{
    *out << life.name;
}

namespace
{

// What the platform and the run-time library make at first use and keep is taken by so many lives of each
// kind, before anything is counted.
constexpr int WarmUpLives = 4;

// A platform may keep for good what it made of a declaration's version and encoding. How many blocks for each
// is seen at declarations that no library has a hand in.
long long BlocksKeptOfADeclaration()
{
    constexpr int declarations = 10;
    const long long before = CountDocumentBlocks();
    for (int i = 0; i < declarations; ++i) {
        IXMLDOMDocument2Ptr document;
        document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER);
        IXMLDOMProcessingInstructionPtr declaration;
        document->createProcessingInstruction(_bstr_t(L"xml"), _bstr_t(L"version='1.0' encoding='UTF-8'"),
                                              &declaration);
        document->appendChild(declaration, nullptr);
    }
    return (CountDocumentBlocks() - before) / declarations;
}

// A group of kinds.
template <std::vector<Life> (*Lives)()>
class LivesOf : public testing::TestWithParam<Life>
{
protected:
    static void SetUpTestSuite()
    {
        testkit::AllowTime(120);
        ASSERT_TRUE(SUCCEEDED(::CoInitialize(nullptr)));
        ASSERT_TRUE(StartCounting());
        for (const Life& life : Lives()) {
            for (int i = 0; i < WarmUpLives; ++i)
                life.once();
        }
        BlocksKeptOfADeclaration();
        HoldingsNow();
    }
    static void TearDownTestSuite() { ::CoUninitialize(); }

    // Lives that follow each other, of one kind.
    void Repeat()
    {
        const auto lives = static_cast<int>(testkit::ByDepth(50, 1000));
        testkit::AllowTime(static_cast<unsigned>(testkit::ByDepth(200, 1200)));
        const long long kept = GetParam().declarations ? BlocksKeptOfADeclaration() : 0;
        const Holdings before = HoldingsNow();
        for (int i = 0; i < lives; ++i) {
            GetParam().once();
            ASSERT_FALSE(HasFailure()) << "life " << i;
            CountDocumentReferences(); // lets the documents of this life go
        }
        const Holdings after = HoldingsNow();
        const long long ofDeclarations = kept * GetParam().declarations * lives;
        for (size_t i = 0; i < Kinds.size(); ++i) {
            const bool isOfModel = Kinds[i].count == &CountDocumentBlocks;
            EXPECT_EQ(after[i] - before[i], isOfModel ? ofDeclarations : 0) << Kinds[i].name;
        }
        std::string growth = Growth(before, after);
        if (ofDeclarations != 0)
            growth += " (" + std::to_string(ofDeclarations) + " of them the platform's own, of declarations)";
        testkit::Figure(
            "lifecycle, " + std::string(GetParam().name) + ", " + std::to_string(lives) + " lives", growth);
    }
};

std::string NameOf(const testing::TestParamInfo<Life>& info)
{
    return info.param.name;
}

using LivesOfControls = LivesOf<&ControlLives>;
TEST_P(LivesOfControls, LeaveNothingBehind)
{
    Repeat();
}
INSTANTIATE_TEST_SUITE_P(, LivesOfControls, testing::ValuesIn(ControlLives()), NameOf);

using LivesOfCredits = LivesOf<&CreditsLives>;
TEST_P(LivesOfCredits, LeaveNothingBehind)
{
    Repeat();
}
INSTANTIATE_TEST_SUITE_P(, LivesOfCredits, testing::ValuesIn(CreditsLives()), NameOf);

using LivesOfDocuments = LivesOf<&DocumentLives>;
TEST_P(LivesOfDocuments, LeaveNothingBehind)
{
    Repeat();
}
INSTANTIATE_TEST_SUITE_P(, LivesOfDocuments, testing::ValuesIn(DocumentLives()), NameOf);

using LivesOfHelpers = LivesOf<&HelperLives>;
TEST_P(LivesOfHelpers, LeaveNothingBehind)
{
    Repeat();
}
INSTANTIATE_TEST_SUITE_P(, LivesOfHelpers, testing::ValuesIn(HelperLives()), NameOf);

using LivesOfMenus = LivesOf<&BuilderLives>;
TEST_P(LivesOfMenus, LeaveNothingBehind)
{
    Repeat();
}
INSTANTIATE_TEST_SUITE_P(, LivesOfMenus, testing::ValuesIn(BuilderLives()), NameOf);

} // namespace

} // namespace lifecycle
