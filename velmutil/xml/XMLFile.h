// CXMLFile: one XML document over the MSXML 6 document object model.
//
// The calling thread must have COM initialised in an apartment of its own (CoInitialize): no member does
// it. An object, and every node it hands out, is used on that thread only. Selections are XPath 1.0.
//
// Each member says how it tells of a failure: by its result alone, by a message box (AfxMessageBox, an OK
// button, no help context), by the exception _com_error, or not at all. The exception carries the failing
// result code, and the error information of the failing object where it offers any. A call through a null
// pointer counts as E_POINTER, text or a node that the platform cannot allocate as E_OUTOFMEMORY. Where
// memory for MFC's or the standard library's own objects runs out, their exceptions leave a member that
// catches none.
//
// Documents do not reach outside themselves: document type definitions are forbidden and external
// references are not resolved, as far as the platform's parser knows these settings (ProhibitDTD and
// ResolveExternals, set with every new document). Windows refuses a document with a DTD. Wine's parser
// reads the internal one and fetches nothing. A file or resource that declares entities of its own counts
// as not well-formed everywhere: a few of them can keep a parser busy for ever. Names and texts may be as
// long as the parser takes them; tens of thousands of attributes of one element cost it seconds.
//
// Where an argument is a wchar_t*, it is a text with a final zero that the member only reads. A name to be
// given to a new element or attribute must be a name in XML's sense, with one prefix at most. Another one,
// the empty and the null one too, raises before anything is changed: E_INVALIDARG, unless something
// else fails first, such as the search of SelectNode.
#pragma once

#include <list>

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Msxml.h"
#include "frame/Portability.h"

class VELM_API CXMLFile
{
public:
    // Attributes, which callers read and set as well.

    // The file that LoadFile reads and SaveDocument writes.
    CString m_strXMLFilePath;
    // The document; null until a load makes one.
    IXMLDOMDocument2Ptr m_pXMLDoc;
    // The node under which SelectNode, CreateNode and CreateAttrib work. Only the caller sets it. It may
    // outlive its document: a load does not touch it.
    IXMLDOMNodePtr m_pCurNode;
    // The caller's own.
    CString m_strExtra;
    // What CreateAttrib does: true reads attributes into variables, false writes variables into
    // attributes. Only the caller sets it.
    bool m_bReadMode;

    // Construction

    // No path, no document, no current node, not in read mode.
    CXMLFile();

    // The same with the path of the file. Nothing is loaded.
    CXMLFile(CString path);

    // Copies share the one document and the one current node, with references of their own.
    CXMLFile(const CXMLFile& other);
    CXMLFile& operator=(const CXMLFile& other);

    // Takes document and current node over, which become null in `other`. Texts and read mode are copied.
    // An assignment releases what the target had; where both hold the same pointer, that one stays
    // with both.
    CXMLFile(CXMLFile&& other);
    CXMLFile& operator=(CXMLFile&& other);

    // Releases current node and document. Saves nothing and does not end COM.
    ~CXMLFile();

    // Loading and saving

    // Sets the path. Loads nothing.
    void SetXMLFilePath(CString path);

    // Loads the file into a new document and returns true, or returns false and leaves a new, empty
    // document. Any former document is released in both cases. A file that is missing, cannot be read or
    // is not well-formed raises nothing and shows nothing. Any exception is caught: it shows "XML File
    // Loading Error" and gives false. The former document is kept then if no new one could be made ready;
    // if the new one cannot be told to load, it is left, and may hold a declaration (UTF-8) and nothing
    // else. What the parser says of the new document before the load is shown in a box of its own, and
    // the load goes on; as a rule that is nothing.
    //
    // Rests on IXMLDOMDocument::load, which takes addresses as well as paths: in a path it may read "%20"
    // as a blank. A path that may stand for several files so is refused if any of them declares
    // entities; what an address that is no file's gives is not looked at before. Paths with more than 260
    // characters are the parser's matter.
    bool LoadFile();

    // Calls CoUninitialize once; document, current node and path stay. To be called where the caller's
    // own CoInitialize is to be undone.
    void UnLoadFile();

    // Writes the document to the path; without a document, does nothing. Raises _com_error where the
    // platform's IXMLDOMDocument::save fails, which it may do for an empty document, a missing
    // folder and a file that cannot be written.
    //
    // The platform opens the file for writing before it writes: a file that cannot be opened (read-only,
    // locked, a folder) stays as it was, while a failure in the middle of writing may leave a part of it.
    // Windows writes in the encoding that the document's declaration names, Wine always in UTF-8 and
    // without changing the declaration: there, a document declared in another encoding may come back
    // changed or not load, and for some encodings, such as GB2312, the save fails and leaves an empty
    // file. To be safe against both, declare UTF-8 or nothing. Wine writes an "&" in the name of a namespace
    // as it is: that file does not load again.
    void SaveDocument();

    // Sets `document` to the document, with a reference of its own; null without one.
    void GetXMLDocument(IXMLDOMDocument2Ptr& document);

    // The whole document as text (IXMLDOMNode::xml); empty if the platform cannot give it. Raises
    // _com_error (E_POINTER) without a document.
    CString GetXMLFileInString();

    // Selection

    // The first child element of the current node that is called `name`, as the XPath "./name" finds it.
    //   remove  create
    //   false   false   the child, or null
    //   false   true    the child, or a new element at the end of the current node's children
    //   true    true    a child that was found is removed; a new element at the end
    //   true    false   null after the message "To remove Node Itself, Create option should be true"
    // Does not change the current node. `name` may be any XPath that goes on from "./", and what it finds
    // any kind of node. Raises _com_error, in this order: E_POINTER without a current node; the platform's
    // error for what is no XPath, the empty and the null name too; and where an element must be made,
    // E_INVALIDARG for what is an XPath but no name, the platform's error for a refused removal,
    // E_POINTER without a document, E_INVALIDARG for a second root element and under a node that can have
    // no elements. An old child is gone after the removal, also when what follows fails.
    IXMLDOMNodePtr SelectNode(wchar_t* name, bool remove, bool create);

    // Sets `node` to the first node that `xpath` finds from the document, null if there is none. Leaves it
    // as it was without a document, and on any failure, which shows "Some Error occurred during XML File
    // Operation".
    void GetDOMNodePtr(CString xpath, IXMLDOMNodePtr& node);

    // The value of the attribute `attribute` of the first node that `xpath` finds, which must be an element;
    // empty where there is no such element or no such attribute. Any failure, a node that is no element,
    // and a null or empty `attribute` show "XML File Atrribute Error" and give the empty text; an XPath
    // that is not valid shows GetDOMNodePtr's message only.
    CString GetAttrib(CString xpath, wchar_t* attribute);

    // The same; sets `element` to that element as well. It stays as it was if nothing is found, and
    // becomes null if what is found is no element.
    CString GetAttribElement(CString xpath, wchar_t* attribute, IXMLDOMElementPtr& element);

    // Adds the value of the attribute `attribute` of every node that `xpath` finds to the end of `items`,
    // in document order. A node without that attribute ends it with the message "FillStringArray Error",
    // as does any failure; what was added before stays. Costs the same for each node, however many there
    // are.
    void FillStringArray(CStringArray& items, wchar_t* xpath, wchar_t* attribute);

    // The same, to the end of a list. Where that has no memory for an element, it raises std::bad_alloc.
    void FillStringList(std::list<CString>& items, wchar_t* xpath, wchar_t* attribute);

    // The same, to the end of a combo box, of which it then selects the first entry (see the free
    // FillComboBox).
    void FillComboBox(CComboBox& box, wchar_t* xpath, wchar_t* attribute);

    // Does nothing and leaves `rule` as it is.
    void CreateRuleXMLString(CString& rule);

    // Editing. All of these raise _com_error and show nothing.

    // A new element, put at the end of the current node's children. Does not change the current node and
    // does not look for others of that name. E_POINTER without document or current node; E_INVALIDARG for
    // a name that XML does not allow, for a second root element, and under a node that can have no elements.
    IXMLDOMNodePtr CreateNode(wchar_t* name);

    // Exchanges the attribute `name` of the current node with `value`, in the direction that m_bReadMode
    // says. Writing makes the attribute where it is missing. Reading a missing attribute leaves a text
    // alone, but sets a number to 0 and a bool to false. E_POINTER without a current node, for a current
    // node that has no attributes, and, where an attribute must be made, without a document; a variable is
    // not changed then. Characters that XML cannot hold (below 32 but for tab and line ends, half a
    // surrogate pair, U+FFFE, U+FFFF) must not stand in a text to be written: what becomes of them is the
    // parser's matter. An attribute is made by the document: a current node that is left from before a load
    // must not be given new ones, which damages Wine's parser.
    void CreateAttrib(wchar_t* name, CString& value);

    // Written as "%d", read with GetStrToInt.
    void CreateAttrib(wchar_t* name, int& value);

    // Written as "%ld", read with GetStrToLong.
    void CreateAttrib(wchar_t* name, long& value);

    // Written as "%.3f", three decimals, and read with GetStrToFloat.
    void CreateAttrib(wchar_t* name, float& value);

    // Written as "%.3f", three decimals, and read with GetStrToDouble.
    void CreateAttrib(wchar_t* name, double& value);

    // Written as "1" or "0"; true if GetStrToInt reads anything but 0, so the text "true" is false.
    void CreateAttrib(wchar_t* name, bool& value);

    // Removes the first node that `childXPath` finds from the first that `parentXPath` finds, both from
    // the document. Does nothing if either finds nothing. E_POINTER without a document; the platform's
    // error for an XPath that is not valid (both are searched for) and where the one is not a child of the
    // other; E_INVALIDARG for an attribute.
    void DeleteXMLNode(CString parentXPath, CString childXPath);

    // Resources

    // Loads the document from a text resource of the loaded module `moduleName`, as GetModuleHandleW finds
    // it; where there is none of that name, of the running program. The low 16 bits of `resourceId` are
    // the resource's name. Its bytes are text in the ANSI code page and end at the first zero byte, or
    // with the resource. Returns false if there is no such text, and changes nothing then; otherwise
    // replaces the document and returns whether the text is well-formed (if not, the new document is
    // empty). Raises _com_error where no document can be made, which keeps the former one, and where
    // the new one cannot be told to load, which leaves it empty. Rests on FindResourceW, LoadResource,
    // LockResource and IXMLDOMDocument::loadXML.
    bool setXMLStringFromResource(__int64 resourceId, CString resourceType, CString moduleName);

    // Replaces the document by a new, empty one and returns false. Any exception is caught and shows
    // "Resource File Loading Error"; the former document is kept then if no new one could be made.
    bool LoadFileFromRes();

private:
    // The text of a resource, read as above, of the loaded module VelmUtil.dll, or of the running program
    // where no module of exactly that name is loaded. Empty if there is none.
    CString GetStringFromResource(unsigned __int64 resourceId, CString resourceType);

    // Writes to the file `fileName`.xsl in the folder of VelmUtil.dll (see GetAppDriveAndDir; the working
    // directory where that module is not loaded) as many bytes of the text in UTF-16 as it has
    // characters: its first half. An existing file is replaced. What cannot be opened is left alone
    // without a report.
    void WriteTempFile(CString text, CString fileName);
};
