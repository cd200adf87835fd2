// What the add-in exports to its host.
#pragma once

// Called by the host on its user-interface thread once the add-in is loaded. Builds the menu and the
// toolbar of the add-in's own resource, and then those of the file that the switch "--description" of the
// program's command line names. Returns 0 on success, 1 when either could not be built, which the user has
// then been told.
extern "C" __declspec(dllexport) int AddInStart();

// Called by the host before the add-in is freed. Menus and toolbars belong to the host, which keeps them
// until it ends; their commands are the host's own, so they go on working.
extern "C" __declspec(dllexport) void AddInStop();

// Builds the menu and the toolbar from the file, or from the add-in's own resource when `fileName` is
// null. Results as AddInStart.
extern "C" __declspec(dllexport) int AddInBuild(const wchar_t* fileName);
