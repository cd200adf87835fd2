#include "../afxcoll.h"

IMPLEMENT_DYNAMIC(CStringArray, CObject)
IMPLEMENT_DYNAMIC(CPtrArray, CObject)
IMPLEMENT_DYNAMIC(CPtrList, CObject)
IMPLEMENT_DYNAMIC(CObList, CObject)

CStringArray::~CStringArray() {}

CPtrArray::~CPtrArray() {}

CPtrList::~CPtrList() {}

CObList::~CObList() {}
