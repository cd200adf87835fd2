// The enumerator behind For Each.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include <memory>
#include <vector>

#include "automation/DispatchObject.h"

namespace velmhost
{

// Walks over the elements that a collection had when it was made. Elements that it has lost since are left
// out, be they removed from the host or, for MenuBar, taken off the bar; later ones do not appear.
class ElementEnumerator : public IEnumVARIANT
{
    // Construction
public:
    // `origin` is the collection's object, `elements` what it has now.
    static ComOwner<IUnknown> Create(DispatchObject& origin, const Collection& collection,
                                     std::vector<ElementId> elements);
    ElementEnumerator(const ElementEnumerator&) = delete;
    ElementEnumerator& operator=(const ElementEnumerator&) = delete;

    // Implementation
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP Next(ULONG wanted, VARIANT* elements, ULONG* fetched) override;
    STDMETHODIMP Skip(ULONG count) override;
    STDMETHODIMP Reset() override;
    STDMETHODIMP Clone(IEnumVARIANT** copy) override;

private:
    ElementEnumerator(DispatchObject& origin, const Collection& collection, std::vector<ElementId> elements,
                      size_t position);
    virtual ~ElementEnumerator();

    bool FindNext();

    DispatchObject& m_origin; // the collection, of which it holds a reference
    const Collection& m_collection;
    std::vector<ElementId> m_elements;
    size_t m_position;
    LONG m_references = 1;
};

} // namespace velmhost
