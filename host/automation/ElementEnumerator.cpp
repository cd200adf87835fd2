#include "automation/ElementEnumerator.h"

namespace velmhost
{

ComOwner<IUnknown> ElementEnumerator::Create(DispatchObject& origin, const Collection& collection,
                                             std::vector<ElementId> elements)
{
    return ComOwner<IUnknown>(new ElementEnumerator(origin, collection, std::move(elements), 0));
}

ElementEnumerator::ElementEnumerator(DispatchObject& origin, const Collection& collection,
                                     std::vector<ElementId> elements, size_t position)
    : m_origin(origin), m_collection(collection), m_elements(std::move(elements)), m_position(position)
{
    m_origin.AddRef();
    ++m_origin.State().references;
    ++m_origin.State().liveObjects;
}

ElementEnumerator::~ElementEnumerator()
{
    --m_origin.State().liveObjects;
    m_origin.Release();
}

STDMETHODIMP ElementEnumerator::QueryInterface(REFIID iid, void** object)
{
    if (!object)
        return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IEnumVARIANT) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ElementEnumerator::AddRef()
{
    ++m_origin.State().references;
    return static_cast<ULONG>(++m_references);
}

STDMETHODIMP_(ULONG) ElementEnumerator::Release()
{
    --m_origin.State().references;
    const LONG left = --m_references;
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

// Moves to the next element that is still there; false at the end.
bool ElementEnumerator::FindNext()
{
    const HostModel* model = m_origin.State().model;
    while (model && m_position < m_elements.size() && !m_collection.exists(*model, m_elements[m_position]))
        ++m_position;
    return model && m_position < m_elements.size();
}

STDMETHODIMP ElementEnumerator::Next(ULONG wanted, VARIANT* elements, ULONG* fetched)
{
    if (fetched)
        *fetched = 0;
    if (!elements || (!fetched && wanted != 1))
        return E_POINTER;
    ULONG count = 0;
    try {
        for (; count < wanted && FindNext(); ++count, ++m_position) {
            VariantInit(&elements[count]);
            elements[count].pdispVal =
                ObjectFor(m_origin, m_collection.itemClass(), m_elements[m_position]).release();
            elements[count].vt = VT_DISPATCH;
        }
    } catch (const std::bad_alloc&) {
        while (count > 0)
            VariantClear(&elements[--count]);
        return E_OUTOFMEMORY;
    }
    if (fetched)
        *fetched = count;
    return count == wanted ? S_OK : S_FALSE;
}

STDMETHODIMP ElementEnumerator::Skip(ULONG count)
{
    for (; count > 0; --count, ++m_position) {
        if (!FindNext())
            return S_FALSE;
    }
    return S_OK;
}

STDMETHODIMP ElementEnumerator::Reset()
{
    m_position = 0;
    return S_OK;
}

STDMETHODIMP ElementEnumerator::Clone(IEnumVARIANT** copy)
{
    if (!copy)
        return E_POINTER;
    *copy = nullptr;
    try {
        *copy = new ElementEnumerator(m_origin, m_collection, m_elements, m_position);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

} // namespace velmhost
