// Names in XML's sense.
#pragma once

// Whether `name` is a name that an element or an attribute may bear, with one prefix at most. Null is none.
bool IsXmlName(const wchar_t* name);
