// The members of the wrappers as VelmUtil22.dll exports them. Users who compile against the header have
// copies of their own; those who link against the exported ones meet these.
#include "VelmUtil22.h"

#include <gtest/gtest.h>
#include <string>

#include "recording/CountedObject.h"

// The names, and the way of calling members, are those of this toolchain.
#ifdef __MINGW32__

namespace
{

class ExportedWrapper : public testing::TestWithParam<const char*>
{
protected:
    // A place for one wrapper.
    struct Place
    {
        alignas(COleDispatchDriver) unsigned char bytes[sizeof(COleDispatchDriver)];

        const COleDispatchDriver& Driver() const
        {
            return *reinterpret_cast<const COleDispatchDriver*>(bytes);
        }
    };

    template <class Function>
    static Function* Member(const char* suffix)
    {
        const std::string name = GetParam();
        const std::string mangled = "_ZN" + std::to_string(name.size()) + name + suffix;
        const auto address = GetProcAddress(GetModuleHandleW(L"VelmUtil22.dll"), mangled.c_str());
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
    }
    void SetUp() override { ASSERT_TRUE(m_make && m_take && m_copy && m_assign && m_end); }

    void (*m_make)(Place&) = Member<void(Place&)>("C1Ev");
    void (*m_take)(Place&, IDispatch*) = Member<void(Place&, IDispatch*)>("C1EP9IDispatch");
    void (*m_copy)(Place&, const Place&) = Member<void(Place&, const Place&)>("C1ERKS_");
    Place& (*m_assign)(Place&, const Place&) = Member<Place&(Place&, const Place&)>("aSERKS_");
    void (*m_end)(Place&) = Member<void(Place&)>("D1Ev");
    CCountedObject m_first{L"first"};
    CCountedObject m_second{L"second"};
};

INSTANTIATE_TEST_SUITE_P(All, ExportedWrapper,
                         testing::Values("IAcadApplication", "IAcadMenuGroups", "IAcadMenuGroup",
                                         "IAcadPopupMenus", "IAcadPopupMenu", "IAcadPopupMenuItem",
                                         "IAcadMenuBar", "IAcadToolbars", "IAcadToolbar",
                                         "IAcadToolbarItem"));

} // namespace

TEST_P(ExportedWrapper, HoldsNothingAtFirst)
{
    Place place;
    m_make(place);
    EXPECT_EQ(place.Driver().m_lpDispatch, nullptr);
    m_end(place);
}

TEST_P(ExportedWrapper, TakesOverSharesAndReleases)
{
    Place owner, copy;
    m_take(owner, &m_first);
    EXPECT_EQ(owner.Driver().m_lpDispatch, &m_first);
    EXPECT_TRUE(owner.Driver().m_bAutoRelease);
    EXPECT_EQ(m_first.References(), 1);
    m_copy(copy, owner);
    EXPECT_EQ(copy.Driver().m_lpDispatch, &m_first);
    EXPECT_EQ(m_first.References(), 2);
    m_end(copy);
    EXPECT_EQ(m_first.References(), 1);
    m_end(owner);
    EXPECT_EQ(m_first.References(), 0);
    EXPECT_EQ(owner.Driver().m_lpDispatch, nullptr);
}

TEST_P(ExportedWrapper, ReleasesWhatItHeldWhenItIsAssigned)
{
    Place target, other;
    m_take(target, &m_first);
    m_take(other, &m_second);
    EXPECT_EQ(&m_assign(target, other), &target);
    EXPECT_EQ(target.Driver().m_lpDispatch, &m_second);
    EXPECT_EQ(m_first.References(), 0);
    EXPECT_EQ(m_second.References(), 2);
    EXPECT_EQ(&m_assign(target, target), &target);
    EXPECT_EQ(m_second.References(), 2);
    m_end(target);
    m_end(other);
    EXPECT_EQ(m_second.References(), 0);
}

#endif
