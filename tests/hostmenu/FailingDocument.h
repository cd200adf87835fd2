// A document model that fails where a test wants it to.
#pragma once

#include "frame/Msxml.h"

#include <map>
#include <optional>

// The calls of the document model that can fail.
enum class DomCall
{
    CreateDocument,
    QueryNode,      // the document asked for IXMLDOMNode
    QueryDocument2, // the document asked for IXMLDOMDocument2
    LoadXml,
    SelectSingleNode,
    SelectNodes,
    Length,
    NextNode,
    Attributes,
    NamedItem,
    NodeValue,
    ChildNodes,
};

// While an object of this class lives, documents of MSXML 6 that are created in this process on this
// thread are made by it: real documents whose calls can be told to fail. One object at a time; COM must
// be initialised. Rests on CoRegisterClassObject.
class CFailingDocuments
{
public:
    CFailingDocuments();
    ~CFailingDocuments();
    CFailingDocuments(const CFailingDocuments&) = delete;
    CFailingDocuments& operator=(const CFailingDocuments&) = delete;

    // Lets the n-th call of that kind, counted from 1, give `result` instead of what it does.
    void Fail(DomCall call, int n, HRESULT result);

    // Lets the n-th call of any kind fail.
    void FailAny(int n, HRESULT result);

    // The call that was made to fail; none yet if it was not reached.
    std::optional<DomCall> Failed() const { return m_failed; }

    // How often such a call was made.
    int Count(DomCall call) const;

    // Objects of the model that are still alive.
    int LiveObjects() const { return m_liveObjects; }

    // For the objects of the model: counts the call and gives what it shall answer, if it shall fail.
    std::optional<HRESULT> Answer(DomCall call);
    void ObjectMade() { ++m_liveObjects; }
    void ObjectGone() { --m_liveObjects; }

private:
    std::map<DomCall, int> m_counts;
    std::optional<DomCall> m_failingCall;
    int m_failingNumber = 0;
    int m_allCalls = 0;
    HRESULT m_failure = S_OK;
    std::optional<DomCall> m_failed;
    int m_liveObjects = 0;
    DWORD m_registration = 0;
};
