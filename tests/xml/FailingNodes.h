// Nodes and documents that stand before real ones: they note what is called, and fail where a test wants
// them to.
#pragma once

#include "../hostmenu/UnimplementedDom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

enum class NodeCall
{
    SelectSingleNode,
    SelectNodes,
    CreateNode,
    NodeType,
    Attributes,
    AppendChild,
    RemoveChild,
    Text,
    PutText,
    QueryElement, // a node asked for IXMLDOMElement
    GetAttribute,
    Length,
    Item,
    NamedItem,
    SetNamedItem,
    DocumentType,
};

// Makes the stand-ins and outlives them.
class FailingNodes
{
public:
    // What a call gives instead of doing its work. S_FALSE comes with a null result.
    using Action = std::function<HRESULT()>;

    IXMLDOMDocument2Ptr Before(const IXMLDOMDocument2Ptr& document);
    IXMLDOMNodePtr Before(const IXMLDOMNodePtr& node);

    // The n-th call of that kind, counted from 1.
    void At(NodeCall call, int n, Action action) { m_plan = {true, call, n, std::move(action)}; }
    void Fail(NodeCall call, int n, HRESULT result)
    {
        At(call, n, [result] { return result; });
    }
    // The n-th call of any kind.
    void FailAny(int n, HRESULT result)
    {
        m_plan = {false, {}, n, [result] { return result; }};
    }

    // Whether the planned call came.
    bool HasFailed() const { return m_hasFailed; }
    // The calls in order, with the one that failed.
    const std::vector<NodeCall>& Calls() const { return m_calls; }
    int CountOf(NodeCall call) const
    {
        return static_cast<int>(std::count(m_calls.begin(), m_calls.end(), call));
    }
    // The texts that were put into nodes, whole.
    std::vector<std::wstring> m_putTexts;
    // What the next answer of an attribute is instead of the real one, if set.
    std::function<HRESULT(VARIANT*)> m_attributeValue;
    std::function<HRESULT(BSTR*)> m_text;
    // The interface for which the stand-ins say that they leave error information, if set.
    const IID* m_errorInfoOf = nullptr;

    int LiveObjects() const { return m_liveObjects; }

    // For the stand-ins. False if the call shall do its work; otherwise `result` is its answer.
    bool Answer(NodeCall call, HRESULT& result)
    {
        m_calls.push_back(call);
        const int number = m_plan.isOfOneKind ? CountOf(call) : static_cast<int>(m_calls.size());
        if (!m_plan.action || (m_plan.isOfOneKind && call != m_plan.call) || number != m_plan.number)
            return false;
        m_hasFailed = true;
        result = m_plan.action();
        return true;
    }
    void Made(void* standIn, IXMLDOMNode* real)
    {
        ++m_liveObjects;
        m_real[standIn] = real;
    }
    void Gone(void* standIn)
    {
        --m_liveObjects;
        m_real.erase(standIn);
    }
    // The real node behind a stand-in; any other node as it is.
    IXMLDOMNode* RealOf(IXMLDOMNode* node) const
    {
        const auto found = m_real.find(node);
        return found != m_real.end() ? found->second : node;
    }

private:
    struct Plan
    {
        bool isOfOneKind = false;
        NodeCall call{};
        int number = 0;
        Action action;
    };
    Plan m_plan;
    std::vector<NodeCall> m_calls;
    std::map<void*, IXMLDOMNode*> m_real;
    bool m_hasFailed = false;
    int m_liveObjects = 0;
};

class CUnimplementedElement : public CUnimplementedNode<IXMLDOMElement>
{
public:
    STDMETHODIMP get_tagName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP getAttribute(BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP setAttribute(BSTR, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP removeAttribute(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP getAttributeNode(BSTR, IXMLDOMAttribute**) override { return E_NOTIMPL; }
    STDMETHODIMP setAttributeNode(IXMLDOMAttribute*, IXMLDOMAttribute**) override { return E_NOTIMPL; }
    STDMETHODIMP removeAttributeNode(IXMLDOMAttribute*, IXMLDOMAttribute**) override { return E_NOTIMPL; }
    STDMETHODIMP getElementsByTagName(BSTR, IXMLDOMNodeList**) override { return E_NOTIMPL; }
    STDMETHODIMP normalize() override { return E_NOTIMPL; }
};

// Says for which interface an object leaves error information.
class CErrorInfoSupport : public ISupportErrorInfo
{
public:
    explicit CErrorInfoSupport(const IID& iid) : m_iid(iid) {}
    virtual ~CErrorInfoSupport() = default;
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override
    {
        return IsEqualIID(iid, m_iid) ? S_OK : S_FALSE;
    }

private:
    IID m_iid;
    ULONG m_references = 1;
};

// What all stand-ins do. `Base` implements nothing of `Interface`.
template <class Base, class Interface>
class CStandInOf : public Base
{
public:
    CStandInOf(FailingNodes& nodes, Interface* real, IXMLDOMNode* realNode) : m_nodes(nodes), m_real(real)
    {
        m_nodes.Made(this, realNode);
    }
    ~CStandInOf() override { m_nodes.Gone(this); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (IsEqualIID(iid, __uuidof(ISupportErrorInfo)) && m_nodes.m_errorInfoOf != nullptr) {
            *object = new CErrorInfoSupport(*m_nodes.m_errorInfoOf);
            return S_OK;
        }
        HRESULT result = E_NOINTERFACE;
        if (IsEqualIID(iid, __uuidof(IXMLDOMElement)) && m_nodes.Answer(NodeCall::QueryElement, result)) {
            *object = nullptr;
            return result;
        }
        if (!IsOffered(iid)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface*>(this);
        this->AddRef();
        return S_OK;
    }

protected:
    // Whether the real object has the interface too, and it is one that begins as `Interface` does.
    virtual bool IsOffered(REFIID iid)
    {
        return IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
               IsEqualIID(iid, __uuidof(Interface));
    }

    using Pointer = _com_ptr_t<_com_IIID<Interface, &__uuidof(Interface)>>;

    // The answer of a call that hands out an object, for which a stand-in stands.
    template <class StandIn, class Result, class Ask>
    HRESULT HandOut(NodeCall call, Result** object, Ask ask)
    {
        HRESULT result = S_OK;
        if (m_nodes.Answer(call, result)) {
            if (SUCCEEDED(result))
                *object = nullptr;
            return result;
        }
        *object = nullptr;
        Result* real = nullptr;
        result = ask(&real);
        if (real != nullptr) {
            *object = new StandIn(m_nodes, real);
            real->Release();
        }
        return result;
    }

    // The answer of any other call.
    template <class Ask>
    HRESULT Do(NodeCall call, Ask ask)
    {
        HRESULT result = S_OK;
        return m_nodes.Answer(call, result) ? result : ask();
    }

    FailingNodes& m_nodes;
    Pointer m_real;
};

class CStandInNode;
class CStandInList;
class CStandInMap;

template <class Base, class Interface>
class CStandInNodeOf : public CStandInOf<Base, Interface>
{
public:
    CStandInNodeOf(FailingNodes& nodes, Interface* real) : CStandInOf<Base, Interface>(nodes, real, real) {}

    STDMETHODIMP selectSingleNode(BSTR query, IXMLDOMNode** node) override
    {
        return this->template HandOut<CStandInNode>(NodeCall::SelectSingleNode, node, [&](auto real) {
            return this->m_real->selectSingleNode(query, real);
        });
    }
    STDMETHODIMP selectNodes(BSTR query, IXMLDOMNodeList** list) override
    {
        return this->template HandOut<CStandInList>(
            NodeCall::SelectNodes, list, [&](auto real) { return this->m_real->selectNodes(query, real); });
    }
    STDMETHODIMP get_nodeType(DOMNodeType* type) override
    {
        return this->Do(NodeCall::NodeType, [&] { return this->m_real->get_nodeType(type); });
    }
    STDMETHODIMP get_attributes(IXMLDOMNamedNodeMap** map) override
    {
        return this->template HandOut<CStandInMap>(
            NodeCall::Attributes, map, [&](auto real) { return this->m_real->get_attributes(real); });
    }
    STDMETHODIMP appendChild(IXMLDOMNode* child, IXMLDOMNode** appended) override
    {
        EXPECT_EQ(appended, nullptr);
        return this->Do(NodeCall::AppendChild,
                        [&] { return this->m_real->appendChild(this->m_nodes.RealOf(child), nullptr); });
    }
    STDMETHODIMP removeChild(IXMLDOMNode* child, IXMLDOMNode** removed) override
    {
        EXPECT_EQ(removed, nullptr);
        return this->Do(NodeCall::RemoveChild,
                        [&] { return this->m_real->removeChild(this->m_nodes.RealOf(child), nullptr); });
    }
    STDMETHODIMP get_text(BSTR* text) override
    {
        return this->Do(NodeCall::Text, [&] {
            return this->m_nodes.m_text ? this->m_nodes.m_text(text) : this->m_real->get_text(text);
        });
    }
    STDMETHODIMP put_text(BSTR text) override
    {
        return this->Do(NodeCall::PutText, [&] {
            this->m_nodes.m_putTexts.emplace_back(text, SysStringLen(text));
            return this->m_real->put_text(text);
        });
    }
};

// A node of any kind; it has IXMLDOMElement if the real one has.
class CStandInNode : public CStandInNodeOf<CUnimplementedElement, IXMLDOMNode>
{
public:
    CStandInNode(FailingNodes& nodes, IXMLDOMNode* real) : CStandInNodeOf(nodes, real) {}

    STDMETHODIMP getAttribute(BSTR name, VARIANT* value) override
    {
        return Do(NodeCall::GetAttribute, [&] {
            return m_nodes.m_attributeValue ? m_nodes.m_attributeValue(value)
                                            : IXMLDOMElementPtr(m_real)->getAttribute(name, value);
        });
    }

protected:
    bool IsOffered(REFIID iid) override
    {
        return CStandInOf::IsOffered(iid) ||
               (IsEqualIID(iid, __uuidof(IXMLDOMElement)) && IXMLDOMElementPtr(m_real));
    }
};

class CStandInDocument : public CStandInNodeOf<CUnimplementedDocument, IXMLDOMDocument2>
{
public:
    CStandInDocument(FailingNodes& nodes, IXMLDOMDocument2* real) : CStandInNodeOf(nodes, real) {}

    STDMETHODIMP createNode(VARIANT type, BSTR name, BSTR space, IXMLDOMNode** node) override
    {
        return HandOut<CStandInNode>(NodeCall::CreateNode, node,
                                     [&](auto real) { return m_real->createNode(type, name, space, real); });
    }

    STDMETHODIMP get_doctype(IXMLDOMDocumentType** type) override
    {
        return Do(NodeCall::DocumentType, [&] { return m_real->get_doctype(type); });
    }

protected:
    bool IsOffered(REFIID iid) override
    {
        return CStandInOf::IsOffered(iid) || IsEqualIID(iid, __uuidof(IXMLDOMNode)) ||
               IsEqualIID(iid, __uuidof(IXMLDOMDocument));
    }
};

class CStandInList : public CStandInOf<CUnimplementedNodeList, IXMLDOMNodeList>
{
public:
    CStandInList(FailingNodes& nodes, IXMLDOMNodeList* real) : CStandInOf(nodes, real, nullptr) {}

    STDMETHODIMP get_length(long* length) override
    {
        return Do(NodeCall::Length, [&] { return m_real->get_length(length); });
    }
    STDMETHODIMP get_item(long index, IXMLDOMNode** node) override
    {
        return HandOut<CStandInNode>(NodeCall::Item, node,
                                     [&](auto real) { return m_real->get_item(index, real); });
    }
};

class CStandInMap : public CStandInOf<CUnimplementedNamedNodeMap, IXMLDOMNamedNodeMap>
{
public:
    CStandInMap(FailingNodes& nodes, IXMLDOMNamedNodeMap* real) : CStandInOf(nodes, real, nullptr) {}

    STDMETHODIMP getNamedItem(BSTR name, IXMLDOMNode** node) override
    {
        return HandOut<CStandInNode>(NodeCall::NamedItem, node,
                                     [&](auto real) { return m_real->getNamedItem(name, real); });
    }
    STDMETHODIMP setNamedItem(IXMLDOMNode* node, IXMLDOMNode** set) override
    {
        EXPECT_EQ(set, nullptr);
        return Do(NodeCall::SetNamedItem,
                  [&] { return m_real->setNamedItem(m_nodes.RealOf(node), nullptr); });
    }
};

inline IXMLDOMDocument2Ptr FailingNodes::Before(const IXMLDOMDocument2Ptr& document)
{
    return IXMLDOMDocument2Ptr(new CStandInDocument(*this, document), false);
}

inline IXMLDOMNodePtr FailingNodes::Before(const IXMLDOMNodePtr& node)
{
    return IXMLDOMNodePtr(new CStandInNode(*this, node), false);
}
