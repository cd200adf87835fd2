#include "Starter.h"

namespace velmmenu
{

const wchar_t StarterText[] = LR"xml(<?xml version="1.0" encoding="UTF-8"?>
<!-- A menu and a toolbar for the host. The root may have any name. In texts, write &amp; for an ampersand
     and &quot; for a quotation mark. Names of elements and attributes are read with their case. -->
<Description>

  <!-- The menu. Its Name stands on the menu bar; a letter behind &amp; is the mnemonic, underlined and typed
       to open the entry. Mnemonics differ within one menu. -->
  <Menus Name="&amp;My tools">

    <!-- An item: Name, Cmd and Help. Cmd goes to the command line with a blank behind it, which ends it
         as the space bar does; ^C stands for the cancel key. Help is shown in the status bar. -->
    <Menu Name="&amp;Line" Cmd="^C^CLINE" Help="Draws straight lines from point to point"/>

    <!-- An entry without any attribute is a separator. -->
    <Menu/>

    <!-- A cascade: Help and no Cmd. The Help makes it one, and is shown nowhere. What stands in it are its
         entries, of any element name and to any depth. With a Cmd it would be an item, and all in it
         would be ignored. -->
    <Menu Name="&amp;Circle" Help="Circles">
      <Item Name="Centre, &amp;radius" Cmd="^C^CCIRCLE" Help="Draws a circle from its centre and radius"/>
      <Item Name="&amp;Three points" Cmd="^C^CCIRCLE 3" Help="Draws a circle through three points"/>
    </Menu>

    <!-- An empty Cmd sends one blank, which repeats the last command. -->
    <Menu Name="R&amp;epeat" Cmd="" Help="Repeats the last command"/>
  </Menus>

  <!-- The toolbar. Its Name is the title. -->
  <Toolbars Name="My tools">

    <!-- A button: Cmd, ToolTip and ImageList. The bitmaps lie in the folder Bmps beside your add-in's
         module: line16.bmp with 16 by 16 pixels and line24.bmp with 24 by 24, light grey (192, 192, 192)
         where the button is to show through. Name is for you; an entry called Separator adds nothing.
         Whatever stands in an entry, be it a comment, makes it a fly-out, whose first button is the entry
         itself. -->
    <Toolbar Name="Line" Cmd="^C^CLINE" ToolTip="Line" ImageList="line"/>
    <Toolbar Name="Circle" Cmd="^C^CCIRCLE" ToolTip="Circle" ImageList="circle">
      <Button Name="Three points" Cmd="^C^CCIRCLE 3" ToolTip="Circle, three points" ImageList="circle3"/>
    </Toolbar>
  </Toolbars>
</Description>
)xml";

} // namespace velmmenu
