#include "HostGroup.h"

#include <utility>

CHostObject BaseGroup(const CHostObject& application)
{
    return application.Object(L"MenuGroups").Item(0);
}

CHostObject FindByName(const CHostObject& collection, const std::wstring& name)
{
    CHostObject similar;
    const long count = collection.Count();
    for (long i = 0; i < count; ++i) {
        CHostObject element = collection.Item(i);
        const std::wstring elementName = element.Text(L"Name");
        if (elementName == name)
            return element;
        if (similar.IsNull() && SameInAnyCase(elementName, name))
            similar = std::move(element);
    }
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
