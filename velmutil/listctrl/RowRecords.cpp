#include "listctrl/RowRecords.h"

#include <memory>
#include <new>

namespace
{

// Stands before the array; as large as keeps the records aligned.
struct alignas(XLISTCTRLDATA) Head
{
    int count;
};

Head* HeadOf(XLISTCTRLDATA* records)
{
    return reinterpret_cast<Head*>(records) - 1;
}

} // namespace

XLISTCTRLDATA* NewRowRecords(int count)
{
    void* const memory =
        ::operator new(sizeof(Head) + static_cast<size_t>(count) * sizeof(XLISTCTRLDATA), std::nothrow);
    if (memory == nullptr)
        return nullptr;
    Head* const head = new (memory) Head{count};
    const auto records = reinterpret_cast<XLISTCTRLDATA*>(head + 1);
    // Copies of one, since each default record asks the system for its colours.
    std::uninitialized_fill_n(records, count, XLISTCTRLDATA());
    return records;
}

void DeleteRowRecords(XLISTCTRLDATA* records)
{
    if (records == nullptr)
        return;
    Head* const head = HeadOf(records);
    std::destroy_n(records, head->count);
    ::operator delete(head);
}

int RowRecordCount(const XLISTCTRLDATA* records)
{
    return records != nullptr ? HeadOf(const_cast<XLISTCTRLDATA*>(records))->count : 0;
}

XLISTCTRLDATA* RowRecord(XLISTCTRLDATA* records, int column)
{
    return 0 <= column && column < RowRecordCount(records) ? records + column : nullptr;
}
