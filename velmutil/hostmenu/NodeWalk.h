// Walking a node list of the document model.
#pragma once

#include "frame/Msxml.h"

// The number of nodes in `nodes`; 0 for null. Throws _com_error when the document model fails.
inline long NodeCount(IXMLDOMNodeList* nodes)
{
    long count = 0;
    if (nodes != nullptr)
        _com_util::CheckError(nodes->get_length(&count));
    return count;
}

// Takes `count` nodes one after another and calls visit(node) for each that the list gave. The list is
// never asked by index, which costs it a walk from its start each time. Throws _com_error when the
// document model fails; what `visit` throws passes through.
template <class Visit>
void ForEachNode(IXMLDOMNodeList* nodes, long count, Visit visit)
{
    for (long i = 0; i < count; ++i) {
        IXMLDOMNodePtr node;
        _com_util::CheckError(nodes->nextNode(&node));
        if (node)
            visit(node);
    }
}
