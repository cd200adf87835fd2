#include "VelmUtil22.h"

#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <new>

TEST(CEntityFilter, StartsWithItsInitialValues)
{
    // Whatever stood in the memory before.
    for (const int before : {0x00, 0xFF}) {
        alignas(CEntityFilter) unsigned char place[sizeof(CEntityFilter)];
        std::memset(place, before, sizeof place);
        CEntityFilter* const filter = new (place) CEntityFilter;
        const unsigned char flags[] = {1, 0, 1, 1, 1, 1, 1};
        EXPECT_EQ(std::memcmp(place, flags, sizeof flags), 0) << before;
        EXPECT_EQ(filter->m_nValue, 0) << before;
        EXPECT_EQ(filter->m_arrList.GetSize(), 0) << before;
        std::destroy_at(filter);
    }
}

TEST(CEntityFilter, LaysItsFieldsOutInOrder)
{
    const CEntityFilter filter;
    const auto offset = [&](const void* field) {
        return static_cast<const char*>(field) - reinterpret_cast<const char*>(&filter);
    };
    EXPECT_EQ(offset(&filter.m_bFlag1), 0);
    EXPECT_EQ(offset(&filter.m_bFlag2), 1);
    EXPECT_EQ(offset(&filter.m_bFlag3), 2);
    EXPECT_EQ(offset(&filter.m_bFlag4), 3);
    EXPECT_EQ(offset(&filter.m_bFlag5), 4);
    EXPECT_EQ(offset(&filter.m_bFlag6), 5);
    EXPECT_EQ(offset(&filter.m_bFlag7), 6);
    EXPECT_EQ(offset(&filter.m_nValue), 8);
    EXPECT_EQ(offset(&filter.m_arrList), 16);
    EXPECT_EQ(sizeof(filter.m_nValue), 8u);
}

// The leak gate tells whether the texts stay behind.
TEST(CEntityFilter, FreesItsList)
{
    CEntityFilter filter;
    for (int i = 0; i < 100; ++i)
        filter.m_arrList.Add(CString(L'x', 100));
    EXPECT_EQ(filter.m_arrList.GetSize(), 100);
}
