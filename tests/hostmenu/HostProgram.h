// The test program as a host: its application object, and the switch that takes it away.
#pragma once

#include <afxwin.h>

// What the program's export acedGetAcadWinApp gives: its application object or null.
void OfferApplication(bool offer);

// The application object's dispatch interface; no reference is added.
IDispatch* ApplicationDispatch();

// The references to it.
long ApplicationReferences();
