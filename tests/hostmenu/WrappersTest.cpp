#include "VelmUtil22.h"

#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

#include "recording/CountedObject.h"

namespace
{

template <class Wrapper>
class HostWrapper : public testing::Test
{
protected:
    CCountedObject m_first{L"first"};
    CCountedObject m_second{L"second"};
};

using Wrappers =
    testing::Types<IAcadApplication, IAcadMenuGroups, IAcadMenuGroup, IAcadPopupMenus, IAcadPopupMenu,
                   IAcadPopupMenuItem, IAcadMenuBar, IAcadToolbars, IAcadToolbar, IAcadToolbarItem>;
TYPED_TEST_SUITE(HostWrapper, Wrappers);

} // namespace

TYPED_TEST(HostWrapper, IsADispatchDriverWithoutDataOfItsOwn)
{
    static_assert(std::is_base_of_v<COleDispatchDriver, TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), sizeof(COleDispatchDriver));
}

TYPED_TEST(HostWrapper, HoldsNothingAtFirst)
{
    const TypeParam wrapper;
    EXPECT_EQ(wrapper.m_lpDispatch, nullptr);
}

TYPED_TEST(HostWrapper, TakesAnInterfaceOverWithoutAReferenceAndReleasesIt)
{
    {
        const TypeParam wrapper(&this->m_first);
        EXPECT_EQ(wrapper.m_lpDispatch, &this->m_first);
        EXPECT_TRUE(wrapper.m_bAutoRelease);
        EXPECT_EQ(this->m_first.References(), 1);
    }
    EXPECT_EQ(this->m_first.References(), 0);
}

TYPED_TEST(HostWrapper, SharesOnCopyWithAReferenceOfItsOwn)
{
    {
        const TypeParam wrapper(&this->m_first);
        {
            const TypeParam copy(wrapper);
            EXPECT_EQ(copy.m_lpDispatch, &this->m_first);
            EXPECT_TRUE(copy.m_bAutoRelease);
            EXPECT_EQ(this->m_first.References(), 2);
        }
        EXPECT_EQ(this->m_first.References(), 1);
    }
    EXPECT_EQ(this->m_first.References(), 0);
}

TYPED_TEST(HostWrapper, ReleasesWhatItHeldWhenItIsAssigned)
{
    {
        TypeParam wrapper(&this->m_first);
        const TypeParam other(&this->m_second);
        wrapper = other;
        EXPECT_EQ(wrapper.m_lpDispatch, &this->m_second);
        EXPECT_EQ(this->m_first.References(), 0);
        EXPECT_EQ(this->m_second.References(), 2);
    }
    EXPECT_EQ(this->m_first.References(), 0);
    EXPECT_EQ(this->m_second.References(), 0);
}

TYPED_TEST(HostWrapper, AutoReleasesWhatItWasAssigned)
{
    {
        TypeParam wrapper;
        wrapper.AttachDispatch(&this->m_first, FALSE);
        const TypeParam other(&this->m_second);
        wrapper = other;
        EXPECT_TRUE(wrapper.m_bAutoRelease);
    }
    EXPECT_EQ(this->m_first.References(), 1);
    EXPECT_EQ(this->m_second.References(), 0);
}

TYPED_TEST(HostWrapper, AcceptsWrappersOfTheSameObject)
{
    {
        TypeParam wrapper(&this->m_first);
        TypeParam copy(wrapper);
        wrapper = copy;
        EXPECT_EQ(this->m_first.References(), 2);
        EXPECT_EQ(wrapper.m_lpDispatch, &this->m_first);
        TypeParam& itself = copy;
        copy = itself;
        EXPECT_EQ(this->m_first.References(), 2);
        EXPECT_EQ(copy.m_lpDispatch, &this->m_first);
    }
    EXPECT_EQ(this->m_first.References(), 0);
}

TYPED_TEST(HostWrapper, HoldsAndReleasesNull)
{
    IDispatch* const null = nullptr;
    TypeParam wrapper(null);
    const TypeParam copy(wrapper);
    wrapper = copy;
    wrapper.ReleaseDispatch();
    EXPECT_EQ(wrapper.m_lpDispatch, nullptr);
    EXPECT_EQ(copy.m_lpDispatch, nullptr);
}

TYPED_TEST(HostWrapper, ForgetsWhatItReleased)
{
    TypeParam wrapper(&this->m_first);
    wrapper.ReleaseDispatch();
    EXPECT_EQ(wrapper.m_lpDispatch, nullptr);
    EXPECT_EQ(this->m_first.References(), 0);
    wrapper.ReleaseDispatch();
    EXPECT_EQ(this->m_first.References(), 0);
}

TYPED_TEST(HostWrapper, LeavesAnInterfaceThatIsNotItsToRelease)
{
    {
        TypeParam wrapper;
        wrapper.AttachDispatch(&this->m_first, FALSE);
    }
    EXPECT_EQ(this->m_first.References(), 1);
}
