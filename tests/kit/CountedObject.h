// A COM object for tests that counts its references.
#pragma once

#include "kit/Platform.h"

#include <unknwn.h>

#include <atomic>

namespace testkit
{

// Counts the objects of all CountedObject classes that live. Register it with the leak gate to have
// references judged after every test:
//     testkit::AddCounter("test objects", [] { return testkit::LiveObjects().load(); });
inline std::atomic<long>& LiveObjects()
{
    static std::atomic<long> count{0};
    return count;
}

// Implements IUnknown for `Interface`, which derives from IUnknown directly or over others; the class
// that derives from this one implements the rest. It starts with one reference, for its creator, and
// deletes itself with the last. QueryInterface knows IUnknown and `Interface`; others are added by
// overriding it.
template <class Interface>
class CountedObject : public Interface
{
public:
    CountedObject() { ++LiveObjects(); }
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    ULONG References() const { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (!object) {
            return E_POINTER;
        }
        if (id != __uuidof(IUnknown) && id != __uuidof(Interface)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~CountedObject() { --LiveObjects(); }

private:
    std::atomic<ULONG> m_references{1};
};

} // namespace testkit
