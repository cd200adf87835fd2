#include "xml/XMLFile.h"

#include <cstdio>
#include <memory>
#include <string>

#include "frame/Bstr.h"
#include "frame/ModulePath.h"
#include "frame/ResourceText.h"
#include "xml/XMLDocument.h"

namespace
{

// The name that the library's own module is looked up by.
constexpr wchar_t OwnModule[] = L"VelmUtil";

struct FileCloser
{
    void operator()(FILE* file) const { std::fclose(file); }
};

// Makes `document` the new document `target` before its text is parsed.
bool LoadText(IXMLDOMDocument2Ptr& target, const CString& text)
{
    const IXMLDOMDocument2Ptr document = CreateXmlDocument();
    target = document;
    CheckCall(document->put_async(VARIANT_FALSE), document);
    return ParseText(document, text);
}

std::wstring TempFilePath(const CString& fileName)
{
    CString drive;
    CString dir;
    GetAppDriveAndDir(drive, dir);
    // Room for what _wmakepath may put between the parts, and for the extension.
    std::wstring path(drive.GetLength() + dir.GetLength() + fileName.GetLength() + 16, L'\0');
    _wmakepath_s(path.data(), path.size(), drive, dir, fileName, L"xsl");
    path.resize(wcslen(path.c_str()));
    return path;
}

} // namespace

bool CXMLFile::setXMLStringFromResource(__int64 resourceId, CString resourceType, CString moduleName)
{
    const CString text = NarrowResourceText(GetModuleHandleW(moduleName), LOWORD(resourceId), resourceType);
    return !text.IsEmpty() && LoadText(m_pXMLDoc, text);
}

bool CXMLFile::LoadFileFromRes()
{
    return ReportingFailure(L"Resource File Loading Error", false,
                            [this] { return LoadText(m_pXMLDoc, CString()); });
}

CString CXMLFile::GetStringFromResource(unsigned __int64 resourceId, CString resourceType)
{
    return NarrowResourceText(GetModuleHandleW(OwnModule), LOWORD(resourceId), resourceType);
}

void CXMLFile::WriteTempFile(CString text, CString fileName)
{
    const std::unique_ptr<FILE, FileCloser> file(_wfopen(TempFilePath(fileName).c_str(), L"wb"));
    if (file)
        std::fwrite(text.GetString(), 1, static_cast<size_t>(text.GetLength()), file.get());
}
