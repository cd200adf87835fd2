' Drives the running host through its automation names alone: reads what is there, adds a menu with an
' item, a separator and a sub-menu, and a toolbar with buttons and a fly-out, and reads them back.
' Ends with 0 when all was as expected, else with 1 after a line for each difference.
'
' Expects the host to hold one menu "&Ready" with one item on the bar, and one toolbar "Ready".
Option Explicit

Const acBaseMenuGroup = 0
Const acMenuItem = 0, acMenuSeparator = 1, acMenuSubMenu = 2
Const acToolbarButton = 0, acToolbarSeparator = 1, acToolbarFlyout = 3
Const acToolbarDockTop = 0, acToolbarFloating = 4

Dim failures
failures = 0

Sub Expect(what, actual, wanted)
    If actual <> wanted Then
        failures = failures + 1
        WScript.Echo what & ": " & actual & " instead of " & wanted
    End If
End Sub

' To be called after a line that must have failed under On Error Resume Next.
Sub ExpectError(what)
    If Err.Number = 0 Then
        failures = failures + 1
        WScript.Echo what & ": no error"
    ElseIf Err.Description = "" Then
        failures = failures + 1
        WScript.Echo what & ": error without description"
    End If
    Err.Clear
End Sub

Dim cancel
cancel = Chr(3) & Chr(3)

Sub ReadWhatIsThere(host)
    Dim group, bar
    Expect "Name", host.Name, "Velm Host"
    Expect "Version", host.Version, "22.0"
    Expect "Application", host.Application.Name, host.Name
    Expect "groups", host.MenuGroups.Count, 1
    Set group = host.MenuGroups.Item(0)
    Expect "group", group.Name, "BASE"
    Expect "group type", group.Type, acBaseMenuGroup
    Expect "group by name", host.MenuGroups("base").Name, "BASE"
    Expect "menus", group.Menus.Count, 1
    Expect "menu", group.Menus(0).Name, "&Ready"
    Expect "menu without mnemonic", group.Menus("&Ready").NameNoMnemonic, "Ready"
    Expect "item", group.Menus(0).Item(0).Label, "First"
    Expect "toolbar", group.Toolbars("Ready").Name, "Ready"
    Set bar = host.MenuBar
    Expect "bar", bar.Count, 1
    Expect "on bar", bar.Item(0).OnMenuBar, True
End Sub

Sub BuildMenu(host)
    Dim group, menu, item, subMenu
    Set group = host.MenuGroups(0)
    Set menu = group.Menus.Add("&Script")
    Expect "new menu on bar", menu.OnMenuBar, False
    Expect "new menu", menu.Count, 0
    Set item = menu.AddMenuItem(menu.Count, "&Line", cancel & "_line ")
    item.HelpString = "Draws a line"
    item.Check = True
    menu.AddSeparator menu.Count + 1
    Set subMenu = menu.AddSubMenu("", "&More")
    subMenu.AddMenuItem 0, "Second", "_second "
    subMenu.AddMenuItem 0, "First", "_first "
    menu.InsertInMenuBar host.MenuBar.Count
End Sub

Sub ReadMenu(host)
    Dim menu, item, text
    Set menu = host.MenuGroups(0).Menus("&Script")
    Expect "menu on bar", menu.OnMenuBar, True
    For Each item In menu
        text = text & item.Index & ":" & item.Type & ":" & item.Caption & " "
    Next
    Expect "items", text, "0:" & acMenuItem & ":Line 1:" & acMenuSeparator & ": 2:" & acMenuSubMenu & ":More "
    Expect "macro", menu.Item("&Line").Macro, cancel & "_line "
    Expect "help", menu(0).HelpString, "Draws a line"
    Expect "check", menu(0).Check, True
    Expect "enable", menu(0).Enable, True
    Expect "sub-menu", menu(2).SubMenu.Count, 2
    Expect "sub-menu name", menu(2).SubMenu.Name, "&More"
    text = ""
    For Each item In menu(2).SubMenu
        text = text & item.Label & " "
    Next
    Expect "sub-menu items", text, "First Second "
    Expect "parent", menu(2).SubMenu.Parent.Name, "&Script"
    text = ""
    For Each item In host.MenuBar
        text = text & item.Name & " "
    Next
    Expect "bar names", text, "&Ready &Script "
End Sub

Sub BuildToolbar(host)
    Dim group, toolbar, drop, button
    Set group = host.MenuGroups(0)
    Set drop = group.Toolbars.Add("ScriptDrop")
    drop.AddToolbarButton 0, "Circle", "Draws a circle", cancel & "_circle "
    Set toolbar = group.Toolbars.Add("Script")
    Expect "new toolbar visible", toolbar.Visible, True
    Expect "new toolbar docked", toolbar.DockStatus, acToolbarFloating
    Set button = toolbar.AddToolbarButton(toolbar.Count, "Line", "Draws a line", cancel & "_line ")
    button.SetBitmaps "small.bmp", "large.bmp"
    toolbar.AddSeparator toolbar.Count
    Set button = toolbar.AddToolbarButton(toolbar.Count, "More", "Opens more", "x", True)
    button.AttachToolbarToFlyout group.Name, "ScriptDrop"
    drop.Visible = False
    toolbar.Dock acToolbarDockTop
End Sub

Sub ReadToolbar(host)
    Dim group, toolbar, button, item, text, small, large
    Set group = host.MenuGroups(0)
    Set toolbar = group.Toolbars("Script")
    For Each button In toolbar
        text = text & button.Index & ":" & button.Type & ":" & button.Name & " "
    Next
    Expect "buttons", text, "0:" & acToolbarButton & ":Line 1:" & acToolbarSeparator & ": 2:" & _
        acToolbarFlyout & ":More "
    toolbar(0).GetBitmaps small, large
    Expect "bitmaps", small & " " & large, "small.bmp large.bmp"
    Expect "flyout", toolbar(2).Flyout.Name, "ScriptDrop"
    Expect "no flyout", toolbar(0).Flyout Is Nothing, True
    Expect "docked", toolbar.DockStatus, acToolbarDockTop
    Expect "hidden", group.Toolbars("ScriptDrop").Visible, False
    Expect "large buttons", group.Toolbars.LargeButtons, False
    text = ""
    For Each item In group.Toolbars
        text = text & item.Name & " "
    Next
    Expect "toolbars", text, "Ready ScriptDrop Script "
End Sub

Sub TryWhatFails(host)
    Dim group, menu, toolbar, item, result
    Set group = host.MenuGroups(0)
    Set menu = group.Menus("&Script")
    Set toolbar = group.Toolbars("Script")
    On Error Resume Next
    Set result = group.Menus.Item("Script")
    ExpectError "menu without its mnemonic"
    Set result = group.Toolbars.Item(17)
    ExpectError "toolbar out of range"
    Set result = menu(0).SubMenu
    ExpectError "sub-menu of a plain item"
    toolbar.AddToolbarButton 0, "Empty", "help", "", True
    ExpectError "fly-out without macro"
    group.Menus.Add "&Script"
    ExpectError "menu of a name taken"
    menu.AddSeparator 0
    ExpectError "separator first"
    menu.Delete
    Expect "unknown member", Err.Number, 438
    Err.Clear
    menu(0).Index = 2
    ExpectError "read-only property"
    Set item = menu.AddMenuItem(0, "Gone", "x ")
    item.Delete
    Expect "deleting", Err.Number, 0
    Expect "items after deleting", menu.Count, 3
    result = item.Label
    ExpectError "deleted item"
End Sub

Sub Main()
    Dim host
    Set host = CreateObject("VelmHost.Application")
    ReadWhatIsThere host
    BuildMenu host
    ReadMenu host
    BuildToolbar host
    ReadToolbar host
    TryWhatFails host
End Sub

' An error that no Sub expects ends Main and is a failure.
On Error Resume Next
Main
If Err.Number <> 0 Then
    failures = failures + 1
    WScript.Echo "error " & Hex(Err.Number) & ": " & Err.Description
End If
If failures > 0 Then WScript.Quit 1
' No Quit here: it would end the process before the objects are released.
