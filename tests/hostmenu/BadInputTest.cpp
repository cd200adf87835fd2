// The builder with characters that a description may not have, or that are rare in one.
#include "HostMenuTest.h"
#include "HostProgram.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class BadInput : public HostMenuTest
{
protected:
    void SetUp() override
    {
        HostMenuTest::SetUp();
        recording::NameApplication(ApplicationDispatch());
    }

    // The messages of a build with `character` in the name of the menu.
    std::vector<std::wstring> MessagesWith(wchar_t character)
    {
        const testkit::MessageBoxWatch boxes;
        Build(std::wstring(L"<r><Menus Name=\"a") + character + L"b\"/></r>", L"NoSuchModule.arx");
        return boxes.Texts();
    }
};

} // namespace

TEST_F(BadInput, OfACharacterThatXmlForbidsIsNotLoaded)
{
    // A control character, a number that is no character, and the halves of a surrogate pair alone.
    for (const int character : {0x0001, 0xFFFE, 0xD83D, 0xDE00}) {
        EXPECT_THAT(MessagesWith(static_cast<wchar_t>(character)),
                    ElementsAre(L"MenuToolbar XML is not loaded"))
            << std::hex << character;
    }
    EXPECT_THAT(recording::Log(), IsEmpty());
}

TEST_F(BadInput, IsNotAByteOrderMarkAtTheStart)
{
    Build(L"\uFEFF<r><Menus Name=\"m\"/></r>", L"NoSuchModule.arx");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(recording::Log(), ElementsAre(LR"(menu1 = Create_ACADMenu(app, "m"))"));
}
