// What the builder makes of nodes that answer as no document of ours does, but as the interface allows.
#include "FailingDocument.h"
#include "HostMenuTest.h"
#include "UnimplementedDom.h"

namespace
{

// A node that selects itself and has a value of any type.
class CNodeOfValue : public CUnimplementedNode<IXMLDOMNode>
{
public:
    explicit CNodeOfValue(const _variant_t& value) : m_value(value) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        const bool isKnown = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, __uuidof(IXMLDOMNode));
        *object = isKnown ? static_cast<IXMLDOMNode*>(this) : nullptr;
        if (!isKnown)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP selectSingleNode(BSTR, IXMLDOMNode** node) override
    {
        return QueryInterface(__uuidof(IXMLDOMNode), reinterpret_cast<void**>(node));
    }
    STDMETHODIMP get_nodeValue(VARIANT* value) override { return VariantCopy(value, &m_value); }

private:
    _variant_t m_value;
};

class NodeAnswer : public HostMenuTest
{
protected:
    static CString ValueOf(const _variant_t& value)
    {
        const IXMLDOMNodePtr node(new CNodeOfValue(value), false);
        std::wstring anything = L"@a";
        return GetAttribVal(node, anything.data());
    }
};

} // namespace

TEST_F(NodeAnswer, ThatIsANumberOrATruthValueIsTakenAsText)
{
    EXPECT_EQ(ValueOf(_variant_t(42L)), L"42");
    EXPECT_EQ(ValueOf(_variant_t(-7L)), L"-7");
    EXPECT_EQ(ValueOf(_variant_t(true)), CString(static_cast<const wchar_t*>(_bstr_t(_variant_t(true)))));
}

TEST_F(NodeAnswer, ThatIsEmptyIsTheEmptyText)
{
    EXPECT_EQ(ValueOf(_variant_t()), L"");
}

TEST_F(NodeAnswer, ThatIsATextKeepsItsZeros)
{
    const _bstr_t text(SysAllocStringLen(L"a\0b", 3), false);
    EXPECT_EQ(ValueOf(_variant_t(text)), CString(L"a\0b", 3));
}

TEST_F(NodeAnswer, ThatHasNoTextIsThrown)
{
    const IXMLDOMNodePtr object(new CNodeOfValue(_variant_t(1L)), false);
    EXPECT_THROW(ValueOf(_variant_t(static_cast<IUnknown*>(object.GetInterfacePtr()))), _com_error);
}

TEST_F(NodeAnswer, WithoutAnAttributeMapLeavesTheHolderWithoutAName)
{
    CFailingDocuments documents;
    documents.Fail(DomCall::Attributes, 1, S_FALSE);
    Build(LR"(<r><Menus Name="m"/></r>)");
    EXPECT_TRUE(documents.Failed().has_value());
    EXPECT_EQ(documents.LiveObjects(), 0);
    ASSERT_FALSE(recording::Log().empty());
    EXPECT_EQ(recording::Log().front(), L"menu1 = Create_ACADMenu(unknown, \"\")");
}
