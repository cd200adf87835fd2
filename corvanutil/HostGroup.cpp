#include "HostGroup.h"

#include <utility>

#include "Attempt.h"
#include "HostEnumerations.h"

namespace
{

bool IsBaseGroup(const CHostObject& group)
{
    try {
        return group.Long(L"Type") == static_cast<long>(HostMenuGroupType::base);
    } catch (COleDispatchException* exception) {
        if (exception->m_scError != DISP_E_UNKNOWNNAME && exception->m_scError != DISP_E_MEMBERNOTFOUND)
            throw;
        exception->Delete();
        return false;
    }
}

} // namespace

long BaseGroupIndex(const CHostObject& groups)
{
    // Mostly it is the first, and then nothing else is asked.
    if (IsBaseGroup(groups.Item(0L)))
        return 0;
    const long count = groups.Count();
    for (long i = 1; i < count; ++i) {
        if (IsBaseGroup(groups.Item(i)))
            return i;
    }
    return 0;
}

CHostObject BaseGroup(const CHostObject& application)
{
    const CHostObject groups = application.Object(L"MenuGroups");
    return groups.Item(BaseGroupIndex(groups));
}

CHostObject FindByName(const CHostObject& collection, const std::wstring& name)
{
    CHostObject similar;
    bool allTold = true;
    const long count = collection.Count();
    for (long i = 0; i < count; ++i) {
        CHostObject element;
        std::wstring elementName;
        const bool told = Attempt([&] {
            element = collection.Item(i);
            elementName = element.Text(L"Name");
        });
        if (!told)
            allTold = false;
        else if (elementName == name)
            return element;
        else if (similar.IsNull() && SameInAnyCase(elementName, name))
            similar = std::move(element);
    }
    if (!allTold)
        Attempt([&] { similar = collection.Item(name); });
    return similar;
}

bool SameInAnyCase(const std::wstring& a, const std::wstring& b)
{
    return ::CompareStringOrdinal(a.c_str(), static_cast<int>(a.size()), b.c_str(),
                                  static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

void DeleteItems(const CHostObject& container)
{
    for (long i = container.Count(); i-- > 0;)
        container.Item(i).Call(L"Delete");
}

bool TryDeleteToolbar(const CHostObject& toolbar) noexcept
{
    const auto deleted = [&toolbar] { return Attempt([&toolbar] { toolbar.Call(L"Delete"); }); };
    if (deleted())
        return true;
    Attempt([&toolbar] { toolbar.Put(L"Visible", true); });
    if (deleted())
        return true;
    Attempt([&toolbar] { toolbar.Put(L"Visible", false); });
    return false;
}
