#include "xml/XMLFile.h"

#include "frame/Bstr.h"
#include "xml/Prolog.h"
#include "xml/XMLDocument.h"

namespace
{

// As the assignment of a smart pointer moves, which not every toolchain's has.
template <class SmartPointer>
void Take(SmartPointer& target, SmartPointer& source)
{
    if (target.GetInterfacePtr() == source.GetInterfacePtr())
        return;
    target = nullptr;
    target.Attach(source.Detach());
}

void PutDeclaration(const IXMLDOMDocument2Ptr& document)
{
    IXMLDOMProcessingInstructionPtr declaration;
    CheckCall(document->createProcessingInstruction(CBstr(L"xml"), CBstr(L"version='1.0' encoding='UTF-8'"),
                                                    &declaration),
              document);
    CheckCall(document->appendChild(declaration, nullptr), document);
}

// Shows what a document that has not been loaded yet complains of, if anything.
void ShowParseError(const IXMLDOMDocument2Ptr& document)
{
    IXMLDOMParseErrorPtr error;
    CheckCall(document->get_parseError(&error), document);
    CBstr reason;
    CheckCall(error->get_reason(reason.Receive()), error);
    if (SysStringLen(reason) > 0)
        AfxMessageBox(reason, MB_OK, 0);
}

} // namespace

CXMLFile::CXMLFile() : m_bReadMode(false) {}

CXMLFile::CXMLFile(CString path) : m_strXMLFilePath(path), m_bReadMode(false) {}

CXMLFile::CXMLFile(const CXMLFile& other) = default;

CXMLFile& CXMLFile::operator=(const CXMLFile& other) = default;

CXMLFile::CXMLFile(CXMLFile&& other)
    : m_strXMLFilePath(other.m_strXMLFilePath), m_strExtra(other.m_strExtra), m_bReadMode(other.m_bReadMode)
{
    Take(m_pXMLDoc, other.m_pXMLDoc);
    Take(m_pCurNode, other.m_pCurNode);
}

CXMLFile& CXMLFile::operator=(CXMLFile&& other)
{
    m_strXMLFilePath = other.m_strXMLFilePath;
    Take(m_pXMLDoc, other.m_pXMLDoc);
    Take(m_pCurNode, other.m_pCurNode);
    m_strExtra = other.m_strExtra;
    m_bReadMode = other.m_bReadMode;
    return *this;
}

CXMLFile::~CXMLFile() = default;

void CXMLFile::SetXMLFilePath(CString path)
{
    m_strXMLFilePath = path;
}

bool CXMLFile::LoadFile()
{
    return ReportingFailure(L"XML File Loading Error", false, [this] {
        const IXMLDOMDocument2Ptr document = CreateXmlDocument();
        PutDeclaration(document);
        ShowParseError(document);
        m_pXMLDoc = document;
        CheckCall(document->put_async(VARIANT_FALSE), document);
        if (FileDeclaresEntities(m_strXMLFilePath))
            return ParseText(document, CString());
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        CheckCall(document->load(_variant_t(m_strXMLFilePath.GetString()), &isLoaded), document);
        return isLoaded != VARIANT_FALSE;
    });
}

void CXMLFile::UnLoadFile()
{
    CoUninitialize();
}

void CXMLFile::SaveDocument()
{
    if (m_pXMLDoc)
        CheckCall(m_pXMLDoc->save(_variant_t(m_strXMLFilePath.GetString())), m_pXMLDoc);
}

void CXMLFile::GetXMLDocument(IXMLDOMDocument2Ptr& document)
{
    document = m_pXMLDoc;
}

CString CXMLFile::GetXMLFileInString()
{
    CBstr text;
    return SUCCEEDED(m_pXMLDoc->get_xml(text.Receive())) ? text.Text() : CString();
}
